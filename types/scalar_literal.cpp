#include "types/scalar_literal.h"

#include "utils/trim.h"

namespace Quarn {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

void DropSign(std::string_view& text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
}

void DropDigits(std::string_view& text) {
  while (!text.empty() && IsDigit(text.front())) text.remove_prefix(1);
}

}  // namespace

bool IsNumberLiteral(std::string_view text) {
  text = TrimSpaces(text);
  DropSign(text);
  DropDigits(text);
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    DropDigits(text);
  }
  if (text.empty()) return true;
  if (text.front() != 'e') return false;
  text.remove_prefix(1);
  DropSign(text);
  if (text.empty()) return false;
  DropDigits(text);
  return text.empty();
}

}  // namespace Quarn
