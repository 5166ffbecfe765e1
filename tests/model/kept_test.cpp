// Whether values of references are kept cannot be told from what is printed.
#include "tests/model/kept.h"

#include <gtest/gtest.h>

#include "tests/model/compare.h"

namespace Quarn::model {
namespace {

// Of what the model foretells, so that no session takes for ever.
TEST(KeptValues, CannotBeTold) {
  constexpr std::size_t kLines = 20;
  constexpr unsigned int kSessions = 300;
  for (unsigned int seed = 0; seed < kSessions; ++seed) {
    std::vector<Step> session = ReferenceSession(seed, kLines);
    session.resize(Compare(session, seed).lines);
    EXPECT_EQ(Outputs(session, seed, true), Outputs(session, seed, false)) << "session " << seed;
  }
}

}  // namespace
}  // namespace Quarn::model
