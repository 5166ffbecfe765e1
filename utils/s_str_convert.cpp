#include "utils/s_str_convert.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <sstream>

#include "utils/decimal.h"
#include "utils/read_decimal.h"
#include "utils/write_real.h"

namespace Quarn {
namespace {

char* WriteWord(char* out, std::string_view word) {
  std::memcpy(out, word.data(), word.size());
  return out + word.size();
}

template <class T>
char* WriteAnyReal(char* out, T value, int digits) {
  using Class = typename s_double_t<T>::Class;
  const Class kind = s_double_t<T>(value).Classify();
  if (kind == Class::kNaN) return WriteWord(out, "nan");
  if (kind == Class::kPositiveInfinity) return WriteWord(out, "inf+");
  if (kind == Class::kNegativeInfinity) return WriteWord(out, "inf-");
  return WriteReal(out, out + kNumberRoom, value, std::chars_format::general, digits);
}

template <class T>
s_str RealToText(T value, int digits) {
  char room[kNumberRoom];
  const char* end = WriteAnyReal(room, value, digits);
  return s_str(std::string_view(room, static_cast<std::size_t>(end - room)));
}

template <class T>
s_str IntegerToText(s_int_t<T> value) {
  if (value.IsNaN()) return "nan";
  return value.IsValid() ? s_str(std::to_string(value.Get())) : s_str("inf");
}

// As isspace in the C locale.
bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The characters that a stream extracts: sign, digits with one point, and an exponent after a
// digit. It parses them afterwards, so "5e" is extracted whole and is not a number.
std::string_view TakeNumber(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && IsSpace(text[at])) ++at;
  text.remove_prefix(at);
  at = 0;
  const auto is = [&](char a, char b) {
    return at < text.size() && (text[at] == a || text[at] == b);
  };
  if (is('+', '-')) ++at;
  bool digit = false;
  bool point = false;
  for (; at < text.size() && (IsDigit(text[at]) || (!point && text[at] == '.')); ++at) {
    (text[at] == '.' ? point : digit) = true;
  }
  if (digit && is('e', 'E')) {
    ++at;
    if (is('+', '-')) ++at;
    while (at < text.size() && IsDigit(text[at])) ++at;
  }
  return text.substr(0, at);
}

// Is what a stream has extracted a number? It has a digit, and another one after an "e".
bool IsComplete(std::string_view number) {
  const bool has_digit = number.find_first_of("0123456789") != std::string_view::npos;
  return has_digit && (IsDigit(number.back()) || number.back() == '.');
}

// Throws std::bad_alloc, which a stream would otherwise turn into a failed extraction.
class NumberStream : public std::istringstream {
 public:
  explicit NumberStream(std::string_view text) : std::istringstream(std::string(text)) {
    imbue(std::locale::classic());
    exceptions(std::ios::badbit);
  }
};

// What a stream makes of a number: one that is too large becomes the largest, and fails.
template <class T>
struct RealRead {
  T value;
  bool complete;
};
template <class T>
RealRead<T> ReadReal(std::string_view number) {
  if (number.starts_with('+')) number.remove_prefix(1);  // neither way below knows a plus sign
  if (!IsComplete(number)) return {0, false};
#if defined(__cpp_lib_to_chars)
  T read = 0;
  const char* end = number.data() + number.size();
  if (std::from_chars(number.data(), end, read).ec == std::errc()) return {read, true};
#endif
  const T value = ReadDecimal<T>(number);
  if (std::isfinite(value)) return {value, true};
  return {std::copysign(std::numeric_limits<T>::max(), value), false};
}

template <class T>
T ReadByStream(const s_str& text) {
  NumberStream stream(text.GetView());
  T value = 0;
  stream >> value;
  return value;
}

}  // namespace

char* WriteDouble(char* out, double value) {
  char* end = WriteOrdinary(out, value);
  return end ? end : WriteAnyReal(out, value, kDoubleDigits);
}

s_str ToText(s_double value) {
  char room[kNumberRoom];
  const char* end = WriteDouble(room, value.Get());
  return s_str(std::string_view(room, static_cast<std::size_t>(end - room)));
}
s_str ToText(s_float value) { return RealToText(value.Get(), kFloatDigits); }
s_str ToText(s_uint value) { return IntegerToText(value); }
s_str ToText(s_ulong value) { return IntegerToText(value); }
s_str ToText(s_int value) { return IntegerToText(value); }
s_str ToText(s_bool value) { return value ? "true" : "false"; }

NumberRead ReadDouble(std::string_view text) {
  const s_double ordinary = ReadOrdinary(text);
  if (!ordinary.IsNaN()) return {ordinary, true};
  const std::string_view number = TakeNumber(text);
  const auto [value, complete] = ReadReal<double>(number);
  return {value, complete};
}

s_double ToDouble(const s_str& text) { return ReadDouble(text.GetView()).value; }
s_float ToFloat(const s_str& text) { return ReadReal<float>(TakeNumber(text.GetView())).value; }
s_uint ToUint(const s_str& text) { return ReadByStream<unsigned int>(text); }
s_ulong ToUlong(const s_str& text) { return ReadByStream<unsigned long>(text); }
s_int ToInt(const s_str& text) { return ReadByStream<int>(text); }

s_bool ToBool(const s_str& text) {
  for (const BooleanWord& word : kBooleanWords) {
    if (text == word.text) return word.value;
  }
  return false;
}

s_ustr Widen(const s_str& text) {
  s_ustr wide;
  for (char character : text) wide += static_cast<unsigned char>(character);
  return wide;
}

s_str Narrow(const s_ustr& text) {
  s_str narrow;
  for (unsigned int character : text) {
    narrow += character <= 0xFF ? static_cast<char>(static_cast<unsigned char>(character)) : '?';
  }
  return narrow;
}

}  // namespace Quarn
