// Tests of the shell without a terminal: standard input, scripts, commands, and its exit status.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "tests/process/program.h"

namespace Quarn {
namespace {

constexpr char kQuestion[] =
    "\tWarning : This command will erase all symbols.\n"
    "\t          Are you sure ? ([y|Enter]/n) ";

Outcome RunShell(const std::vector<std::string>& arguments, const std::string& input = "") {
  const TemporaryDirectory directory;
  return RunToEnd(arguments, input, {.directory = directory.PathOf("")});
}

// With what it says on standard error, behind its output.
Outcome RunWithMessages(const std::string& arguments) {
  Process process({"/bin/sh", "-c", "exec 2>&1; exec " + Program() + " " + arguments});
  process.EndInput();
  Outcome outcome;
  outcome.output = process.ReadRest();
  outcome.status = process.Wait();
  return outcome;
}

TEST(Pipe, RunsItsLinesToTheirEnd) {
  const struct {
    const char* input;
    const char* output;
    int status;
  } kRows[] = {
      {"1\n2\n",         "\tScalar : 1\n\tScalar : 2\n",                                      0},
      {"1\n2",           "\tScalar : 1\n\tScalar : 2\n",                                      0}, // no newline at the end
      {"1\r\n\r\n\n2\n", "\tScalar : 1\n\tScalar : 2\n",                                      0},
      {"",               "",                                                                  0},
      {"q\nexit\n1\n",   "\tDefining Symbol : q\n\tDefining Symbol : exit\n\tScalar : 1\n",
       0                                                                                       }, // as in a script
      {"x\n2\n",         "\tDefining Symbol : x\n\tScalar : 2\n",                             0},
      {" \n2\n",         "\tError : Empty symbol\n\tScalar : 2\n",                            1},
      {"2;?x;3\n",       "\tScalar : 2\n\tError : Unknown symbol 'x'\n\tScalar : 3\n",        1},
 // refused or without effect, but no error
      {"~x\n",           "\t'x' is undefined\n",                                              0},
      {"a\nx=a\n",       "\tDefining Symbol : a\n\tWarning : 'Symbol=Symbol' does nothing\n", 0},
      {"x:=3\n",         "",                                                                  0},
  };
  for (const auto& row : kRows) {
    const Outcome outcome = RunShell({}, row.input);
    EXPECT_EQ(outcome.output, row.output) << row.input;
    EXPECT_EQ(outcome.status, row.status) << row.input;
  }
}

TEST(Pipe, AnswersAQuestionWithItsNextLine) {
  const Outcome outcome = RunShell({}, "x=1\n~\nn\n?x\n~\ny\n?x\n");
  EXPECT_EQ(outcome.output, std::string("\tDefining Scalar : x = 1\n") + kQuestion +
                                "\tScalar : x = 1\n" + kQuestion +
                                "\tAll symbols erased\n\tError : Unknown symbol 'x'\n");
  EXPECT_EQ(outcome.status, 1);
}

// The question's line goes on with the error.
TEST(Pipe, SeesAnErrorBehindADeclinedQuestion) {
  const Outcome outcome = RunShell({}, "~\nn\n?x\n");
  EXPECT_EQ(outcome.output, std::string(kQuestion) + "\tError : Unknown symbol 'x'\n");
  EXPECT_EQ(outcome.status, 1);
}

TEST(Pipe, HasNoLogFile) {
  const TemporaryDirectory directory;
  RunToEnd({}, "1+1\n", {.directory = directory.PathOf("")});
  EXPECT_TRUE(std::filesystem::is_empty(directory.PathOf("")));
}

TEST(Commands, RunInTheOrderGivenWithOneState) {
  const TemporaryDirectory directory;
  const std::string script = directory.Write("script", "x=x+1\n");
  const Outcome outcome =
      RunShell({"-e", "x=1;x\nx*10", script, "-", script, "--execute=x"}, "x=x*2\n");
  EXPECT_EQ(outcome.output,
            "\tDefining Scalar : x = 1\n\tScalar : 1\n\tScalar : 10\n"
            "\tDefining Scalar : x = 2\n\tDefining Scalar : x = 4\n"
            "\tDefining Scalar : x = 5\n\tScalar : 5\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST(Commands, TellOfAnErrorInTheMiddle) {
  EXPECT_EQ(RunShell({"-e", "1/", "-e", "1"}).status, 1);
  EXPECT_EQ(RunShell({"-e", "4!;3"}).status, 1);
  EXPECT_EQ(RunShell({"-e", "!4", "-e", "3"}).status, 0);
}

TEST(Script, AsksAtStandardInput) {
  const TemporaryDirectory directory;
  const std::string script = directory.Write("script", "x=1\n~\n?x\n");
  EXPECT_EQ(RunShell({script}, "n\n").output,
            std::string("\tDefining Scalar : x = 1\n") + kQuestion + "\tScalar : x = 1\n");
}

TEST(Script, RunsWhenItIsReadOnly) {
  const TemporaryDirectory directory;
  const std::string script = directory.Write("script", "1+1\r\n\n2\n");
  std::filesystem::permissions(script, std::filesystem::perms(0444));
  const Outcome outcome =
      RunToEnd({script}, "", {.directory = directory.PathOf(""), .as_nobody = true});
  EXPECT_EQ(outcome.output, "\tScalar : 2\n\tScalar : 2\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST(Script, IsNamedWhenItCannotBeRead) {
  const struct {
    const char* arguments;
    const char* output;
  } kRows[] = {
      {"no/such",           "mirlow-shell: cannot read 'no/such': No such file or directory\n"},
      {"/",                 "mirlow-shell: cannot read '/': Is a directory\n"                 },
      {"''",                "mirlow-shell: cannot read '': No such file or directory\n"       },
      {"- </",              "mirlow-shell: cannot read standard input: Is a directory\n"      },
      {"-e 1 no/such -e 2",
       "\tScalar : 1\nmirlow-shell: cannot read 'no/such': No such file or directory\n"       },
      {"-e ?x no/such",
       "\tError : Unknown symbol 'x'\n"
       "mirlow-shell: cannot read 'no/such': No such file or directory\n"                     },
  };
  for (const auto& row : kRows) {
    const Outcome outcome = RunWithMessages(row.arguments);
    EXPECT_EQ(outcome.output, row.output) << row.arguments;
    EXPECT_EQ(outcome.status, 2) << row.arguments;
  }
}

TEST(Arguments, ThatMakeNoSenseAreRefused) {
  const Outcome outcome = RunWithMessages("--nonsense -e 1");
  EXPECT_TRUE(outcome.output.ends_with("Try 'mirlow-shell --help'.\n")) << outcome.output;
  EXPECT_EQ(outcome.output.find("Scalar"), std::string::npos);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(RunWithMessages("-e").status, 2);
}

TEST(Arguments, AskForHelpAndVersion) {
  const Outcome help = RunShell({"--help"});
  EXPECT_TRUE(help.output.starts_with("Usage: mirlow-shell ")) << help.output;
  EXPECT_EQ(help.status, 0);
  const Outcome version = RunShell({"--version"});
  EXPECT_TRUE(version.output.starts_with("mirlow-shell ")) << version.output;
  EXPECT_EQ(version.status, 0);
}

TEST(Output, ThatCannotBeWrittenIsAFailure) {
  const Outcome outcome = RunWithMessages("-e 1+1 >/dev/full");
  EXPECT_EQ(outcome.output, "mirlow-shell: cannot write to standard output\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST(CommandsThatNeverReturn, EndByASignal) {
  const TemporaryDirectory directory;
  Process process({Program(), "-e", "1+1;<1>[1/0];3"}, {.directory = directory.PathOf("")});
  EXPECT_EQ(process.Read(12), "\tScalar : 2\n");
  EXPECT_TRUE(process.IsSilentFor(std::chrono::milliseconds(300)));
  process.Interrupt();
  EXPECT_EQ(process.Wait(), -SIGINT);
  const Outcome outcome = RunShell({"-e", "1+1;!0;3"});
  EXPECT_EQ(outcome.output, "\tScalar : 2\n");
  EXPECT_EQ(outcome.status, -SIGSEGV);
}

}  // namespace
}  // namespace Quarn
