// Tests of the conversions beside the standard streams themselves, over a few hundred thousand
// values and texts: every bit and every failure is the same.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>

#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

class StreamWriter {
 public:
  StreamWriter() {
    stream_.imbue(std::locale::classic());
    stream_.precision(15);
  }
  std::string Write(double value) {
    stream_.str("");
    stream_ << value;
    return stream_.str();
  }

 private:
  std::ostringstream stream_;
};

class StreamReader {
 public:
  StreamReader() { stream_.imbue(std::locale::classic()); }
  NumberRead Read(const std::string& text) {
    stream_.clear();
    stream_.str(text);
    double value = 0;
    stream_ >> value;
    return {value, !stream_.fail()};
  }

 private:
  std::istringstream stream_;
};

// The conversions follow the streams of libstdc++. Those of libc++ read hexadecimal numbers, and
// fail at numbers close to zero.
#ifdef _LIBCPP_VERSION
constexpr bool kStreamsReadOtherwise = true;
#else
constexpr bool kStreamsReadOtherwise = false;
#endif

using Random = std::mt19937_64;

double AnyBits(Random& random) { return std::bit_cast<double>(random()); }
double Denormal(Random& random) { return std::bit_cast<double>(random() >> 12 >> random() % 52); }
double WholeNumber(Random& random) { return static_cast<double>(random() >> random() % 64); }
double ShortDecimal(Random& random) {
  const double digits = static_cast<double>(random() % 1000000);
  return digits / std::pow(10.0, static_cast<double>(random() % 9));
}
double NearPowerOfTen(Random& random) {
  double value = std::pow(10.0, static_cast<double>(random() % 617) - 308);
  const double side = random() % 2 ? std::numeric_limits<double>::infinity() : 0.0;
  for (auto steps = random() % 4; steps > 0; --steps) value = std::nextafter(value, side);
  return value;
}
// Fifteen digits and a 5: what the precision cuts off is a half, as near as a double comes to it.
double HalfAtTheLastDigit(Random& random) {
  const std::uint64_t digits = 100000000000000 + random() % 900000000000000;
  const double exponent = static_cast<double>(random() % 40) - 25;
  return static_cast<double>(digits * 10 + 5) * std::pow(10.0, exponent);
}

using Generator = double (*)(Random&);
constexpr Generator kGenerators[] = {AnyBits,      Denormal,       WholeNumber,
                                     ShortDecimal, NearPowerOfTen, HalfAtTheLastDigit};

// Calls the check with as many numbers of every kind, half of them negative.
template <class Check>
void ForManyNumbers(int number_of_each, Check check) {
  Random random(20);
  for (const Generator generate : kGenerators) {
    for (int i = 0; i < number_of_each && !testing::Test::HasFailure(); ++i) {
      const double value = generate(random);
      if (std::isfinite(value)) check(i % 2 ? -value : value);
    }
  }
}

std::string WriteWithDigits(double value, int digits) {
  char room[64];
  std::snprintf(room, sizeof room, "%.*g", digits, value);
  return room;
}

void ExpectReadAlike(StreamReader& stream, const std::string& text) {
  const NumberRead expected = stream.Read(text);
  const NumberRead read = ReadDouble(text);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(read.value), std::bit_cast<std::uint64_t>(expected.value))
      << '"' << text << '"';
  EXPECT_EQ(bool(read.complete), bool(expected.complete)) << '"' << text << '"';
}

TEST(SStrConvertStream, WritesWhatAStreamWrites) {
  StreamWriter stream;
  ForManyNumbers(50000, [&](double value) {
    char room[kNumberRoom];
    const std::string text(room, WriteDouble(room, value));
    EXPECT_EQ(text, stream.Write(value));
    EXPECT_EQ(ToText(s_double(value)).Get(), text);
  });
}

TEST(SStrConvertStream, WritesFloatsAsAStreamDoes) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  Random random(21);
  for (int i = 0; i < 20000; ++i) {
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (!std::isfinite(value)) continue;
    stream.str("");
    stream << value;
    ASSERT_EQ(ToText(s_float(value)).Get(), stream.str());
  }
}

TEST(SStrConvertStream, ReadsNumbersAsAStreamDoes) {
  if (kStreamsReadOtherwise) GTEST_SKIP() << "the streams of this library read otherwise";
  StreamReader stream;
  int digits = 0;
  ForManyNumbers(30000, [&](double value) {
    digits = digits % 25 + 1;
    ExpectReadAlike(stream, WriteWithDigits(value, digits));
  });
}

TEST(SStrConvertStream, ReadsNumbersAsTheLibraryOfCDoes) {
  int digits = 0;
  ForManyNumbers(30000, [&](double value) {
    digits = digits % 25 + 1;
    const std::string text = WriteWithDigits(value, digits);
    const double expected = std::strtod(text.c_str(), nullptr);
    const NumberRead read = ReadDouble(text);
    EXPECT_EQ(bool(read.complete), std::isfinite(expected)) << text;
    if (!std::isfinite(expected)) return;  // with fewer digits the largest number is larger
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read.value.Get()),
              std::bit_cast<std::uint64_t>(expected))
        << text;
  });
}

TEST(SStrConvertStream, ReadsWhatItWroteBackToTheSameText) {
  ForManyNumbers(5000, [&](double value) {
    const s_str text = ToText(s_double(value));
    const NumberRead read = ReadDouble(text.GetView());
    if (!read.complete) return;  // the largest doubles round up beyond the range
    EXPECT_EQ(ToText(read.value).Get(), text.Get());
  });
}

TEST(SStrConvertStream, ReadsRandomTextsAsAStreamDoes) {
  if (kStreamsReadOtherwise) GTEST_SKIP() << "the streams of this library read otherwise";
  constexpr std::string_view kCharacters = "0123456789.eE+- \tx";
  StreamReader stream;
  Random random(22);
  for (int i = 0; i < 400000 && !HasFailure(); ++i) {
    std::string text;
    for (auto length = random() % 12; length > 0; --length) {
      text += kCharacters[static_cast<std::size_t>(random() % kCharacters.size())];
    }
    ExpectReadAlike(stream, text);
  }
}

TEST(SStrConvertStream, ReadsLongTextsAsAStreamDoes) {
  constexpr std::string_view kCharacters = "00000123456789.e-";
  StreamReader stream;
  Random random(23);
  for (int i = 0; i < 3000 && !HasFailure(); ++i) {
    std::string text;
    for (auto length = random() % 1000; length > 0; --length) {
      const std::size_t most = text.size() % 97 ? 15 : kCharacters.size();
      text += kCharacters[static_cast<std::size_t>(random() % most)];
    }
    ExpectReadAlike(stream, text);
  }
}

TEST(SStrConvertStream, ReadsEveryShortTextAsAStreamDoes) {
  if (kStreamsReadOtherwise) GTEST_SKIP() << "the streams of this library read otherwise";
  constexpr std::string_view kCharacters = "09.e+- x";
  StreamReader stream;
  for (unsigned int length = 0; length <= 5; ++length) {
    for (unsigned int number = 0; number < 1U << (3 * length); ++number) {
      std::string text;
      for (unsigned int at = 0; at < length; ++at) text += kCharacters[number >> (3 * at) & 7U];
      ExpectReadAlike(stream, text);
    }
  }
}

}  // namespace
}  // namespace Quarn
