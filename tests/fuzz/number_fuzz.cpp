// Properties of numbers and their text, with a standard stream in the classic locale as the judge:
//   the text that is read as a number is the number that the stream reads, and fails where it does;
//   a number (the first eight bytes, and whatever was read) prints as the stream prints it;
//   printed and read back, it prints the same.
// Skipped: NaN and the infinities, which have words of their own, when they are printed.
#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <sstream>

#include "tests/fuzz/fuzz.h"
#include "utils/s_str_convert.h"

namespace Quarn::fuzz {
namespace {

// One stream for all inputs: to make one takes longer than to use it.
std::stringstream& PrepareStream(std::string_view text) {
  static std::stringstream stream;
  static const std::locale before = stream.imbue(std::locale::classic());
  stream.clear();
  stream.str(std::string(text));
  return stream;
}

template <class T>
bool ReadByStream(std::string_view text, T& value) {
  return static_cast<bool>(PrepareStream(text) >> value);
}

std::string WriteByStream(double value, int digits) {
  std::stringstream& stream = PrepareStream("");
  stream.precision(digits);
  stream << value;
  return stream.str();
}

std::string Bits(double value) {
  char bytes[sizeof value];
  std::memcpy(bytes, &value, sizeof value);
  return std::string(bytes, sizeof bytes) + " (" + WriteByStream(value, 17) + ")";
}

void TryPrinting(double value) {
  if (!std::isfinite(value)) return;
  const std::string text = ToText(s_double(value)).Get();
  RequireEqual(text, WriteByStream(value, kDoubleDigits), "a number prints as a stream prints it");
  RequireEqual(ToText(ToDouble(text)).Get(), text, "printed and read back prints the same");
}

void TryReadingWholes(const std::string& text) {
  unsigned int small = 0;
  unsigned long large = 0;
  int below_zero = 0;
  ReadByStream(text, small);
  ReadByStream(text, large);
  ReadByStream(text, below_zero);
  Require(ToUint(text) == s_uint(small), "a stream reads the same s_uint", text);
  Require(ToUlong(text) == s_ulong(large), "a stream reads the same s_ulong", text);
  Require(ToInt(text) == s_int(below_zero), "a stream reads the same s_int", text);
}

}  // namespace

void Try(std::string_view input) {
  double expected = 0;
  const bool complete = ReadByStream(input, expected);
  const NumberRead read = ReadDouble(input);
  Require(bool(read.complete) == complete, "reading fails where a stream fails", input);
  RequireEqual(Bits(read.value.Get()), Bits(expected), "a stream reads the same number");
  TryPrinting(read.value.Get());

  const std::string text(input);
  float single = 0;
  ReadByStream(text, single);
  const float converted = ToFloat(text).Get();
  RequireEqual(Bits(converted), Bits(single), "a stream reads the same float");
  if (std::isfinite(single)) {
    RequireEqual(ToText(s_float(single)).Get(), WriteByStream(single, kFloatDigits),
                 "a float prints as a stream prints it");
  }
  TryReadingWholes(text);
  double raw = 0;
  if (input.size() < sizeof raw) return;
  std::memcpy(&raw, input.data(), sizeof raw);
  TryPrinting(raw);
}

}  // namespace Quarn::fuzz
