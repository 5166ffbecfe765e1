// Tests of the table of symbols: of a script that is watched, and in a session.
#include <gtest/gtest.h>

#include "tests/shell/shell.h"
#include "tests/support/screen.h"
#include "tests/support/terminal.h"

namespace Quarn {
namespace {

class Watching : public testing::Test {
 protected:
  void SetUp() override {
    if (!Screen::IsPossible()) GTEST_SKIP() << "no tmux";
  }

  // The screen stays when the program has left.
  std::string Command() const {
    return "sh -c 'cd " + directory_.PathOf("") + "; " + MIRLOW_PROGRAM +
           " --watch a.txt; echo left with $?; read x'";
  }

  const TemporaryDirectory directory_;
};

TEST_F(Watching, ShowsTheSymbolsAnewWheneverTheScriptIsSaved) {
  directory_.Write("a.txt", "rate=6\nr&=rate/12\n1+1\n");
  const Screen screen(Command(), directory_.PathOf(""), {.columns = 80});
  ASSERT_TRUE(screen.Shows("a.txt - q to leave\n  r     Reference  0.5\n  rate  Scalar     6\n\n"))
      << screen.GetText();
  directory_.Write("a.txt", "rate=12\nr&=rate/12\nx=2\n1+\n");
  ASSERT_TRUE(
      screen.Shows("a.txt - q to leave\n"
                   "* r     Reference  1\n* rate  Scalar     12\n* x     Scalar     2\n"
                   "a.txt:4: Error : No match for operator 'Scalar +' in : 1 +\n\n"))
      << screen.GetText();
  // As editors do that write another file and rename it.
  directory_.Write("b.txt", "rate=12\n");
  std::filesystem::rename(directory_.PathOf("b.txt"), directory_.PathOf("a.txt"));
  ASSERT_TRUE(screen.Shows("a.txt - q to leave\n  rate  Scalar  12\n\n")) << screen.GetText();
  std::filesystem::remove(directory_.PathOf("a.txt"));
  ASSERT_TRUE(screen.Shows("no symbols\nmirlow-shell: cannot read 'a.txt'")) << screen.GetText();
  screen.Type("q");
  EXPECT_TRUE(screen.Shows("left with 0\n")) << screen.GetText();
  EXPECT_EQ(screen.GetText().find("q to leave"), std::string::npos);
}

TEST_F(Watching, FitsTheScreenAndFollowsItsSize) {
  directory_.Write("a.txt", "aLongName=<1, 2, 3, 4, 5>\nb=1\nc=2\nd=3\n");
  const Screen screen(Command(), directory_.PathOf(""), {.columns = 20, .rows = 4});
  EXPECT_TRUE(
      screen.Shows("a.txt - q to leave\n  aLongName  Vect~\n  b          Scal~\n"
                   "  and 2 more lines\n"))
      << screen.GetText();
  screen.Resize({.columns = 80, .rows = 24});
  EXPECT_TRUE(
      screen.Shows("a.txt - q to leave\n"
                   "  aLongName  Vector  <1, 2, 3, 4, 5>\n"
                   "  b          Scalar  1\n  c          Scalar  2\n"
                   "  d          Scalar  3\n"))
      << screen.GetText();
}

TEST_F(Watching, DrawsTheSameNumbersInEachRun) {
  directory_.Write("a.txt", "x=rand()\n");
  const Screen screen(Command(), directory_.PathOf(""), {.columns = 80});
  ASSERT_TRUE(screen.Shows("  x  Scalar  0."));
  directory_.Write("a.txt", "x=rand()\ny=1\n");
  EXPECT_TRUE(screen.Shows("\n  x  Scalar  0.")) << screen.GetText();
  EXPECT_TRUE(screen.Shows("\n* y  Scalar  1\n")) << screen.GetText();
}

TEST_F(Watching, GivesTheScreenBackWhenItIsEnded) {
  directory_.Write("a.txt", "x=1\n");
  const Screen screen(Command(), directory_.PathOf(""), {.columns = 80});
  ASSERT_TRUE(screen.Shows("  x  Scalar  1\n"));
  screen.Type("\x03");
  EXPECT_FALSE(screen.GetText().empty());
  const Screen other(Command(), directory_.PathOf(""), {.columns = 80});
  ASSERT_TRUE(other.Shows("  x  Scalar  1\n"));
  other.Type("\x04");
  EXPECT_TRUE(other.Shows("left with 0\n")) << other.GetText();
}

TEST(Watch, NeedsATerminal) {
  const Outcome outcome = RunWithMessages("--watch a.txt");
  EXPECT_EQ(outcome.output, "mirlow-shell: --watch needs a terminal\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST(AltS, ShowsTheSymbolsAndKeepsTheLine) {
  if (!MIRLOW_EDITS) GTEST_SKIP() << "built without line editing";
  if (!Screen::IsPossible()) GTEST_SKIP() << "no tmux";
  const TemporaryDirectory directory;
  const Screen screen(MIRLOW_PROGRAM, directory.PathOf(""), {.columns = 40});
  ASSERT_TRUE(screen.Shows("\n>"));
  screen.Type("x=3;v=<1, 2>\r");
  ASSERT_TRUE(screen.Shows("v = <1, 2>\n>"));
  screen.Type("x+\x1bs");
  EXPECT_TRUE(screen.Shows("> x+\n* v  Vector  <1, 2>\n* x  Scalar  3\n> x+\n"))
      << screen.GetText();
  screen.Type("1\rx=4\r\x1bs");
  EXPECT_TRUE(screen.Shows("        Scalar : 4\n")) << screen.GetText();
  EXPECT_TRUE(screen.Shows(">\n  v  Vector  <1, 2>\n* x  Scalar  4\n>\n")) << screen.GetText();
}

TEST(AltS, IsInTheHelpOfASessionAlone) {
  if (!MIRLOW_EDITS) GTEST_SKIP() << "built without line editing";
  const TemporaryDirectory directory;
  Terminal terminal({MIRLOW_PROGRAM}, directory.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("?\n");
  EXPECT_TRUE(terminal.Shows("\tAlt-S : shows all symbols"));
  EXPECT_EQ(RunShell({"-e", "?"}).output.find("Alt-S"), std::string::npos);
}

}  // namespace
}  // namespace Quarn
