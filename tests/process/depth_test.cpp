// Tests of lines that nest deeply or go on for long: whatever the size of the stack, they have
// their value or their error.
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

TEST_P(Stack, HoldsAMillionLevels) {
  constexpr std::size_t kLevels = MIRLOW_OPTIMISED ? 1'000'000 : 20'000;
  const std::string vector = Nested("<", ">", kLevels);
  const struct {
    std::string script;
    std::string output;
  } kRows[] = {
      {Nested("(",                      ")",                           kLevels),  "\tScalar : 1\n"                                  },
      {Nested("(1+",                    ")",                           kLevels),  "\tScalar : " + std::to_string(kLevels + 1) + "\n"},
      {Nested("min(2,",                 ")",                           kLevels),  "\tScalar : 1\n"                                  },
      {vector,                          "\tVector : " + vector + "\n"},
      {Nested("<1>[",                       "]",                      kLevels),          "\tError : Unterminated '['\n"                                               },
      {Repeat("<", kLevels),                              "\tError : Unterminated '<'\n"},
      {Nested("&",               "",                                            kLevels / 10) + "+1", "\tScalar : 2\n"},
      {Nested("max(1,-(-(",               ")))",                                            kLevels / 10),                                   "\tScalar : 1\n"                                  },
  };
  for (const auto& row : kRows) {
    const Outcome outcome = Script(row.script + "\n2\n");
    EXPECT_TRUE(outcome.output == row.output + "\tScalar : 2\n") << row.script.substr(0, 20);
    EXPECT_EQ(outcome.status, 0);
  }
}

TEST_P(Stack, HoldsAChainOfReferences) {
  constexpr std::size_t kLevels = 100'000;
  const std::string output = LastLine(Script(ReferenceChain(kLevels) + "r0+1\n").output);
  EXPECT_EQ(output, "\tScalar : 2\n");
}

TEST_P(Stack, HoldsAReferenceThatLeadsBackToItself) {
  const char* const kSelfReferential[] = {"a", "a+a", "min(a,a)*a", "-<a, a>", "&a"};
  for (const std::string expression : kSelfReferential) {
    const Outcome outcome = Script("a&=" + expression + "\na+1;2\na*2\n3\n");
    const std::string error = "\tError : Reference '" + expression + "' leads back to itself\n";
    EXPECT_TRUE(
        outcome.output.ends_with("\n" + error + "\tScalar : 2\n" + error + "\tScalar : 3\n"))
        << expression << outcome.output;
    EXPECT_EQ(outcome.status, 0) << expression;
  }
}

// Vectors in vectors under an operator are what types evaluate inside an evaluation.
TEST_P(Stack, HoldsArithmeticOnVectorsNestedFarTooDeeply) {
  const std::string vector = Nested("<", ">", 500'000);
  const Outcome outcome = Script("v=" + vector + "\nx=-v\n?x\n-v+v*2;2\n");
  const std::string too_deep = kTooDeep;
  if (GetParam() != Process::kUnlimited) {
    EXPECT_TRUE(outcome.output.ends_with("\n" + too_deep + "\tError : Unknown symbol 'x'\n" +
                                         too_deep + "\tScalar : 2\n"));
  }
  EXPECT_EQ(outcome.status, 0);
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
