// Sessions about references are about references, and mostly worth comparing.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>

#include "tests/model/generator.h"
#include "tests/model/model.h"

namespace Quarn::model {
namespace {

constexpr std::size_t kLength = 30;
constexpr std::uint64_t kSessions = 500;

TEST(ReferenceSession, IsTheSameForTheSameSeed) {
  const auto first = ReferenceSession(7, kLength);
  const auto second = ReferenceSession(7, kLength);
  ASSERT_EQ(first.size(), kLength);
  ASSERT_EQ(second.size(), kLength);
  for (std::size_t i = 0; i < kLength; ++i) {
    EXPECT_EQ(first[i].line, second[i].line);
    EXPECT_EQ(first[i].answers, second[i].answers);
  }
  EXPECT_NE(first[5].line + first[6].line + first[7].line,
            ReferenceSession(8, kLength)[5].line + ReferenceSession(8, kLength)[6].line +
                ReferenceSession(8, kLength)[7].line);
}

// The names of references begin with "r" and a digit.
TEST(ReferenceSession, IsMostlyAboutReferences) {
  std::size_t about = 0;
  for (std::uint64_t seed = 0; seed < kSessions; ++seed) {
    for (const Step& step : ReferenceSession(seed, kLength)) {
      const bool has_name =
          step.line.find_first_of("01234567", step.line.find('r')) != std::string::npos &&
          step.line.find('r') != std::string::npos;
      if (has_name || step.line.find('&') != std::string::npos) ++about;
    }
  }
  EXPECT_GT(about, kSessions * kLength * 7 / 10);
}

// A session that leaves the model behind is lost for the comparison from there on.
TEST(ReferenceSession, SeldomLeavesTheModel) {
  std::size_t lost = 0;
  std::string all;
  for (std::uint64_t seed = 0; seed < kSessions; ++seed) {
    Model model([] { return 1000000007; });
    try {
      for (const Step& step : ReferenceSession(seed, kLength)) {
        std::deque<std::string> answers(step.answers.begin(), step.answers.end());
        all += model.Run(step.line, answers);
        EXPECT_TRUE(answers.empty()) << step.line;
      }
    } catch (const Outside&) {
      ++lost;
    }
  }
  EXPECT_LT(lost, kSessions / 10);
  for (const char* words :
       {"\tReference : ", "Defining Reference", "leads back to itself", "null", "nan",
        "Defining Scalar", "Defining Vector", "Unknown symbol", "' erased", "All symbols erased",
        "\tVector : ", "No match for operator", "Empty symbol", "is undefined", " = r"}) {
    EXPECT_NE(all.find(words), std::string::npos) << words;
  }
}

}  // namespace
}  // namespace Quarn::model
