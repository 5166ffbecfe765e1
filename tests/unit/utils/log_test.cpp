// Tests of the log: it is open before main, for objects made before main too.
#include "utils/log.h"

#include <gtest/gtest.h>

namespace Quarn {
namespace {

const bool usable_before_main = !!Log().IsOpen();

TEST(Log, IsOpenBeforeMainUnderItsName) {
  EXPECT_TRUE(usable_before_main);
  EXPECT_TRUE(Log().IsOpen());
  EXPECT_EQ(Log().GetName().Get(), "mirlow.log");
  EXPECT_TRUE(File::Exists("mirlow.log"));
}

TEST(Log, IsOneFile) { EXPECT_EQ(&Log(), &Log()); }

TEST(Log, StartsWithoutIndent) { EXPECT_TRUE(Log().GetIndent().IsNull()); }

}  // namespace
}  // namespace Quarn
