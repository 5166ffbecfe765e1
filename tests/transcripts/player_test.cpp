// Tests of the player: a page that is right plays in both modes, and one that is not is reported.
#include "tests/transcripts/player.h"

#include <gtest/gtest.h>

namespace Quarn {
namespace {

std::string Play(const char* text, std::chrono::milliseconds patience = std::chrono::minutes(1)) {
  const Page page = ReadPage(text);
  return PlayAtPrompt({MIRLOW_PROGRAM}, page, patience) +
         PlayAsScript({MIRLOW_PROGRAM}, page, patience);
}

TEST(Player, FindsNoDifferenceInARightPage) {
  EXPECT_EQ(Play("> 1+1\n\tScalar : 2\n"), "");
  EXPECT_EQ(Play("> // nothing\n"), "");
}

TEST(Player, NoticesEveryDifference) {
  const char* const kWrong[] = {
      "> 1+1\n\tScalar : 3\n",                 // other output
      "> 1+1\n\tScalar : 2\n\n",               // less output
      "> 1+1\n",                               // more output
      "> 1+1\n\tScalar : 2\n(dies)\n",         // it lives on
      "> !0\n",                                // it dies
      "> 1\n\tScalar : 1\n(never returns)\n",  // it returns
  };
  for (const char* page : kWrong) EXPECT_NE(Play(page, std::chrono::seconds(1)), "") << page;
}

// As in an emulator: one program, with arguments of its own, starts the other.
TEST(Player, PlaysAProgramThatAnotherOneStarts) {
  const Command command = {"/usr/bin/env", "LANG=C", MIRLOW_PROGRAM};
  const Page right = ReadPage("> 1+1\n\tScalar : 2\n");
  EXPECT_EQ(PlayAtPrompt(command, right), "");
  EXPECT_EQ(PlayAsScript(command, right), "");
  const Page wrong = ReadPage("> 1+1\n\tScalar : 3\n");
  EXPECT_NE(PlayAtPrompt(command, wrong), "");
  EXPECT_NE(PlayAsScript(command, wrong), "");
  const Page deadly = ReadPage("> !0\n(dies)\n");
  EXPECT_EQ(PlayAtPrompt(command, deadly), "");
}

// Where nothing dies by a signal, the program ends with another status than 0.
TEST(Player, TellsFailingFromDyingAndFromQuitting) {
  Page page = ReadPage("> 1\n\tScalar : 1\n");
  const Command failing = {"/bin/sh", "-c", R"(printf '> \tScalar : 1\n> '; exit 3)"};
  const Command dying = {"/bin/sh", "-c", R"(printf '> \tScalar : 1\n'; kill -9 $$)"};
  const Command quitting = {"/bin/sh", "-c", R"(printf '> \tScalar : 1\n')"};
  EXPECT_NE(PlayAtPrompt(failing, page), "");
  page.ending = Ending::kFails;
  EXPECT_NE(PlayAtPrompt(dying, page), "");
  EXPECT_NE(PlayAtPrompt(quitting, page), "");
  const Command failing_soon = {"/bin/sh", "-c", R"(printf '> \tScalar : 1\n'; exit 3)"};
  EXPECT_EQ(PlayAtPrompt(failing_soon, page), "");
}

}  // namespace
}  // namespace Quarn
