// Tests of the colours: what has which, and when there are none.
#include "tools/colours.h"

#include <gtest/gtest.h>

#include "tests/shell/shell.h"
#include "tests/support/terminal.h"

namespace Quarn {
namespace {

TEST(AddColours, PaintsErrorsAndTypes) {
  const struct {
    const char* output;
    const char* coloured;
  } kRows[] = {
      {"\tScalar : 2\n",             "\033[2m\tScalar :\033[0m 2\n"            },
      {"\tDefining Vector : <1>\n",  "\033[2m\tDefining Vector :\033[0m <1>\n" },
      {"\tReference : a : b\n",      "\033[2m\tReference :\033[0m a : b\n"     },
      {"\tError : One\n\t\t two\n",  "\033[31m\tError : One\n\t\t two\033[0m\n"},
      {"\tWarning : 'x=a'\n",        "\033[33m\tWarning : 'x=a'\033[0m\n"      },
      {"\tScalar 'x' erased\n",      "\tScalar 'x' erased\n"                   },
      {"\tAll symbols erased\n",     "\tAll symbols erased\n"                  },
      {"",                           ""                                        },
      {"\n\tHelp : a\n\tHelp : b\n", "\n\tHelp : a\n\tHelp : b\n"              },
  };
  for (const auto& row : kRows) EXPECT_EQ(AddColours(row.output), row.coloured);
}

TEST(Colours, AreUsedOnRequestAlone) {
  EXPECT_EQ(RunShell({"-e", "1"}).output, "\tScalar : 1\n");
  EXPECT_EQ(RunShell({"--color=auto", "-e", "1"}).output, "\tScalar : 1\n");
  EXPECT_EQ(RunShell({"--color=never", "-e", "1"}).output, "\tScalar : 1\n");
  EXPECT_EQ(RunShell({"--color=always", "-e", "1"}).output, "\033[2m\tScalar :\033[0m 1\n");
  EXPECT_EQ(RunShell({"--color", "-e", "?x"}).output,
            "\033[31m\tError : Unknown symbol 'x'\033[0m\n");
  EXPECT_EQ(RunShell({"--color", "--plain", "-e", "1"}).output, "1\n");
  const Outcome outcome = RunWithMessages("--color=often -e 1");
  EXPECT_EQ(outcome.output,
            "mirlow-shell: 'often' is none of auto, always, never\nTry 'mirlow-shell --help'.\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST(Colours, AreUsedAtATerminalThatHasThem) {
  const struct {
    const char* variable;
    const char* value;
    bool has_colours;
  } kRows[] = {
      {"NO_COLOR", "",     true },
      {"NO_COLOR", "1",    false},
      {"TERM",     "dumb", false},
  };
  const TemporaryDirectory directory;
  for (const auto& row : kRows) {
    Terminal terminal(
        {
            MIRLOW_PROGRAM, "-e", "1"
    },
        directory.PathOf(""), {{"NO_COLOR", ""}, {row.variable, row.value}});
    EXPECT_TRUE(terminal.Shows(row.has_colours ? "\033[2m\tScalar :\033[0m 1" : "\tScalar : 1"));
    terminal.Wait();
  }
}

TEST(Colours, AreOfThePromptAndOfMatchingBrackets) {
  if (!MIRLOW_EDITS) GTEST_SKIP() << "built without line editing";
  const TemporaryDirectory directory;
  Terminal terminal(
      {
          MIRLOW_PROGRAM
  },
      directory.PathOf(""), {{"NO_COLOR", ""}});
  ASSERT_TRUE(terminal.Shows("\033[1;34m>\033[0m "));
  terminal.Type("2*(1+2)");
  EXPECT_TRUE(terminal.Shows("\033[1;36m(1+2)\033[0m"));
  terminal.Type("+1");
  EXPECT_TRUE(terminal.Shows("(1+2)+"));  // shown again without
  terminal.Type("\n");
  EXPECT_TRUE(terminal.Shows("\033[2m\tScalar :\033[0m 7\r\n"));
}

}  // namespace
}  // namespace Quarn
