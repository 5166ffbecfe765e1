// Tests of what a person sees while a line is edited, on narrow and on wide screens.
#include "tests/support/screen.h"

#include <gtest/gtest.h>

namespace Quarn {
namespace {

class OnScreen : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    if (!MIRLOW_EDITS) GTEST_SKIP() << "built without line editing";
    if (!Screen::IsPossible()) GTEST_SKIP() << "no tmux";
  }

  // What a line of so many characters looks like after the prompt, cut at the width.
  std::string Wrap(std::string line, int columns) const {
    line = "> " + line;
    for (std::size_t at = static_cast<std::size_t>(columns); at < line.size();
         at += static_cast<std::size_t>(columns) + 1) {
      line.insert(at, "\n");
    }
    return line;
  }

  const TemporaryDirectory directory_;
};

INSTANTIATE_TEST_SUITE_P(Columns, OnScreen, testing::Values(20, 80),
                         [](const auto& columns) { return std::to_string(columns.param); });

constexpr char kLong[] = "111111111111111111111111111111+222222222222222222222222222222";

TEST_P(OnScreen, WrapsALongLine) {
  const Screen screen(MIRLOW_PROGRAM, directory_.PathOf(""), {.columns = GetParam()});
  ASSERT_TRUE(screen.Shows("\n>"));
  screen.Type(kLong);
  EXPECT_TRUE(screen.Shows(Wrap(kLong, GetParam()))) << screen.GetText();
  screen.Type(
      "\x01"
      "9");
  EXPECT_TRUE(screen.Shows(Wrap(std::string("9") + kLong, GetParam()))) << screen.GetText();
  screen.Type("\x0b");  // the rest of the line goes, and leaves nothing on the screen
  EXPECT_TRUE(screen.Shows("\n> 9\n\n")) << screen.GetText();
  screen.Type("\r");
  EXPECT_TRUE(screen.Shows("\n> 9\n        Scalar : 9\n>")) << screen.GetText();
}

TEST_P(OnScreen, FollowsAResizeInTheMiddleOfALine) {
  const int other = 100 - GetParam();
  const Screen screen(MIRLOW_PROGRAM, directory_.PathOf(""), {.columns = GetParam()});
  ASSERT_TRUE(screen.Shows("\n>"));
  screen.Type(kLong);
  ASSERT_TRUE(screen.Shows(Wrap(kLong, GetParam())));
  screen.Resize({.columns = other});
  EXPECT_TRUE(screen.Shows(Wrap(kLong, other))) << screen.GetText();
  screen.Type("3");
  EXPECT_TRUE(screen.Shows(Wrap(std::string(kLong) + "3", other))) << screen.GetText();
  screen.Type(
      "\x15"
      "4\r");
  EXPECT_TRUE(screen.Shows("        Scalar : 4\n")) << screen.GetText();
}

TEST_P(OnScreen, LeavesAnAbandonedLineReadable) {
  const Screen screen(MIRLOW_PROGRAM, directory_.PathOf(""), {.columns = GetParam()});
  ASSERT_TRUE(screen.Shows("\n>"));
  screen.Type(kLong);
  screen.Type("\x01");
  ASSERT_TRUE(screen.Shows(Wrap(kLong, GetParam())));
  screen.Type("\x03");
  EXPECT_TRUE(screen.Shows(Wrap(std::string(kLong) + "^C", GetParam()) + "\n>"))
      << screen.GetText();
}

TEST_P(OnScreen, ShowsWideCharactersWhereTheyAre) {
  const Screen screen(MIRLOW_PROGRAM, directory_.PathOf(""), {.columns = GetParam()});
  ASSERT_TRUE(screen.Shows("\n>"));
  screen.Type(
      "?\xe6\x97\xa5\xe6\x9c\xac\xc3\xa9\x02\x02"
      "x");  // two wide ones, an accent
  EXPECT_TRUE(screen.Shows("> ?\xe6\x97\xa5x\xe6\x9c\xac\xc3\xa9\n")) << screen.GetText();
}

// As after Ctrl-Z and "fg" in another shell.
TEST_P(OnScreen, IsShownAgainWhenItGoesOn) {
  const Screen screen("PS1='$ ' HISTFILE= bash --norc --noprofile -i", directory_.PathOf(""),
                      {.columns = GetParam()});
  ASSERT_TRUE(screen.Shows("$"));
  screen.Type(std::string("clear; \"") + MIRLOW_PROGRAM + "\"\r");
  ASSERT_TRUE(screen.Shows("\n>"));
  screen.Type("11+1");
  ASSERT_TRUE(screen.Shows("\n> 11+1\n"));
  screen.Type("\x1a");
  ASSERT_TRUE(screen.Shows("Stopped"));
  screen.Type("clear; fg\r");
  ASSERT_TRUE(screen.Shows("> 11+1\n")) << screen.GetText();
  screen.Type("1\r");
  EXPECT_TRUE(screen.Shows("        Scalar : 22\n")) << screen.GetText();
}

TEST_P(OnScreen, ShowsWhatIsPastedAsLines) {
  const Screen screen(MIRLOW_PROGRAM, directory_.PathOf(""), {.columns = GetParam()});
  ASSERT_TRUE(screen.Shows("\n>"));
  screen.Type("\x1b[200~x=1\nx+1\x1b[201~");
  EXPECT_TRUE(screen.Shows("> x=1\nx+1\n")) << screen.GetText();
  screen.Type("\r");
  EXPECT_TRUE(screen.Shows("        Scalar : 2\n>")) << screen.GetText();
}

}  // namespace
}  // namespace Quarn
