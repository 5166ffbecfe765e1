// Tests of hostile surroundings: whatever is wrong with the log, the standard files and the limits,
// results are the same where output works, and nothing more is said.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/process/program.h"
#include "tests/support/sanitizers.h"

namespace Quarn {
namespace {

class Surroundings : public testing::Test {
 protected:
  // The shell's command starts the program as "$0"; its script, which prints kResult, is "script".
  Outcome InShell(const std::string& command, const std::string& input = "") {
    return RunCommand({"/bin/sh", "-c", command, Program()}, input,
                      {.directory = directory_.PathOf("")});
  }
  void ExpectResult(const std::string& command) {
    const Outcome outcome = InShell(command);
    EXPECT_EQ(outcome.output, kResult) << command;
    EXPECT_EQ(outcome.status, 0) << command;
  }

  static constexpr char kResult[] = "\tScalar : 2\n";
  const TemporaryDirectory directory_;
  const std::string script_ = directory_.Write("script", "1+1\n");
  const std::string log_ = directory_.PathOf("mirlow.log");
};

TEST_F(Surroundings, ADirectoryInThePlaceOfTheLogIsLeftAlone) {
  std::filesystem::create_directory(log_);
  ExpectResult("exec \"$0\" script 2>&1");
  EXPECT_TRUE(std::filesystem::is_directory(log_));
}

TEST_F(Surroundings, ALogThatLeadsNowhereIsNotNeeded) {
  std::filesystem::create_symlink("missing/directory/log", log_);
  ExpectResult("exec \"$0\" script 2>&1");
}

TEST_F(Surroundings, ALogOnAFullDeviceIsNotNeeded) {
  std::filesystem::create_symlink("/dev/full", log_);
  ExpectResult("exec \"$0\" script 2>&1");
}

// In a small file system of its own, filled up before.
TEST_F(Surroundings, AFullFileSystemIsNoMatter) {
  if (InShell("unshare -rm mount -t tmpfs none . 2>&1").status != 0) {
    GTEST_SKIP() << "no file system may be mounted here";
  }
  ExpectResult(
      "exec unshare -rm sh -c 'mount -t tmpfs -o size=16k none . && cd \"$PWD\" && "
      "echo 1+1 >script && ! head -c 1000000 /dev/zero >rest 2>/dev/null && "
      "exec \"$0\" script 2>&1' \"$0\"");
}

TEST_F(Surroundings, ALogThatMayNotGrowIsNotNeeded) {
  ExpectResult("ulimit -f 0; exec \"$0\" script 2>&1");
}

TEST_F(Surroundings, ClosedInputIsTheEndOfInput) {
  ExpectResult("exec \"$0\" script <&- 2>&1");
  EXPECT_EQ(InShell("\"$0\" <&- | head -c 7").output, "> > > >");
}

// A file that is opened takes the lowest free number. With standard output closed that was the
// log's, which then got the results; with standard input closed too, the script's.
TEST_F(Surroundings, ClosedOutputEndsUpInNoFile) {
  for (const char* command : {"exec \"$0\" script >&-", "exec \"$0\" script <&- >&-",
                              "exec \"$0\" script <&- >&- 2>&-", "exec \"$0\" script 2>&- >&-"}) {
    const Outcome outcome = InShell(command);
    EXPECT_EQ(outcome.output, "") << command;
    EXPECT_EQ(outcome.status, 0) << command;
    EXPECT_EQ(ReadBytes(log_), "") << command;
    EXPECT_EQ(ReadBytes(script_), "1+1\n") << command;
  }
}

TEST_F(Surroundings, AFullDeviceForOutputStopsNothing) {
  EXPECT_EQ(InShell("\"$0\" script 2>&1 >/dev/full; echo $?").output, "0\n");
  EXPECT_EQ(InShell("\"$0\" 2>&1 >/dev/full; echo $?", "1+1\nq\n").output, "0\n");
}

TEST_F(Surroundings, APipeThatNobodyReadsStopsIt) {
  directory_.Write("script", "v=<1, 2, 3>\n" + std::string(100'000, 'v').replace(1, 1, "\n"));
  EXPECT_EQ(InShell("yes v | \"$0\" 2>&1 | head -c 2; echo").output, "> \n");
  EXPECT_EQ(InShell("trap '' PIPE; \"$0\" script 2>&1 | :; echo done").output, "done\n");
}

TEST_F(Surroundings, FourOpenFilesAreEnoughForThePrompt) {
  if (kSanitized) GTEST_SKIP() << "sanitizers open files of their own";
  // The runner hands its log on as the fourth; it is closed first, since a shell that may open no
  // more cannot redirect either.
  EXPECT_EQ(InShell("exec 3>&-; ulimit -n 4; exec \"$0\"", "1+1\nq\n").output,
            "> \tScalar : 2\n> ");
}

// The log is the fourth. How far the stack reaches cannot be looked up then, and five hundred
// levels are granted.
TEST_F(Surroundings, FourOpenFilesAreEnoughForDeepNesting) {
  if (kSanitized) GTEST_SKIP() << "sanitizers open files of their own";
  const auto nested = [](int times) {
    std::string line = "1";
    for (int i = 0; i < times; ++i) line = "min(1, " + line + ")";
    return line + "\n";
  };
  EXPECT_EQ(
      InShell("exec 3>&-; ulimit -n 4; exec \"$0\"", nested(400) + nested(600) + "q\n").output,
      "> \tScalar : 1\n> \tScalar : 1\n> ");
}

}  // namespace
}  // namespace Quarn
