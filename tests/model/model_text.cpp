#include "tests/model/model_text.h"

#include <cmath>
#include <cstddef>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

namespace Quarn::model {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsSign(char c) { return c == '+' || c == '-'; }

// The part of a literal behind its "e": a sign that may be there, then nothing but digits, and at
// least one character.
bool IsExponent(const std::string& text) {
  std::size_t at = 0;
  if (!text.empty() && IsSign(text[0])) at = 1;
  if (at == text.size()) return false;
  for (; at < text.size(); ++at) {
    if (!IsDigit(text[at])) return false;
  }
  return true;
}

}  // namespace

std::string Trim(const std::string& text) {
  std::size_t start = 0;
  std::size_t end = text.size();
  while (start < end && text[start] == ' ') ++start;
  while (end > start && text[end - 1] == ' ') --end;
  return text.substr(start, end - start);
}

std::vector<std::string> Cut(const std::string& text, char delimiter) {
  std::vector<std::string> pieces;
  std::string piece;
  for (char c : text) {
    if (c != delimiter) {
      piece += c;
      continue;
    }
    if (!piece.empty()) pieces.push_back(piece);
    piece.clear();
  }
  pieces.push_back(piece);
  return pieces;
}

std::string NumberText(double value) {
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value > 0 ? "inf+" : "inf-";
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(15);
  out << value;
  return out.str();
}

double ReadNumber(const std::string& text) {
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  double value = 0;
  // The stream's state is not asked: what overflows fails too, and leaves the largest double.
  in >> value;
  return value;
}

bool IsNumber(const std::string& text) {
  std::string rest = Trim(text);
  if (!rest.empty() && IsSign(rest[0])) rest.erase(0, 1);
  bool seen_point = false;
  for (std::size_t i = 0; i < rest.size(); ++i) {
    if (IsDigit(rest[i])) continue;
    if (rest[i] == 'e') return IsExponent(rest.substr(i + 1));
    if (rest[i] != '.' || seen_point) return false;
    seen_point = true;
  }
  return true;
}

bool IsAlphanumeric(const std::string& text) {
  for (char c : text) {
    if (!IsDigit(c) && !IsLetter(c)) return false;
  }
  return true;
}

void AddError(std::string& error, const std::string& message) {
  if (!error.empty()) error += "\n";
  error += message;
}

}  // namespace Quarn::model
