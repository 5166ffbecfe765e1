// Tests of hostile input: bytes that are no text, lines without end. Nothing takes the program
// down, and the next line is answered.
#include <gtest/gtest.h>

#include <random>

#include "tests/process/program.h"

namespace Quarn {
namespace {

constexpr char kAnswer[] = "\tScalar : 2\n";

TEST(Input, OfEveryByteIsAnswered) {
  for (int byte = 0; byte < 256; ++byte) {
    if (byte == '\n' || byte == '!') continue;  // the last is no line of its own
    const std::string odd(3, static_cast<char>(byte));
    for (const std::string& line : {odd, "x" + odd, "1" + odd + "2", "f(" + odd + ")"}) {
      const Outcome outcome = AsScript(line + "\n1+1");
      EXPECT_TRUE(outcome.output.ends_with(kAnswer)) << byte;
      EXPECT_EQ(outcome.status, 0) << byte;
    }
  }
}

TEST(Input, IsPrintedAsItWasTyped) {
  const std::string zero("a\0b", 3);
  EXPECT_EQ(AsScript(zero + "\n").output,
            "\tError : Unable to parse expression '" + zero + "', no operator found\n");
  EXPECT_EQ(AsScript("\xC3\xA9=1\n").output,
            "\tError : Only alphanumeric names are allowed for symbols, in '\xC3\xA9'\n");
}

TEST(Input, MayHoldCarriageReturnsAnywhere) {
  EXPECT_EQ(AsScript("1\r+\r1\r\r\n\r\r\n\r").output, kAnswer);
  EXPECT_EQ(AsScript("1+1\r").output, kAnswer);
  EXPECT_EQ(AsScript("\r1+1").output, kAnswer);
}

TEST(Input, OfRandomBytesIsAnswered) {
  std::mt19937 random(1);
  std::string bytes(2'000'000, ' ');
  for (char& byte : bytes) {
    byte = static_cast<char>(random() & 0xFF);
    if (byte == '!') byte = '+';  // factorials may have no end
  }
  const Outcome outcome = AsScript(bytes + "\n1+1\n");
  EXPECT_TRUE(outcome.output.ends_with(kAnswer));
  EXPECT_EQ(outcome.status, 0);
}

// Random characters of the language, which get further than random bytes.
TEST(Input, OfRandomWordsIsAnswered) {
  constexpr std::string_view kCharacters = "0123xy()<>[],;+-*/^&=:?. \n";
  std::mt19937 random(2);
  std::string bytes(500'000, ' ');
  for (char& byte : bytes) byte = kCharacters[random() % kCharacters.size()];
  const Outcome outcome = AsScript(bytes + "\n1+1\n");
  EXPECT_TRUE(outcome.output.ends_with(kAnswer));
  EXPECT_EQ(outcome.status, 0);
}

TEST(Input, OfOneEndlessLineIsAnswered) {
  constexpr std::size_t kLength = 2'000'000;
  std::string vector = "<1";
  while (vector.size() < kLength) vector += ", 1";
  std::string definitions;
  while (definitions.size() < kLength / 10) definitions += "a=1;";
  const std::string kLines[] = {
      std::string(kLength, '1'),
      std::string(kLength, '('),
      std::string(kLength, '<'),
      std::string(kLength, ')'),
      std::string(kLength, ';'),
      std::string(kLength, '+'),
      std::string(kLength, ' '),
      std::string(kLength, 'a'),
      "//" + std::string(kLength, 'a'),
      definitions,
      vector + ">",
  };
  for (const std::string& line : kLines) {
    const Outcome outcome = AsScript(line + "\n1+1\n");
    EXPECT_TRUE(outcome.output.ends_with(kAnswer)) << line.substr(0, 9);
    EXPECT_EQ(outcome.status, 0) << line.substr(0, 9);
  }
}

}  // namespace
}  // namespace Quarn
