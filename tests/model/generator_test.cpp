// Sessions come out the same everywhere, keep their promises, and are mostly worth comparing.
#include "tests/model/generator.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>

#include "tests/model/generator_random.h"
#include "tests/model/model.h"

namespace Quarn::model {
namespace {

constexpr std::size_t kLength = 30;

TEST(Dice, FollowTheirSeed) {
  // The first two numbers of splitmix64 from seed 0, as published, in their lower digits.
  Dice dice(0);
  EXPECT_EQ(dice.Below(1000), 0xE220A8397B1DCDAFu % 1000);
  EXPECT_EQ(dice.Below(1000), 0x6E789E6AA1B965F4u % 1000);
}

TEST(Session, IsTheSameForTheSameSeed) {
  const auto first = Session(7, kLength);
  const auto second = Session(7, kLength);
  ASSERT_EQ(first.size(), kLength);
  ASSERT_EQ(second.size(), kLength);
  std::size_t equal_to_other = 0;
  const auto other = Session(8, kLength);
  for (std::size_t i = 0; i < kLength; ++i) {
    EXPECT_EQ(first[i].line, second[i].line);
    EXPECT_EQ(first[i].answers, second[i].answers);
    if (first[i].line == other[i].line) ++equal_to_other;
  }
  EXPECT_LT(equal_to_other, kLength / 2);
}

TEST(Session, StartsLikeALongerOne) {
  const auto brief = Session(3, 5);
  const auto full = Session(3, kLength);
  for (std::size_t i = 0; i < brief.size(); ++i) EXPECT_EQ(brief[i].line, full[i].line);
}

TEST(Session, HoldsOnlyWhatCanBeTyped) {
  for (std::uint64_t seed = 0; seed < 500; ++seed) {
    for (const Step& step : Session(seed, kLength)) {
      EXPECT_EQ(step.line.find_first_of("\n\r"), std::string::npos);
      EXPECT_NE(step.line, "q");
      EXPECT_NE(step.line, "exit");
      for (const std::string& answer : step.answers) {
        EXPECT_EQ(answer.find_first_of("\n\r"), std::string::npos);
      }
    }
  }
}

TEST(Session, HasOneAnswerForEachQuestion) {
  const std::string question = "Are you sure ?";
  std::size_t questions = 0;
  for (std::uint64_t seed = 0; seed < 500; ++seed) {
    Model model([] { return 1; });
    try {
      for (const Step& step : Session(seed, kLength)) {
        std::deque<std::string> answers(step.answers.begin(), step.answers.end());
        const std::string output = model.Run(step.line, answers);
        EXPECT_TRUE(answers.empty()) << step.line;
        std::size_t asked = 0;
        for (std::size_t at = output.find(question); at != std::string::npos;
             at = output.find(question, at + 1)) {
          ++asked;
        }
        EXPECT_EQ(asked, step.answers.size()) << step.line;
        questions += asked;
      }
    } catch (const Outside&) {
      continue;
    }
  }
  EXPECT_GT(questions, 10u);
}

// A session that leaves the model behind is lost for the comparison from there on.
TEST(Session, SeldomLeavesTheModel) {
  std::size_t lost = 0;
  std::size_t succeeded = 0;
  std::size_t failed = 0;
  for (std::uint64_t seed = 0; seed < 500; ++seed) {
    Model model([] { return 1000000007; });
    try {
      for (const Step& step : Session(seed, kLength)) {
        std::deque<std::string> answers(step.answers.begin(), step.answers.end());
        const std::string output = model.Run(step.line, answers);
        ++(output.find("\tError : ") == std::string::npos ? succeeded : failed);
      }
    } catch (const Outside&) {
      ++lost;
    }
  }
  EXPECT_LT(lost, 25u);
  EXPECT_GT(succeeded, 5000u);
  EXPECT_GT(failed, 2000u);
}

// Each word belongs to one kind of output; all kinds have to come up.
TEST(Session, ReachesEveryKindOfOutput) {
  std::string all;
  for (std::uint64_t seed = 0; seed < 1000; ++seed) {
    Model model([] { return 1000000007; });
    try {
      for (const Step& step : Session(seed, kLength)) {
        std::deque<std::string> answers(step.answers.begin(), step.answers.end());
        all += model.Run(step.line, answers);
      }
    } catch (const Outside&) {
      continue;
    }
  }
  for (const char* words : {"Empty symbol",
                            "closing ')'",
                            "closing '>'",
                            "closing ']'",
                            "Unterminated '('",
                            "Unterminated '<'",
                            "Unterminated '['",
                            "Unable to parse",
                            "missing its operands",
                            "Unknown symbol",
                            "Unknown type",
                            "Undefined function",
                            "No matching function",
                            "with empty argument",
                            "on empty object",
                            "No match for operator",
                            "'Symbol=Symbol'",
                            "is not assignable",
                            "Only alphanumeric",
                            "All symbols erased",
                            "is undefined",
                            "' erased",
                            "Non-homogeneous",
                            "Cannot add",
                            "Cannot substract",
                            "cross product",
                            "empty Vector",
                            "leads back to itself",
                            "Help :",
                            "inf+",
                            "inf-",
                            "nan",
                            "null",
                            "Defining Scalar",
                            "Defining Vector",
                            "Defining Symbol",
                            "Defining Reference",
                            "\tSymbol : ",
                            "\tVector : ",
                            "\tReference : ",
                            ")+("}) {
    EXPECT_NE(all.find(words), std::string::npos) << words;
  }
}

}  // namespace
}  // namespace Quarn::model
