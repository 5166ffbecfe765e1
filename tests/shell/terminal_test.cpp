// Tests of the shell at a terminal, with what is typed and what is seen there. What concerns no
// editing is tested of both programs, with line editing and without.
#include "tests/support/terminal.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "interpreter/version.h"
#include "tests/support/temporary_directory.h"

namespace Quarn {
namespace {

class AnyShell : public testing::TestWithParam<const char*> {
 protected:
  const TemporaryDirectory directory_;
  Terminal terminal_{{GetParam()}, directory_.PathOf("")};

  // Types a line at the prompt and says whether the text is shown then.
  bool Answers(const std::string& line, std::string_view text) {
    if (!terminal_.Shows("> ")) return false;
    terminal_.Type(line + "\n");
    return terminal_.Shows(text);
  }
};

INSTANTIATE_TEST_SUITE_P(Program, AnyShell, testing::Values(MIRLOW_PROGRAM, MIRLOW_PLAIN),
                         [](const auto& program) { return program.index ? "Plain" : "Built"; });

TEST_P(AnyShell, AnswersAtThePrompt) {
  EXPECT_TRUE(Answers("1+2", "\tScalar : 3\r\n"));
  EXPECT_TRUE(Answers("x=<1, 2>", "\tDefining Vector : x = <1, 2>\r\n"));
  EXPECT_TRUE(Answers("", "\n"));
  EXPECT_TRUE(Answers("x*2", "\tVector : <2, 4>\r\n"));
  ASSERT_TRUE(terminal_.Shows("> "));
  terminal_.Type(Terminal::kControlD);
  EXPECT_EQ(terminal_.Wait(), 0);
}

TEST_P(AnyShell, LeavesByControlDAndTellsOfErrors) {
  EXPECT_TRUE(Answers("?x", "\tError : Unknown symbol 'x'\r\n"));
  ASSERT_TRUE(terminal_.Shows("> "));
  terminal_.Type(Terminal::kControlD);
  EXPECT_EQ(terminal_.Wait(), 1);
}

TEST_P(AnyShell, SaysHowToGetHelp) {
  EXPECT_TRUE(
      terminal_.Shows(std::string("mirlow ") + kVersion + ": ? for help, Ctrl-D to leave\r\n"));
}

// They become symbols for who insists.
TEST_P(AnyShell, HintsAtWhatWasMeant) {
  const struct {
    const char* line;
    const char* output;
  } kRows[] = {
      {"help",   "For help, type ?. To define a symbol 'help', type it once more.\r\n"},
      {"help",   "\tDefining Symbol : help\r\n"                                       },
      {"help",   "\tSymbol : help\r\n"                                                },
      {"exit ",  "To leave, type q, or press Ctrl-D. To define a symbol 'exit'"       },
      {"1",      "\tScalar : 1\r\n"                                                   },
      {"exit ",  "To leave, type q, or press Ctrl-D. To define a symbol 'exit'"       },
      {"exit ",  "\tDefining Symbol : exit\r\n"                                       },
      {"quit",   "To leave, type q, or press Ctrl-D. To define a symbol 'quit'"       },
      {"quit=1", "\tDefining Scalar : quit = 1\r\n"                                   },
      {"quit",   "\tScalar : 1\r\n"                                                   },
  };
  for (const auto& row : kRows) EXPECT_TRUE(Answers(row.line, row.output)) << row.line;
}

TEST_P(AnyShell, LeavesByTheQuitWords) {
  for (const char* word : {"q\n", "exit\n"}) {
    Terminal terminal({GetParam()}, directory_.PathOf(""));
    ASSERT_TRUE(terminal.Shows("> "));
    terminal.Type(word);
    EXPECT_EQ(terminal.Wait(), 0) << word;
  }
}

TEST_P(AnyShell, AbandonsALineByControlC) {
  ASSERT_TRUE(terminal_.Shows("> "));
  terminal_.Type("x=1");
  ASSERT_TRUE(terminal_.Shows("x=1"));
  terminal_.Type(Terminal::kControlC);
  EXPECT_TRUE(Answers("?x", "\tError : Unknown symbol 'x'\r\n"));
  EXPECT_TRUE(Answers("2+2", "\tScalar : 4\r\n"));
  ASSERT_TRUE(terminal_.Shows("> "));
  terminal_.Type("q\n");
  EXPECT_EQ(terminal_.Wait(), 1);
}

// Each of these references takes twice as long as the one before, since it draws anew.
std::string DefineSlowReferences() {
  std::string line = "r1&=rand()";
  for (int i = 2; i <= 60; ++i) {
    const std::string before = "r" + std::to_string(i - 1);
    line += ";r" + std::to_string(i) + "&=" + before + "+" + before;
  }
  return line;
}

TEST_P(AnyShell, EndsACommandAndNotTheSessionByControlC) {
  EXPECT_TRUE(Answers("x=1", "x = 1\r\n"));
  EXPECT_TRUE(Answers(DefineSlowReferences() + ";x=2", "\tDefining Reference : r1 = "));
  ASSERT_TRUE(terminal_.Shows("\tDefining Reference : r12 = "));
  terminal_.Type(Terminal::kControlC);
  ASSERT_TRUE(terminal_.Shows("\tError : Evaluation was interrupted\r\n"));
  EXPECT_TRUE(Answers("?x", "\tScalar : x = 1\r\n"));  // the rest of the line was not run
  ASSERT_TRUE(terminal_.Shows("> "));
  terminal_.Type("q\n");
  EXPECT_EQ(terminal_.Wait(), 1);
}

// For those who ask for commands that cannot be interrupted.
TEST_P(AnyShell, EndsByControlCAgainAndAgain) {
  Terminal terminal({GetParam(), "--no-init", "--limit=finite=no"}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("1+1;<1>[1/0]\n");
  ASSERT_TRUE(terminal.Shows("\tScalar : 2\r\n"));
  EXPECT_EQ(terminal.Interrupt(), -SIGINT);
}

TEST_P(AnyShell, SurvivesWhatWouldNeverEnd) {
  EXPECT_TRUE(Answers("x=7", "x = 7\r\n"));
  EXPECT_TRUE(Answers("!2.5", "\tError : The factorial of 2.5 never ends\r\n"));
  EXPECT_TRUE(Answers("<1>[1/0]", "\tError : The index is infinite\r\n"));
  EXPECT_TRUE(Answers("?x", "\tScalar : x = 7\r\n"));
}

TEST_P(AnyShell, AsksBeforeItErasesAll) {
  EXPECT_TRUE(Answers("x=1", "x = 1\r\n"));
  EXPECT_TRUE(Answers("~", "Are you sure ? ([y|Enter]/n) "));
  terminal_.Type("n\n");
  EXPECT_TRUE(Answers("?x", "\tScalar : x = 1\r\n"));
  EXPECT_TRUE(Answers("~", "Are you sure ? ([y|Enter]/n) "));
  terminal_.Type("y\n");
  EXPECT_TRUE(terminal_.Shows("\tAll symbols erased\r\n"));
  EXPECT_TRUE(Answers("?x", "\tError : Unknown symbol 'x'\r\n"));
}

// Neither ends the session, nor answers the question after this one.
TEST_P(AnyShell, TakesControlCAndControlDAtAQuestionForNo) {
  EXPECT_TRUE(Answers("x=1", "x = 1\r\n"));
  for (const std::string_view key : {Terminal::kControlC, Terminal::kControlD}) {
    EXPECT_TRUE(Answers("~", "Are you sure ? ([y|Enter]/n) "));
    terminal_.Type(key);
    EXPECT_TRUE(Answers("?x", "\tScalar : x = 1\r\n"));
  }
  EXPECT_TRUE(Answers("~", "Are you sure ? ([y|Enter]/n) "));
  terminal_.Type("\n");
  EXPECT_TRUE(terminal_.Shows("\tAll symbols erased\r\n"));
}

// What was typed of an answer does not become a line.
TEST_P(AnyShell, ForgetsAnAnswerThatControlCEnds) {
  EXPECT_TRUE(Answers("x=1", "x = 1\r\n"));
  EXPECT_TRUE(Answers("~", "Are you sure ? ([y|Enter]/n) "));
  terminal_.Type("y");
  ASSERT_TRUE(terminal_.Shows("y"));
  terminal_.Type(Terminal::kControlC);
  EXPECT_TRUE(Answers("?x", "\tScalar : x = 1\r\n"));
}

// A script that is run at a terminal asks there.
TEST_P(AnyShell, TakesControlDAtTheQuestionOfAScriptForNo) {
  Terminal terminal({GetParam(), "-e", "x=1;~;?x"}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("Are you sure ? ([y|Enter]/n) "));
  terminal.Type(Terminal::kControlD);
  EXPECT_TRUE(terminal.Shows("\tScalar : x = 1\r\n"));
}

class EditingShell : public testing::Test {
 protected:
  void SetUp() override {
    if (!MIRLOW_EDITS) GTEST_SKIP() << "built without line editing";
  }

  const TemporaryDirectory directory_;
};

TEST_F(EditingShell, CompletesWordsByTab) {
  Terminal terminal({MIRLOW_PROGRAM}, directory_.PathOf(""));
  const struct {
    const char* keys;
    const char* output;
  } kRows[] = {
      {"velocity=<7, 8>\n", "\tDefining Vector : velocity = <7, 8>\r\n"},
      {"velo\t[1]\n",       "\tScalar : 8\r\n"                         }, // a symbol
      {"round_u\t1.5)\n",   "\tScalar : 2\r\n"                         }, // a function
      {"x:Vec\t\n",         "\tDefining Vector : x = <>\r\n"           }, // a type
      {"rou\t_d\t2.5)\n",   "\tScalar : 2\r\n"                         }, // what is common, then more
      {"1+nothing\t\x15"
       "3\n",        "\tScalar : 3\r\n"                         }, // nothing to complete
      {"?vel\t\n",          "\tVector : velocity = <7, 8>\r\n"         },
  };
  for (const auto& row : kRows) {
    ASSERT_TRUE(terminal.Shows("> ")) << row.keys;
    terminal.Type(row.keys);
    EXPECT_TRUE(terminal.Shows(row.output)) << row.keys << terminal.GetRest();
  }
}

TEST_F(EditingShell, ListsWhatCouldBeMeant) {
  Terminal terminal({MIRLOW_PROGRAM}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("round\t");
  for (const char* name : {"round(", "round_down(", "round_up("}) EXPECT_TRUE(terminal.Shows(name));
  terminal.Type("(2.5)\n");
  EXPECT_TRUE(terminal.Shows("\tScalar : 3\r\n"));
}

TEST_F(EditingShell, ShowsHowToCallAFunction) {
  Terminal terminal({MIRLOW_PROGRAM}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("ran\t\t");
  EXPECT_TRUE(terminal.Shows("rand()"));
  EXPECT_TRUE(terminal.Shows("rand(Scalar, Scalar)"));
  EXPECT_TRUE(terminal.Shows("> rand("));
  terminal.Type("5, 5)\n");
  EXPECT_TRUE(terminal.Shows("\tScalar : 5\r\n"));
}

TEST_F(EditingShell, RemembersLinesFromRunToRun) {
  {
    Terminal terminal({MIRLOW_PROGRAM}, directory_.PathOf(""));
    for (const char* line : {"20+1\n", "20+2\n", "20+2\n", " \n", "20+3\n"}) {
      ASSERT_TRUE(terminal.Shows("> "));
      terminal.Type(line);
    }
    EXPECT_TRUE(terminal.Shows("\tScalar : 23\r\n"));
    ASSERT_TRUE(terminal.Shows("> "));
    terminal.Type(Terminal::kControlD);
    terminal.Wait();
  }
  Terminal terminal({MIRLOW_PROGRAM}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  for (int i = 0; i < 3; ++i) terminal.Type(Terminal::kUp);
  terminal.Type("0\n");
  EXPECT_TRUE(terminal.Shows("\tScalar : 30\r\n")) << terminal.GetRest();
}

TEST_F(EditingShell, RemembersForTheUserAlone) {
  Terminal terminal({MIRLOW_PROGRAM}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("20+1\n");
  ASSERT_TRUE(terminal.Shows("\tScalar : 21\r\n"));
  EXPECT_EQ(ReadBytes(directory_.PathOf("mirlow/history")), "20+1\n");
  using std::filesystem::perms;
  EXPECT_EQ(std::filesystem::status(directory_.PathOf("mirlow/history")).permissions(),
            perms::owner_read | perms::owner_write);
  EXPECT_EQ(std::filesystem::status(directory_.PathOf("mirlow")).permissions(), perms::owner_all);
}

// It is remembered before it runs.
TEST_F(EditingShell, RemembersACommandThatNeverReturned) {
  Terminal terminal({MIRLOW_PROGRAM, "--limit=finite=no"}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("1+1;<1>[1/0]\n");
  ASSERT_TRUE(terminal.Shows("\tScalar : 2\r\n"));
  EXPECT_EQ(ReadBytes(directory_.PathOf("mirlow/history")), "1+1;<1>[1/0]\n");
}

}  // namespace
}  // namespace Quarn
