// std::to_chars for floating numbers with a precision, also where the standard library has none, as
// libc++ 13, which emscripten brings. There printf writes the same digits: exact ones, and a full
// stop, since the C library beside it knows no other locale.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdio>

namespace Quarn {

// Written by printf: as "%.*g", or "%.*e" when scientific. One more byte than the text must fit,
// for the zero at its end. Returns the end of the text.
inline char* PrintReal(char* out, const char* end, double value, std::chars_format format,
                       int digits) {
  const auto room = static_cast<std::size_t>(end - out);
  const char* layout = format == std::chars_format::scientific ? "%.*e" : "%.*g";
  return out + std::snprintf(out, room, layout, digits, value);
}

// REQUIRES: the value is finite, the format general or scientific, and the text fits, with a byte
// to spare. Returns its end.
template <class T>
char* WriteReal(char* out, char* end, T value, std::chars_format format, int digits) {
  if constexpr (requires { std::to_chars(out, end, value, format, digits); }) {
    return std::to_chars(out, end, value, format, digits).ptr;
  } else {
    return PrintReal(out, end, static_cast<double>(value), format, digits);
  }
}

}  // namespace Quarn
