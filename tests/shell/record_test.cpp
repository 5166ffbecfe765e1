// Tests of --record and of the startup file.
#include <gtest/gtest.h>

#include "tests/shell/shell.h"
#include "tests/support/terminal.h"

namespace Quarn {
namespace {

TEST(Record, HasWhatWasAccepted) {
  const struct {
    const char* commands;
    const char* recorded;
  } kRows[] = {
      {"x=1; y=x+1",            "x=1\n y=x+1\n"              },
      {"x=1;1+zz;?no;x:No;_=3", "x=1\n"                      }, // errors
      {"a;x=a",                 "a\n"                        }, // a warning
      {"// 1;2+2;x=_",          "2+2\nx=_\n"                 },
      {"r&=2*x;x=4;?r;~x",      "r&=2*x\nx=4\n?r\n~x\n"      },
      {"b=1;a=2;~;c=3",         "b=1\na=2\n~a\n~b\n~_\nc=3\n"}, // nobody is asked in a script
      {"=5;~",                  "=5\n~_\n"                   },
      {"\n",                    ""                           },
  };
  for (const auto& row : kRows) {
    const TemporaryDirectory directory;
    const std::string file = directory.PathOf("session");
    RunShell({"--record", file, "-e", row.commands});
    EXPECT_EQ(ReadBytes(file), row.recorded);
  }
}

TEST(Record, OfADeclinedQuestionForgetsTheLastResult) {
  const TemporaryDirectory directory;
  const std::string file = directory.PathOf("session");
  RunShell({"--record=" + file}, "x=1\n~\nn\ny=_\n");
  EXPECT_EQ(ReadBytes(file), "x=1\n~_\ny=_\n");
}

// What each of these prints tells the values of all symbols.
TEST(Record, IsAScriptThatMakesTheSameSymbols) {
  for (const char* commands :
       {"x=1;v=<x, 2>;r&=x*3;x=rand();1+zz;y=rand(1, 9);z:Reference;s;2+2;t=_", "x=1;~;y=2;x=3",
        "x=5;?x;y=_;r&=y;z=r;~r", "6*7;?no;x=_"}) {
    const TemporaryDirectory directory;
    const std::string file = directory.PathOf("session");
    const std::string queries = "x\nv\nr\ny\nz\ns\nt\n_\nrand()\n";
    const std::string before = RunShell({"--record", file, "-e", commands, "--plain"}).output;
    const std::string live = RunShell({"--plain", "-e", commands, "-e", queries}).output;
    const std::string replayed = RunShell({"--plain", file, "-e", queries}).output;
    EXPECT_EQ(live, replayed) << commands;
    EXPECT_TRUE(live.starts_with(before));
  }
}

TEST(Record, AppendsAndIsWrittenAtOnce) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("session", "x=1\n");
  const Process process({Program(), "--record", file});
  process.Type("y=2\n");
  EXPECT_EQ(process.Read(23), "\tDefining Scalar : y = ");
  EXPECT_EQ(ReadBytes(file), "x=1\ny=2\n");
}

TEST(Record, ThatCannotBeWrittenIsAFailure) {
  const struct {
    const char* file;
    const char* output;
  } kRows[] = {
      {"no/such",   "mirlow-shell: cannot write to 'no/such': No such file or directory\n"},
      {"/dev/full", "\tScalar : 1\nmirlow-shell: cannot write to '/dev/full'\n"           },
  };
  for (const auto& row : kRows) {
    const Outcome outcome = RunWithMessages(std::string("-e 1 --record=") + row.file);
    EXPECT_EQ(outcome.output, row.output);
    EXPECT_EQ(outcome.status, 2);
  }
}

class Init : public testing::TestWithParam<const char*> {
 protected:
  void WriteInit(const std::string& text) {
    std::filesystem::create_directory(directory_.PathOf("mirlow"));
    directory_.Write("mirlow/init", text);
  }

  const TemporaryDirectory directory_;
};

INSTANTIATE_TEST_SUITE_P(Program, Init, testing::Values(MIRLOW_PROGRAM, MIRLOW_PLAIN),
                         [](const auto& program) { return program.index ? "Plain" : "Built"; });

TEST_P(Init, IsRunFirstAndInSilence) {
  WriteInit("pi=3.14159\n1+1\n");
  Terminal terminal({GetParam()}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("mirlow "));  // nothing before
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("2*pi\n");
  EXPECT_TRUE(terminal.Shows("\tScalar : 6.28318\r\n"));
}

TEST_P(Init, ShowsItsErrors) {
  WriteInit("x=1\n1+zz\n");
  const std::string file = directory_.PathOf("mirlow/init");
  Terminal terminal({GetParam()}, directory_.PathOf(""));
  EXPECT_TRUE(terminal.Shows(file + ":2:\tError : Unknown symbol 'zz'\r\n"));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("x\n");
  EXPECT_TRUE(terminal.Shows("\tScalar : 1\r\n"));
}

TEST_P(Init, IsLeftOutOnRequest) {
  WriteInit("x=1\n");
  Terminal terminal({GetParam(), "--no-init"}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("?x\n");
  EXPECT_TRUE(terminal.Shows("\tError : Unknown symbol 'x'\r\n"));
}

// Scripts give the same for everybody.
TEST_P(Init, IsForSessionsAlone) {
  WriteInit("x=1\n");
  Terminal terminal({GetParam(), "-e", "?x"}, directory_.PathOf(""));
  EXPECT_TRUE(terminal.Shows("\tError : Unknown symbol 'x'\r\n"));
}

TEST_P(Init, ThatCannotBeReadIsToldOf) {
  std::filesystem::create_directories(directory_.PathOf("mirlow/init"));
  Terminal terminal({GetParam()}, directory_.PathOf(""));
  EXPECT_TRUE(
      terminal.Shows("cannot read '" + directory_.PathOf("mirlow/init") + "': Is a directory\r\n"));
  EXPECT_TRUE(terminal.Shows("> "));
}

TEST_P(Init, IsRecorded) {
  WriteInit("x=1\n");
  const std::string file = directory_.PathOf("session");
  Terminal terminal({GetParam(), "--record", file}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("y=x\n");
  ASSERT_TRUE(terminal.Shows("y = 1\r\n"));
  EXPECT_EQ(ReadBytes(file), "x=1\ny=x\n");
}

}  // namespace
}  // namespace Quarn
