// Tests of lines that nest deeply or go on for long: the stack that is really there decides, and
// what does not fit on it is an error like others.
#include <gtest/gtest.h>

#include "tests/process/program.h"

namespace Quarn {
namespace {

constexpr char kTooDeep[] = "\tError : Expression is nested too deeply\n";

std::string Repeat(const std::string& text, std::size_t count) {
  std::string repeated;
  for (std::size_t i = 0; i < count; ++i) repeated += text;
  return repeated;
}

std::string Nested(const std::string& open, const std::string& close, std::size_t levels) {
  return Repeat(open, levels) + "1" + Repeat(close, levels);
}

std::string ReferenceName(std::size_t number) {
  std::string name = "r";
  return name += std::to_string(number);
}

// A chain of so many references, which shows 1 at its end, "r0". Each is defined before the one it
// names, so that it is not followed yet.
std::string ReferenceChain(std::size_t levels) {
  std::string script;
  for (std::size_t i = 0; i < levels; ++i) {
    script += ReferenceName(i) + "&=" + ReferenceName(i + 1) + "\n";
  }
  return script + ReferenceName(levels) + "=1\n";
}

std::string LastLine(const std::string& output) {
  const std::size_t end = output.rfind('\n', output.size() - 2);
  return output.substr(end == std::string::npos ? 0 : end + 1);
}

// On stacks of all sizes that a user may have.
class Stack : public testing::TestWithParam<std::size_t> {
 protected:
  static Outcome Script(const std::string& script) {
    Process::Options options;
    options.stack = GetParam();
    return AsScript(script, "", options);
  }
};

TEST_P(Stack, HoldsAReferenceThatLeadsBackToItself) {
  const char* const kSelfReferential[] = {
      "a&=a\n", "a&=a+a\n", "a&=b\nb&=<1, a>[1]\n", "a&=min(a,a)*a\n", "a&=-<a, a>\n", "a&=&a\n",
  };
  for (const char* definitions : kSelfReferential) {
    const Outcome outcome = Script(std::string(definitions) + "a+1;2\na*2\n3\n");
    const std::string expected =
        std::string(kTooDeep) + "\tScalar : 2\n" + kTooDeep + "\tScalar : 3\n";
    EXPECT_TRUE(outcome.output.ends_with("\n" + expected)) << definitions << outcome.output;
    EXPECT_EQ(outcome.status, 0) << definitions;
  }
}

TEST_P(Stack, HoldsWhatNestsFarTooDeeply) {
  constexpr std::size_t kLevels = 200'000;
  const std::string kTooMuch[] = {
      Nested("<", ">", kLevels),
      Nested("min(", ",2)", kLevels),
      Nested("(<", ">)", kLevels),
      // Each level is a reference, which holds the text of all those within.
      Repeat("&", kLevels) + "1+1",
      Nested("<&", ">", kLevels),
      Nested("min(&", ",2)", kLevels),
  };
  for (const std::string& line : kTooMuch) {
    const Outcome outcome = Script("x=2\nx=" + line + "\nx\n");
    EXPECT_EQ(outcome.output,
              std::string("\tDefining Scalar : x = 2\n") + kTooDeep + "\tScalar : 2\n")
        << line.substr(0, 9);
    EXPECT_EQ(outcome.status, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(OfManySizes, Stack,
                         testing::Values(256U << 10, 1024U << 10, 8U << 20, Process::kUnlimited));

class Depth : public testing::Test {
 protected:
  static constexpr std::size_t kLevels = 10'000;

  void SetUp() override {
    if (!MIRLOW_OPTIMISED) GTEST_SKIP() << "only optimised code promises so many levels";
  }
};

TEST_F(Depth, OfTenThousandParentheses) {
  EXPECT_EQ(AsScript(Nested("(", ")", kLevels)).output, "\tScalar : 1\n");
  EXPECT_EQ(AsScript(Nested("-(", ")", kLevels)).output, "\tScalar : 1\n");
  EXPECT_EQ(AsScript(Nested("(1+", ")", kLevels)).output, "\tScalar : 10001\n");
}

TEST_F(Depth, OfTenThousandCalls) {
  EXPECT_EQ(AsScript(Nested("min(", ",2)", kLevels)).output, "\tScalar : 1\n");
}

TEST_F(Depth, OfTenThousandVectors) {
  const std::string vector = Nested("<", ">", kLevels);
  EXPECT_EQ(AsScript(vector).output, "\tVector : " + vector + "\n");
  EXPECT_EQ(AsScript("v=" + vector + "\n-v+v*2\n").output,
            "\tDefining Vector : v = " + vector + "\n\tVector : " + vector + "\n");
}

TEST_F(Depth, OfTenThousandReferences) {
  const std::string chain = ReferenceChain(kLevels);
  EXPECT_EQ(LastLine(AsScript(chain + "r0+1").output), "\tScalar : 2\n");
  EXPECT_EQ(LastLine(AsScript(chain + "r0").output), "\tScalar : 1\n");
  EXPECT_EQ(LastLine(AsScript(chain + "?r0").output), "\tScalar : r0 = 1\n");
  EXPECT_EQ(AsScript(Nested("&", "", kLevels) + "+1").output, "\tScalar : 2\n");
}

TEST(Length, OfAMillionTerms) {
  const std::string sum = "1" + Repeat("+1", 999'999);
  EXPECT_EQ(AsScript(sum).output, "\tScalar : 1000000\n");
  EXPECT_EQ(AtPrompt("x=" + sum + "\nq\n").output, "> \tDefining Scalar : x = 1000000\n> ");
}

}  // namespace
}  // namespace Quarn
