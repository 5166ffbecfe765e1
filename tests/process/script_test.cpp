// Tests of scripts: their lines, the questions they ask, and the files that run nothing.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/process/program.h"

namespace Quarn {
namespace {

constexpr char kQuestion[] =
    "\tWarning : This command will erase all symbols.\n"
    "\t          Are you sure ? ([y|Enter]/n) ";

TEST(Script, RunsItsLines) {
  const struct {
    const char* script;
    const char* output;
  } kRows[] = {
      {"1\n2\n",         "\tScalar : 1\n\tScalar : 2\n"                                   },
      {"1\n2",           "\tScalar : 1\n\tScalar : 2\n"                                   }, // no newline at the end
      {"1\r\n2\r\n",     "\tScalar : 1\n\tScalar : 2\n"                                   },
      {"1\r+\r1\n",      "\tScalar : 2\n"                                                 },
      {"\n\n1\n\r\n2\n", "\tScalar : 1\n\tScalar : 2\n"                                   },
      {"1\n \n2\n",      "\tScalar : 1\n\tError : Empty symbol\n\tScalar : 2\n"           },
      {"1+\n2\n",
       "\tError : No match for operator 'Scalar +' in :\n"
       "\t        \t1 +\n\tScalar : 2\n"                                                  },
      {"q\nexit\n1\n",   "\tDefining Symbol : q\n\tDefining Symbol : exit\n\tScalar : 1\n"},
      {"// nothing\n",   ""                                                               },
      {"",               ""                                                               },
  };
  for (const auto& row : kRows) {
    const Outcome outcome = AsScript(row.script);
    EXPECT_EQ(outcome.output, row.output) << row.script;
    EXPECT_EQ(outcome.status, 0) << row.script;
  }
}

TEST(Script, AsksAtStandardInput) {
  const std::string script = "x=1\n~\n?x\n~\n?x\n";
  const std::string define = "\tDefining Scalar : x = 1\n";
  EXPECT_EQ(AsScript(script, "n\ny\n").output,
            define + kQuestion + "\tScalar : x = 1\n" + kQuestion +
                "\tAll symbols erased\n\tError : Unknown symbol 'x'\n");
  EXPECT_EQ(AsScript("x=1\n~\n?x\n", "").output,
            define + kQuestion + "\tAll symbols erased\n\tError : Unknown symbol 'x'\n");
}

TEST(Script, LeavesItsNextLineAloneWhenItAsks) {
  EXPECT_EQ(AsScript("~\nn\n", "y\n").output,
            std::string(kQuestion) + "\tAll symbols erased\n\tDefining Symbol : n\n");
}

// Kept on purpose: the script is opened for reading and writing, so one that is read-only runs no
// line.
TEST(Script, RunsNothingWhenItIsReadOnly) {
  const TemporaryDirectory directory;
  const std::string script = directory.Write("script", "1+1\n");
  std::filesystem::permissions(script, std::filesystem::perms(0444));
  const Outcome outcome =
      RunToEnd({script}, "", {.directory = directory.PathOf(""), .as_nobody = true});
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST(Script, IsNoneWhenItCannotBeRead) {
  const TemporaryDirectory directory;
  const std::string script = directory.Write("script", "1+1\n");
  std::filesystem::permissions(script, std::filesystem::perms(0));
  const Outcome outcome =
      RunToEnd({script}, "q\n", {.directory = directory.PathOf(""), .as_nobody = true});
  EXPECT_EQ(outcome.output, "> ");
}

TEST(Script, MayBeADirectoryThatRunsNothing) {
  const TemporaryDirectory directory;
  const Outcome outcome = RunToEnd({directory.PathOf("")}, "", {.directory = directory.PathOf("")});
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.status, 0);
}

// The memory of the process itself can be opened, but has nothing at its beginning.
TEST(Script, EndsWhereItCannotBeReadOn) {
  const TemporaryDirectory directory;
  const Outcome outcome = RunToEnd({"/proc/self/mem"}, "q\n", {.directory = directory.PathOf("")});
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.status, 0);
}

}  // namespace
}  // namespace Quarn
