// Tests of the keys: what each does to the line, seen by what the line then evaluates to.
#include <gtest/gtest.h>

#include <csignal>

#include "tests/support/temporary_directory.h"
#include "tests/support/terminal.h"

namespace Quarn {
namespace {

constexpr char kAbandon[] = "\x03";

class Editing : public testing::Test {
 protected:
  void SetUp() override {
    if (!MIRLOW_EDITS) GTEST_SKIP() << "built without line editing";
  }

  struct Row {
    std::string keys;
    const char* output;
  };
  // Types the keys of each row at a new prompt of one session.
  template <std::size_t N>
  void ExpectOutputs(const Row (&rows)[N]) {
    Terminal terminal({MIRLOW_PROGRAM}, directory_.PathOf(""));
    for (const Row& row : rows) {
      ASSERT_TRUE(terminal.Shows("> ")) << row.keys;
      terminal.Type(row.keys);
      ASSERT_TRUE(terminal.Shows(row.output)) << row.keys << '\n' << terminal.GetRest();
    }
  }

  const TemporaryDirectory directory_;
};

TEST_F(Editing, MovesTheCursor) {
  const Row kRows[] = {
      {"24\x1b[D3\n",           "\tScalar : 234\r\n"}, // left
      {"24\x1bOD3\n",           "\tScalar : 234\r\n"},
      {"24\x1b[D\x1b[C3\n",     "\tScalar : 243\r\n"}, // right
      {"24\x02\x06"
       "3\n",            "\tScalar : 243\r\n"}, // Ctrl-B, Ctrl-F
      {"24\x1b[H3\n",           "\tScalar : 324\r\n"}, // home, in each of its forms
      {"24\x1bOH3\n",           "\tScalar : 324\r\n"},
      {"24\x1b[1~3\n",          "\tScalar : 324\r\n"},
      {"24\x1b[7~3\n",          "\tScalar : 324\r\n"},
      {"24\x01"
       "3\n",            "\tScalar : 324\r\n"}, // Ctrl-A
      {"24\x01\x1b[F5\n",       "\tScalar : 245\r\n"}, // end
      {"24\x01\x1bOF5\n",       "\tScalar : 245\r\n"},
      {"24\x01\x1b[4~5\n",      "\tScalar : 245\r\n"},
      {"24\x01\x1b[8~5\n",      "\tScalar : 245\r\n"},
      {"24\x01\x05"
       "5\n",            "\tScalar : 245\r\n"}, // Ctrl-E
      {"12+34\x1b[1;5D5\n",     "\tScalar : 546\r\n"}, // by words: 12+534
      {"12+34\x1b[1;3D5\n",     "\tScalar : 546\r\n"},
      {"12+34\x1b[5D5\n",       "\tScalar : 546\r\n"},
      {"12+34\x01\x1b[1;5C5\n", "\tScalar : 159\r\n"}, // 125+34
      {"12+34\x01\x1b[1;3C5\n", "\tScalar : 159\r\n"},
      {"12+34\x01\x1b[5C5\n",   "\tScalar : 159\r\n"},
  };
  ExpectOutputs(kRows);
}

TEST_F(Editing, Erases) {
  const Row kRows[] = {
      {"24\x7f"
       "3\n",            "\tScalar : 23\r\n"  }, // backspace
      {"24\x08"
       "3\n",            "\tScalar : 23\r\n"  },
      {"24\x01\x1b[3~\n",       "\tScalar : 4\r\n"   }, // delete
      {"24\x01\x04\n",          "\tScalar : 4\r\n"   }, // Ctrl-D in a line
      {"12+34\x01\x1b[3;5~5\n", "\tScalar : 39\r\n"  }, // the word: 5+34
      {"12+34\x02\x0b\n",       "\tScalar : 15\r\n"  }, // Ctrl-K: 12+3
      {"12+34\x15"
       "7\n",            "\tScalar : 7\r\n"   }, // Ctrl-U
      {"12+34\x17"
       "7\n",            "\tScalar : 7\r\n"   }, // Ctrl-W
      {"12\x15\x19\x19\n",      "\tScalar : 1212\r\n"}, // Ctrl-Y
      {"12\x15\x1f\n",          "\tScalar : 12\r\n"  }, // Ctrl-_ takes it back
      {"12\x01\x1b[2~3\n",      "\tScalar : 32\r\n"  }, // insert: overwrites
  };
  ExpectOutputs(kRows);
}

// Keys that mean nothing here leave nothing in the line.
TEST_F(Editing, InsertsNothingByKeysThatItDoesNotKnow) {
  std::string all;
  for (const char* keys :
       {"\x1bOP",    "\x1bOQ",    "\x1bOR",     "\x1bOS",    "\x1b[11~",  "\x1b[15~",
        "\x1b[17~",  "\x1b[24~",  "\x1b[15;5~", "\x1b[1;2P", "\x1b[1;2A", "\x1b[1;5A",
        "\x1b[1;2H", "\x1b[3;2~", "\x1b[2;5~",  "\x1b[5;5~", "\x1b[I",    "\x1b[O",
        "\x1b[29~",  "\x1b[[A",   "\x1b[[E",    "\x1b[Z",    "\x1bOj",    "\x1bq"}) {
    all += std::string("1") + keys;
  }
  const Row kRows[] = {
      {all + "\n", "\tScalar : 1.11111111111111e+23\r\n"}, // 24 times 1
  };
  ExpectOutputs(kRows);
}

TEST_F(Editing, GoesThroughHistory) {
  const Row kRows[] = {
      {"20+1\n",                 "\tScalar : 21\r\n"},
      {"20+2\n",                 "\tScalar : 22\r\n"},
      {"30+3\n",                 "\tScalar : 33\r\n"},
      {"\x1b[A\x1b[A\n",         "\tScalar : 22\r\n"}, // up
      {"\x1bOA\x1bOA\x1bOB\n",   "\tScalar : 22\r\n"}, // up, up, down
      {"30\x1b[A\n",             "\tScalar : 33\r\n"}, // up among those that begin so
      {"20\x1b[A\x1b[A\x1b[B\n", "\tScalar : 22\r\n"},
      {"99\x1b[A\n",             "\tScalar : 99\r\n"}, // none does
      {"\x1b[5~\n",              "\tScalar : 21\r\n"}, // page up
      {"\x1b[5~\x1b[6~7\n",      "\tScalar : 7\r\n" }, // page down
      {"\x12"
       "30+\r",           "\tScalar : 33\r\n"}, // Ctrl-R
      {"\x12"
       "20+\x12\r",       "\tScalar : 22\r\n"}, // the one before
      {"5\x12"
       "30+\x07\r",       "\tScalar : 5\r\n" }, // Ctrl-G gives it up
  };
  ExpectOutputs(kRows);
}

TEST_F(Editing, AbandonsWhateverIsUnderWayByControlC) {
  for (const char* keys : {"1+",
                           "\x12"
                           "2+",
                           "\x1b"
                           "5",
                           "\x16", "rou\t", "<1, \x1b[D", "\x1b"}) {
    Terminal terminal({MIRLOW_PROGRAM}, directory_.PathOf(""));
    ASSERT_TRUE(terminal.Shows("> "));
    terminal.Type("x=2+2\n");
    ASSERT_TRUE(terminal.Shows("x = 4\r\n"));
    ASSERT_TRUE(terminal.Shows("> "));
    terminal.Type(keys);
    terminal.Type(kAbandon);
    EXPECT_TRUE(terminal.Shows("^C\r\n")) << keys;
    EXPECT_TRUE(terminal.Shows("> ")) << keys;
    terminal.Type("x+1\n");
    EXPECT_TRUE(terminal.Shows("\tScalar : 5\r\n")) << keys << '\n' << terminal.GetRest();
  }
}

// Between Ctrl-V and the next key the terminal makes no signals.
TEST_F(Editing, AbandonsByControlCThatIsReadAsAKey) {
  Terminal terminal({MIRLOW_PROGRAM, "--no-init"}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  terminal.Type("1+\x16");
  ASSERT_TRUE(terminal.MakesNoSignals());
  terminal.Type(kAbandon);
  EXPECT_TRUE(terminal.Shows("^C\r\n"));
  EXPECT_TRUE(terminal.Shows("> "));
  terminal.Type("2+3\n");
  EXPECT_TRUE(terminal.Shows("\tScalar : 5\r\n")) << terminal.GetRest();
}

// The terminal drops what was typed before Ctrl-C and was not read yet; Ctrl-C itself counts.
TEST_F(Editing, OverlooksNoControlC) {
  Terminal terminal({MIRLOW_PROGRAM, "--no-init"}, directory_.PathOf(""));
  ASSERT_TRUE(terminal.Shows("> "));
  for (int i = 0; i < 300; ++i) {
    terminal.Type("1+");
    terminal.Type(kAbandon);
    ASSERT_TRUE(terminal.Shows("^C\r\n")) << i;
    ASSERT_TRUE(terminal.Shows("> ")) << i;
  }
}

TEST_F(Editing, EndsWhenItsTerminalGoes) {
  constexpr char kSearch[] = "\x12";
  for (const char* keys : {"", "1+", kSearch}) {
    Terminal terminal({MIRLOW_PROGRAM, "--no-init"}, directory_.PathOf(""));
    ASSERT_TRUE(terminal.Shows("> "));
    terminal.Type(keys);
    terminal.HangUp();
    EXPECT_EQ(terminal.Wait(), -SIGHUP) << keys;
  }
}

TEST_F(Editing, TakesPastedLinesAtOnce) {
  const Row kRows[] = {
      {"\x1b[200~x=1\ny=2\r\n\nx\x1b[201~+y\n", "\tDefining Scalar : y = 2\r\n"   },
      {"\x1b[200~3\n4\n\x1b[201~\n",            "\tScalar : 3\r\n\tScalar : 4\r\n"},
      {"\x1b[A\n",                              "\tScalar : 4\r\n"                }, // each is remembered
      {"\x1b[A\x1b[A\n",                        "\tScalar : 3\r\n"                },
      {"\x1b[200~5\nq\n6\x1b[201~\n",           "\tScalar : 5\r\n"                }, // leaves
  };
  ExpectOutputs(kRows);
}

TEST_F(Editing, EditsCharactersAndNotBytes) {
  const Row kRows[] = {
      {"?\xc3\xa9\x7fx\n",           "\tError : Unknown symbol 'x'\r\n"           },
      {"?a\xe2\x82\xac\x1b[D\x7f\n", "\tError : Unknown symbol '\xe2\x82\xac'\r\n"},
      {"?\xf0\x9f\x98\x80"
       "b\x02\x02\x1b[3~\n",  "\tError : Unknown symbol 'b'\r\n"           },
  };
  ExpectOutputs(kRows);
}

TEST_F(Editing, ReadsInputrc) {
  directory_.Write(".inputrc", "\"\\C-t\": \"1+2\"\n$if mirlow-shell\n\"\\e[A\": \"3*\"\n$endif\n");
  const Row kRows[] = {
      {"\x14\n",     "\tScalar : 3\r\n" },
      {"\x1b[A"
       "4\n", "\tScalar : 12\r\n"},
  };
  ExpectOutputs(kRows);
}

TEST_F(Editing, KnowsTheKeysOfVi) {
  directory_.Write(".inputrc", "set editing-mode vi\n");
  const Row kRows[] = {
      {"24\x1b"
       "0i3\n",  "\tScalar : 324\r\n"},
      {"24\x1b"
       "0x\n",   "\tScalar : 4\r\n"  },
      {"24\x1b[D3\n",   "\tScalar : 234\r\n"},
      {"12\x1b"
       "ddi7\n", "\tScalar : 7\r\n"  },
      {"2\x1b"
       "kk\n",   "\tScalar : 234\r\n"},
  };
  ExpectOutputs(kRows);
}

}  // namespace
}  // namespace Quarn
