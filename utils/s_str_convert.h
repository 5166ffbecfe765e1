// Numbers and booleans to and from text: what a standard stream in the classic locale writes and
// reads, without a stream and whatever the locale of the host.
#pragma once

#include <cstddef>
#include <string_view>
#include <type_traits>

#include "api.h"
#include "s_double.h"
#include "s_str.h"

namespace Quarn {

// Significant digits.
inline constexpr int kDoubleDigits = 15;
inline constexpr int kFloatDigits = 6;

// Enough for the longest text of a number, -1.23456789012346e-308.
inline constexpr std::size_t kNumberRoom = 32;

// Writes a number at `out`, unterminated, and returns its end. Finite numbers in the general
// notation
// ("0.1", "2", "1e+20"), the others as "nan", "inf+", "inf-".  REQUIRES: kNumberRoom characters.
MIRLOW_API char* WriteDouble(char* out, double value);

// As a text.
MIRLOW_API s_str ToText(s_double value);
MIRLOW_API s_str ToText(s_float value);
// "inf" and "nan" for the states that are no number.
MIRLOW_API s_str ToText(s_uint value);
MIRLOW_API s_str ToText(s_uint_t<unsigned long> value);
MIRLOW_API s_str ToText(s_int value);
MIRLOW_API s_str ToText(s_bool value);  // "true" or "false"

// The result of reading a number as a stream does: leading white space is skipped, and reading
// stops at the first character that cannot continue the number.
struct NumberRead {
  s_double value;   // 0 if there is no number; the largest double if it is too large
  s_bool complete;  // false where a stream would fail: no number, or too large
};
MIRLOW_API NumberRead ReadDouble(std::string_view text);

// 0 if there is no number: ask IsNumber first.
MIRLOW_API s_double ToDouble(const s_str& text);
MIRLOW_API s_float ToFloat(const s_str& text);
// As a stream reads the built-in integer: 0 if there is none, the nearest value if it is out of
// range; the unsigned ones wrap at a minus sign.
MIRLOW_API s_uint ToUint(const s_str& text);
MIRLOW_API s_ulong ToUlong(const s_str& text);
MIRLOW_API s_int ToInt(const s_str& text);

// The texts that IsBoolean accepts, and their values.
struct BooleanWord {
  const char* text;
  bool value;
};
inline constexpr BooleanWord kBooleanWords[] = {
    {"false", false},
    {"true",  true },
    {"0",     false},
    {"1",     true },
    {"no",    false},
    {"yes",   true },
};
// False for any other text: ask IsBoolean first.
MIRLOW_API s_bool ToBool(const s_str& text);

// Character by character; what does not fit a byte becomes "?".
MIRLOW_API s_ustr Widen(const s_str& text);
inline s_str Narrow(const s_str& text) { return text; }
MIRLOW_API s_str Narrow(const s_ustr& text);

// The conversions for other character types. A character that does not fit a byte ends a number.
template <class T, class Value>
s_str_t<T> ToText(Value value) {  // ToText<unsigned int>(value) is an s_ustr
  if constexpr (std::is_same_v<T, char>) {
    return ToText(value);
  } else {
    return Widen(ToText(value));
  }
}
template <class T>
s_double ToDouble(const s_str_t<T>& text) {
  return ToDouble(Narrow(text));
}
template <class T>
s_float ToFloat(const s_str_t<T>& text) {
  return ToFloat(Narrow(text));
}
template <class T>
s_uint ToUint(const s_str_t<T>& text) {
  return ToUint(Narrow(text));
}
template <class T>
s_ulong ToUlong(const s_str_t<T>& text) {
  return ToUlong(Narrow(text));
}
template <class T>
s_int ToInt(const s_str_t<T>& text) {
  return ToInt(Narrow(text));
}
template <class T>
s_bool ToBool(const s_str_t<T>& text) {
  return ToBool(Narrow(text));
}

}  // namespace Quarn
