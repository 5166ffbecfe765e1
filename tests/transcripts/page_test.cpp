// Tests of the reading of pages: what is typed, what answers, what is output, and what is no page.
#include "tests/transcripts/page.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Quarn {
namespace {

// "line>text|output" or "line<text|output" for every turn, then how it ends.
std::string Dump(const Page& page) {
  std::string dump;
  for (const Turn& turn : page.turns) {
    dump += std::to_string(turn.line) + (turn.is_answer ? "<" : ">") + turn.text + "|" +
            turn.output + "|";
  }
  if (page.ending == Ending::kDies) dump += "dies";
  if (page.ending == Ending::kFails) dump += "fails";
  if (page.ending == Ending::kNeverReturns) dump += "never returns";
  return dump;
}

TEST(Page, HasTurnsAndOutput) {
  const struct {
    const char* text;
    const char* dump;
  } kRows[] = {
      {"# Shows it.\n# Twice.\n> a\n\tb\n\tc\n> d\n", "3>a|\tb\n\tc\n|6>d||"    },
      {"> ~\nsure ? \n< n\n> a\n",                    "1>~|sure ? |3<n||4>a||"  },
      {"> ~\nsure ? \n<\nerased\n",                   "1>~|sure ? |3<|erased\n|"},
      {">\n> \n>  a \n",                              "1>||2>||3> a ||"         },
      {"> a\n      \n\t# b\n",                        "1>a|      \n\t# b\n|"    },
      {"> a\n>b\n<c\n",                               "1>a|>b\n<c\n|"           }, // no blank, no turn
      {"> !0\n(dies)\n",                              "1>!0||dies"              },
      {"> a\nb\n(never returns)\n",                   "1>a|b\n|never returns"   },
      {"> a",                                         "1>a||"                   }, // no newline at the end
  };
  for (const auto& row : kRows) EXPECT_EQ(Dump(ReadPage(row.text)), row.dump) << row.text;
}

TEST(Page, IsRefusedWhenSomethingStandsWhereNothingCan) {
  for (const char* text : {"output\n> a\n", "< a\n", "> a\n< b\n", "> a\n(dies)\n> b\n"}) {
    EXPECT_THROW(ReadPage(text), std::runtime_error) << text;
  }
}

TEST(Markdown, HasAPageInEveryBlockOfOurs) {
  const std::vector<Page> pages = ReadMarkdown(
      "# Title\n```sh\n> no\n```\n\n```mirlow\n> a\n\tb\n```\ntext\n```mirlow\n> c\n```\n");
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(Dump(pages[0]), "7>a|\tb\n|");
  EXPECT_EQ(Dump(pages[1]).substr(2), ">c||");
}

TEST(Page, HasOtherLinesAndNoSignalsOnWindows) {
  const Page page = ReadPage("> ~\nsure ? \n< n\n> a\n\tb\n\tc\n(never returns)\n");
  EXPECT_EQ(Dump(OnWindows(page)), "1>~|sure ? |3<n||4>a|\tb\r\n\tc\r\n|never returns");
  EXPECT_EQ(Dump(OnWindows(ReadPage("> !0\n(dies)\n"))), "1>!0||fails");
  EXPECT_EQ(Dump(OnWindows(ReadPage("> 1\n"))), "1>1||");
}

}  // namespace
}  // namespace Quarn
