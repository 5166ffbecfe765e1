// Tests of a State that is made and prints before main: see before_main.cpp.
#include <gtest/gtest.h>

#include "tests/support/process.h"

namespace Quarn {
namespace {

TEST(BeforeMain, AStateFindsTheStandardStreams) {
  Process host({MIRLOW_BEFORE_MAIN});
  host.EndInput();
  EXPECT_EQ(host.ReadRest(), "\tDefining Scalar : x = 3\n\tScalar : x = 3\n\tScalar : 4\n");
  EXPECT_EQ(host.Wait(), 0);
}

}  // namespace
}  // namespace Quarn
