#include "types/scalar_literal.h"

#include "utils/trim.h"

namespace Quarn {
namespace {

const char* SkipSign(const char* at, const char* end) {
  return at != end && (*at == '+' || *at == '-') ? at + 1 : at;
}

const char* SkipDigits(const char* at, const char* end) {
  while (at != end && *at >= '0' && *at <= '9') ++at;
  return at;
}

}  // namespace

bool IsNumberLiteral(std::string_view text) {
  text = TrimSpaces(text);
  const char* end = text.data() + text.size();
  const char* at = SkipDigits(SkipSign(text.data(), end), end);
  if (at != end && *at == '.') at = SkipDigits(at + 1, end);
  if (at == end) return true;
  if (*at != 'e') return false;
  at = SkipSign(at + 1, end);
  return at != end && SkipDigits(at, end) == end;
}

}  // namespace Quarn
