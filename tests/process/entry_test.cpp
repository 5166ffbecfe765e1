// Tests of what the entry sets up and takes down, seen by a hook that runs after it: see
// hooked_entry.cpp.
#include <gtest/gtest.h>

#include "tests/process/program.h"

namespace Quarn {
namespace {

class Entry : public testing::Test {
 protected:
  Outcome Run(const std::vector<std::string>& arguments, const std::string& input) {
    std::vector<std::string> command = {MIRLOW_HOOKED_ENTRY};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return RunCommand(command, input, {.directory = directory_.PathOf("")});
  }

  const TemporaryDirectory directory_;
  const std::string log_ = directory_.PathOf("mirlow.log");
};

// The hook ends without flushing, so what is there was flushed line by line.
TEST_F(Entry, PrintsToStandardOutputAndTheLogAtOnce) {
  const Outcome outcome = Run({}, "1+1\nq\n");
  EXPECT_EQ(outcome.output,
            "> \tScalar : 2\n> destroyed:\nprocessor time: yes\n"
            "# Warning # : hook : a text\n\nthe last\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(ReadBytes(log_), "# Warning # : hook : a text\n\nthe last\n");
}

// After a script there is no print function and no clock, since the managers went with it.
TEST_F(Entry, DestroysTheTimeManagerAndThenTheOtherAfterAScript) {
  const Outcome outcome = Run({directory_.Write("script", "1+1\n")}, "");
  EXPECT_EQ(outcome.output,
            "\tScalar : 2\ndestroyed: TimeManager UtilsManager\nprocessor time: no\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(ReadBytes(log_), "");
}

}  // namespace
}  // namespace Quarn
