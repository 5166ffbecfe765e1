// Numbers and booleans to and from text. A number becomes the text that a standard stream writes,
// and a text becomes the number that a standard stream reads, both in the classic locale whatever
// the locale of the host program, and without a stream.
#pragma once

#include <cstddef>
#include <string_view>
#include <type_traits>

#include "utils/s_double.h"
#include "utils/s_str.h"

namespace Quarn {

// The significant digits that a number prints with.
inline constexpr int kDoubleDigits = 15;
inline constexpr int kFloatDigits = 6;

// Room for the longest text of a number, -1.23456789012346e-308, and more.
inline constexpr std::size_t kNumberRoom = 32;

// Writes the text of a number at `out` and returns its end; nothing is terminated. A finite number
// is written in the general notation ("0.1", "2", "1e+20"), the others as "nan", "inf+", "inf-".
// REQUIRES: room for kNumberRoom characters.
char* WriteDouble(char* out, double value);

// The same as a text.
s_str ToText(s_double value);
s_str ToText(s_float value);
// "inf" and "nan" for the states that are no number; without sign or padding otherwise.
s_str ToText(s_uint value);
s_str ToText(s_uint_t<unsigned long> value);
s_str ToText(s_int value);
s_str ToText(s_bool value);  // "true" or "false"

// What reading a text as a number came to, with the rules of a stream's extraction: leading white
// space is skipped and reading stops at the first character that cannot go on with the number.
struct NumberRead {
  s_double value;   // 0 when there is no number; the largest double when it is too large for one
  s_bool complete;  // false where the stream would report a failure: no number, or too large
};
NumberRead ReadDouble(std::string_view text);

// 0 when the text holds no number: ask IsNumber first.
s_double ToDouble(const s_str& text);
s_float ToFloat(const s_str& text);
// As the stream extraction of the plain integer: 0 when there is none, the nearest value when it is
// too large or too small; a minus sign wraps where there are no negative values.
s_uint ToUint(const s_str& text);
s_ulong ToUlong(const s_str& text);
s_int ToInt(const s_str& text);

// A text that is a boolean.
struct BooleanWord {
  // What is written, and what it means.
  const char* text;
  bool value;
};
// All of them.
inline constexpr BooleanWord kBooleanWords[] = {
    {"false", false},
    {"true",  true },
    {"0",     false},
    {"1",     true },
    {"no",    false},
    {"yes",   true },
};
// False for a text that is not a boolean word: ask IsBoolean first.
s_bool ToBool(const s_str& text);

// A text of 32-bit characters from one of bytes, character by character, and back; a character that
// fits no byte becomes "?".
s_ustr Widen(const s_str& text);
inline s_str Narrow(const s_str& text) { return text; }
s_str Narrow(const s_ustr& text);

// The conversions for texts of other characters. A character that fits no byte ends a number.
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
