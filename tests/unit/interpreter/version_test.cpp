// Tests of the version: the same as a text, number by number, and from the library that runs.
#include "interpreter/version.h"

#include <gtest/gtest.h>

#include <string>

namespace Quarn {
namespace {

TEST(Version, IsMadeOfItsNumbers) {
  EXPECT_EQ(kVersion, std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
                          std::to_string(kVersionPatch));
}

TEST(Version, OfTheLibraryThatRunsIsThatOfTheHeaders) { EXPECT_STREQ(GetVersion(), kVersion); }

}  // namespace
}  // namespace Quarn
