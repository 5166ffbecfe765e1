// Random hosts, the same on every run, get from the library what the evaluator foretells.
#include <gtest/gtest.h>

#include "tests/random_host/compare.h"
#include "tests/support/sanitizers.h"

namespace Quarn::random_host {
namespace {

constexpr std::uint64_t kParts = 5;

class RandomHosts : public testing::TestWithParam<std::uint64_t> {};

TEST_P(RandomHosts, GetWhatTheEvaluatorForetells) {
  constexpr std::uint64_t kHosts = kSanitized ? 8 : 80;
  constexpr std::size_t kQuestions = 250;
  std::size_t values = 0;
  std::size_t endless = 0;
  for (std::uint64_t i = 0; i < kHosts; ++i) {
    World world(GetParam() * kHosts + i);
    const std::optional<std::string> difference = world.Run(kQuestions);
    ASSERT_FALSE(difference) << *difference;
    values += world.CountValues();
    endless += world.CountEndless();
  }
  // Questions that mostly failed would show little, and those that nobody asked nothing.
  EXPECT_GT(values, kHosts * kQuestions / 4);
  EXPECT_LT(endless, kHosts * kQuestions / 50);
}

INSTANTIATE_TEST_SUITE_P(OfFixedSeeds, RandomHosts, testing::Range<std::uint64_t>(0, kParts));

}  // namespace
}  // namespace Quarn::random_host
