// Tests of the commands that never return: they die of a used-up stack, or go on for ever, and what
// was printed before them has been seen.
#include <gtest/gtest.h>

#include <csignal>

#include "tests/process/program.h"

namespace Quarn {
namespace {

// Kept on purpose: there is no other end. For an x that never comes within 0.1 of 1 (0, 2.5,
// negative numbers, NaN, infinity) it recurses until the stack is used up and the process dies.
TEST(Factorial, DiesByASignalWhenItNeverComesNearOne) {
  for (const char* command : {"!0", "!2.5", "!(-3)", "!(1/0)", "!(0/0)", "!1e9"}) {
    const Outcome outcome = AsScript(std::string("1+1\n2;") + command + ";3\n4\n");
    EXPECT_EQ(outcome.output, "\tScalar : 2\n\tScalar : 2\n") << command;
    EXPECT_LT(outcome.status, 0) << command;
  }
}

TEST(Factorial, DiesAtThePromptToo) {
  const Outcome outcome = AtPrompt("1+1\n!0\n2\nq\n");
  EXPECT_EQ(outcome.output, "> \tScalar : 2\n> ");
  EXPECT_EQ(outcome.status, -SIGSEGV);
}

// Kept on purpose: an infinite index never comes into range, so this never returns.
TEST(InfiniteIndex, GoesOnUntilItIsKilled) {
  const TemporaryDirectory directory;
  Process process({Program(), directory.Write("script", "1+1\n2;<1>[1/0];3\n4\n")},
                  {.directory = directory.PathOf("")});
  const std::string before = "\tScalar : 2\n\tScalar : 2\n";
  EXPECT_EQ(process.Read(before.size()), before);
  EXPECT_TRUE(process.IsSilentFor(std::chrono::seconds(2)));
  process.Kill();
  EXPECT_EQ(process.ReadRest(), "");
  EXPECT_EQ(process.Wait(), -SIGKILL);
}

}  // namespace
}  // namespace Quarn
