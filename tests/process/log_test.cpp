// Tests of the log file: every run starts it afresh, and an ordinary session writes nothing to it.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/process/program.h"

namespace Quarn {
namespace {

class LogFile : public testing::Test {
 protected:
  Outcome Prompt(const std::string& input, bool as_nobody = false) {
    return RunToEnd({}, input, {.directory = directory_.PathOf(""), .as_nobody = as_nobody});
  }

  const TemporaryDirectory directory_;
  const std::string log_ = directory_.PathOf("mirlow.log");
};

TEST_F(LogFile, IsCreatedEmpty) {
  Prompt("1+1\n1+\n?\nq\n");
  ASSERT_TRUE(std::filesystem::exists(log_));
  EXPECT_EQ(ReadBytes(log_), "");
}

TEST_F(LogFile, IsTruncated) {
  directory_.Write("mirlow.log", "old\n");
  Prompt("q\n");
  EXPECT_EQ(ReadBytes(log_), "");
}

TEST_F(LogFile, IsTruncatedByAScriptToo) {
  directory_.Write("mirlow.log", "old\n");
  RunToEnd({directory_.Write("script", "1\n")}, "", {.directory = directory_.PathOf("")});
  EXPECT_EQ(ReadBytes(log_), "");
}

TEST_F(LogFile, IsNotNeeded) {
  std::filesystem::permissions(directory_.PathOf(""), std::filesystem::perms(0555));
  const Outcome outcome = Prompt("1+1\nq\n", true);
  std::filesystem::permissions(directory_.PathOf(""), std::filesystem::perms(0755));
  EXPECT_EQ(outcome.output, "> \tScalar : 2\n> ");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_FALSE(std::filesystem::exists(log_));
}

}  // namespace
}  // namespace Quarn
