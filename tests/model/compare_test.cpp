// Some thousands of random sessions, the same on every run, give what the model foretells.
#include "tests/model/compare.h"

#include <gtest/gtest.h>

namespace Quarn::model {
namespace {

constexpr std::size_t kLines = 30;

class Sessions : public testing::TestWithParam<std::uint64_t> {};

TEST_P(Sessions, ComeOutAsTheModelForetells) {
  constexpr std::uint64_t kSessions = 1000;
  std::size_t compared = 0;
  for (std::uint64_t i = 0; i < kSessions; ++i) {
    const std::uint64_t seed = GetParam() * kSessions + i;
    const auto random_seed = static_cast<unsigned int>(seed);
    const std::vector<Step> session = Session(seed, kLines);
    const Comparison comparison = Compare(session, random_seed);
    compared += comparison.lines;
    if (!comparison.difference) continue;
    const std::vector<Step> shrunk = Shrink(session, random_seed);
    FAIL() << "session " << seed << '\n' << Describe(shrunk, Compare(shrunk, random_seed));
  }
  // A model that foretold little would show little.
  EXPECT_GT(compared, kSessions * kLines * 9 / 10);
}

INSTANTIATE_TEST_SUITE_P(OfFixedSeeds, Sessions, testing::Range<std::uint64_t>(0, 5));

}  // namespace
}  // namespace Quarn::model
