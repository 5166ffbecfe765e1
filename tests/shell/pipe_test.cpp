// Tests of the shell without a terminal: standard input, scripts, commands, and its exit status.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "interpreter/version.h"
#include "tests/shell/shell.h"

namespace Quarn {
namespace {

constexpr char kQuestion[] =
    "\tWarning : This command will erase all symbols.\n"
    "\t          Are you sure ? ([y|Enter]/n) ";

constexpr char kHelp[] =
    R"(Usage: mirlow-shell [OPTION]... [-e COMMANDS]... [FILE]...
Calculates with numbers, vectors and references.

Without commands and files it talks with you at a terminal, or runs what comes
through a pipe. Otherwise it runs commands and scripts in the order given.

  FILE               run the lines of a script; - is standard input
  -e, --execute=COMMANDS
                     run these commands, separated by ";" or newlines
      --plain        print the values of expressions and queries alone
      --json         print an object of JSON for each command
      --stop-on-error
                     run nothing after a command that reported an error
      --record=FILE  append each command that was accepted to a file
      --watch=FILE   show the symbols of a script, anew whenever it is saved
      --no-init      do not run the startup file, mirlow/init in ~/.config
      --limit=LIST   change limits: steps, memory, output, nesting, finite;
                     without a list, show those of a session
      --color=WHEN   use colours: auto (at a terminal), always or never
  -h, --help         show this text
  -V, --version      show the version

Exit status: 0; 1 when a command reported an error; 2 when the arguments make no
sense, a file cannot be read, or output cannot be written.
)";

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

// As another process does that writes on only after each answer.
TEST(Pipe, AnswersEachLineBeforeTheNextOne) {
  const Process process({Program()});
  for (int i = 1; i <= 3; ++i) {
    process.Type(std::to_string(i) + "\n");
    EXPECT_EQ(process.Read(12), "\tScalar : " + std::to_string(i) + "\n");
  }
}

TEST(Pipe, AnswersBeforeItWaitsForAScript) {
  const TemporaryDirectory directory;
  const std::string fifo = directory.PathOf("fifo");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  const Process process({Program(), "-e", "1", fifo});
  std::ofstream script(fifo);
  script << "2\n" << std::flush;
  EXPECT_EQ(process.Read(24), "\tScalar : 1\n\tScalar : 2\n");
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
    const char* before;
    const char* reason;
  } kRows[] = {
      {"no/such",                "",                                    "'no/such': No such file or directory"},
      {"/",                      "",                                    "'/': Is a directory"                 },
      {"''",                     "",                                    "'': No such file or directory"       },
      {"- </",                   "",                                    "standard input: Is a directory"      },
      {"<&-",                    "",                                    "standard input: Bad file descriptor" },
      {"-e 1 no/such -e 2",      "\tScalar : 1\n",                      "'no/such': No such file or directory"},
      {"-e 1 - -e 2 </",         "\tScalar : 1\n",                      "standard input: Is a directory"      },
      {"-e ?x /",                "-e:1:\tError : Unknown symbol 'x'\n", "'/': Is a directory"                 },
      {"--plain -e 1 / -e 2",    "1\n",                                 "'/': Is a directory"                 },
      {"--json -e x:=1 / -e 2",  "{\"kind\":\"nothing\"}\n",            "'/': Is a directory"                 },
      {"--stop-on-error / -e 2", "",                                    "'/': Is a directory"                 },
  };
  for (const auto& row : kRows) {
    const Outcome outcome = RunWithMessages(row.arguments);
    EXPECT_EQ(outcome.output,
              std::string(row.before) + "mirlow-shell: cannot read " + row.reason + "\n")
        << row.arguments;
    EXPECT_EQ(outcome.status, 2) << row.arguments;
  }
}

// Nothing after it is run, and what was computed before is written out, also when an error was.
TEST(Script, ThatCannotBeReadEndsTheRun) {
  const Outcome outcome = RunShell({"-e", "1;?x", "no/such", "-e", "2"});
  EXPECT_EQ(outcome.output, "\tScalar : 1\n\tError : Unknown symbol 'x'\n");
  EXPECT_EQ(outcome.status, 2);
  const Outcome full = RunWithMessages("-e 1 no/such >/dev/full");
  EXPECT_EQ(full.output,
            "mirlow-shell: cannot read 'no/such': No such file or directory\n"
            "mirlow-shell: cannot write to standard output\n");
  EXPECT_EQ(full.status, 2);
}

// What ran before it is in the record, what stands after it is not.
TEST(Script, ThatCannotBeReadEndsTheRecord) {
  const TemporaryDirectory directory;
  const std::string record = directory.PathOf("record");
  EXPECT_EQ(RunShell({"--record=" + record, "-e", "x=1", "no/such", "-e", "y=2"}).status, 2);
  EXPECT_EQ(ReadBytes(record), "x=1\n");
}

TEST(Script, ThatLooksLikeCommandsIsToldHowToBeOne) {
  const struct {
    const char* argument;
    bool is_told;
  } kRows[] = {
      {"1+2",     true },
      {"12",      true },
      {"'x=3'",   true },
      {"'?x'",    true },
      {"'<1>'",   true },
      {"loan",    false},
      {"no/such", false},
      {"''",      false},
      {"/",       false}, // is there
  };
  for (const auto& row : kRows) {
    const std::string output = RunWithMessages(row.argument).output;
    EXPECT_EQ(output.find("\nTo calculate it, type: mirlow-shell -e '") != std::string::npos,
              row.is_told)
        << output;
  }
}

TEST(Arguments, ThatMakeNoSenseAreRefused) {
  const Outcome outcome = RunWithMessages("--nonsense -e 1");
  EXPECT_TRUE(outcome.output.ends_with("Try 'mirlow-shell --help'.\n")) << outcome.output;
  EXPECT_EQ(outcome.output.find("Scalar"), std::string::npos);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(RunWithMessages("-e").status, 2);
}

TEST(Arguments, AskForHelp) {
  for (const char* option : {"--help", "-h"}) {
    const Outcome help = RunShell({option});
    EXPECT_EQ(help.output, kHelp) << option;
    EXPECT_EQ(help.status, 0) << option;
  }
}

TEST(Arguments, AskForTheVersion) {
  for (const char* option : {"--version", "-V"}) {
    const Outcome version = RunShell({option});
    EXPECT_EQ(version.output, std::string("mirlow-shell ") + kVersion + "\n") << option;
    EXPECT_EQ(version.status, 0) << option;
  }
}

TEST(Arguments, HaveAHelpOf80Columns) {
  std::istringstream lines(kHelp);
  for (std::string line; std::getline(lines, line);) EXPECT_LT(line.size(), 81U) << line;
}

TEST(Output, ThatCannotBeWrittenIsAFailure) {
  for (const char* arguments : {"-e 1+1", "-e ?x 2>/dev/null", "--help", "--version"}) {
    const Outcome outcome = RunWithMessages(std::string(arguments) + " >/dev/full");
    EXPECT_TRUE(outcome.output.ends_with("mirlow-shell: cannot write to standard output\n") ||
                outcome.output.empty())
        << outcome.output;
    EXPECT_EQ(outcome.status, 2) << arguments;
  }
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
