// Tests of Source, Piece and Parts: a text matched once and cut in place, as if every piece of it
// were a text of its own.
#include "interpreter/source.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/session.h"
#include "tests/support/small_world.h"

namespace Quarn {
namespace {

std::string Text(const Piece& piece) { return std::string(piece.GetText()); }

std::string CutAtOperators(Piece rest) {
  s_str error;
  if (!rest.CheckBrackets(error)) return error.Get();
  std::string cut;
  while (!rest.IsEmpty()) {
    const Piece operand = rest.CutBefore(CharacterClass::kOperator);
    if (!operand.IsEmpty()) cut += "|" + Text(operand);
    if (rest.IsEmpty()) break;
    cut += std::string("|") + rest.GetText().front();
    rest.DropFirst();
  }
  return cut;
}

std::string CutAtCommas(const Piece& list) {
  s_str error;
  if (!list.CheckBrackets(error)) return error.Get();
  std::string cut;
  Parts parts(list);
  for (Piece part; parts.Next(part);) cut += "|" + Text(part);
  return cut;
}

// A text with its index.
struct Indexed {
  explicit Indexed(std::string_view text) : source(text, room), whole(source) {}
  BracketRoom room;
  Source source;
  Piece whole;
};

TEST(Piece, OfASourceIsItsWholeText) {
  const Indexed text("a+(b)");
  EXPECT_EQ(Text(text.whole), "a+(b)");
  EXPECT_EQ(text.whole.GetBegin(), 0U);
  EXPECT_EQ(text.whole.GetEnd(), 5U);
  EXPECT_FALSE(text.whole.IsEmpty());
  EXPECT_TRUE(Indexed("").whole.IsEmpty());
}

TEST(Piece, TrimsSpacesAlone) {
  const ValueRow kRows[] = {
      {"a",       "a"    },
      {"  a b  ", "a b"  },
      {"\ta ",    "\ta"  },
      {" \t ",    "\t"   },
      {"\na\n",   "\na\n"},
      {"   ",     ""     },
      {"",        ""     },
      {" (a) ",   "(a)"  },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Text(Indexed(row.expression).whole.Trimmed()), row.value) << row.expression;
  }
}

TEST(Piece, InsideLosesBothEnds) {
  EXPECT_EQ(Text(Indexed("(a)").whole.Inside()), "a");
  EXPECT_EQ(Text(Indexed("()").whole.Inside()), "");
  EXPECT_EQ(Text(Indexed("(").whole.Inside()), "");
  EXPECT_EQ(CutAtCommas(Indexed("<<1, 2>, (3)>").whole.Inside()), "|<1, 2>| (3)");
}

TEST(Piece, IsCutBeforeAndBehindAPosition) {
  const Indexed text("f(a)[1]+(b)");
  EXPECT_EQ(Text(text.whole.Before(1)), "f");
  EXPECT_EQ(Text(text.whole.Behind(7)), "(b)");
  EXPECT_EQ(Text(text.whole.Behind(1).Before(3)), "a");
  EXPECT_EQ(CutAtOperators(text.whole.Behind(0)), "|(a)[1]|+|(b)");
  EXPECT_EQ(Text(text.whole.Behind(10)), "");
}

TEST(Piece, FindsWhatClosesABracket) {
  const Indexed text("f(a[(1)]<)>");
  EXPECT_EQ(text.whole.FindClose(1), 9U);
  EXPECT_EQ(text.whole.FindClose(3), 7U);
  EXPECT_EQ(text.whole.FindClose(4), 6U);
  EXPECT_EQ(text.whole.FindClose(8), 10U);
  EXPECT_EQ(text.whole.Before(9).FindClose(1), Bracket::kOpenEnd);
  EXPECT_EQ(Indexed("((a)").whole.FindClose(0), Bracket::kOpenEnd);
  EXPECT_EQ(Indexed("((a)").whole.FindClose(1), 3U);
}

TEST(Piece, CutsBeforeTheFirstOfAClassAtTopLevel) {
  const Indexed text("(a+b), c+d");
  Piece rest = text.whole;
  EXPECT_EQ(Text(rest.CutBefore(CharacterClass::kComma)), "(a+b)");
  EXPECT_EQ(Text(rest), ", c+d");
  rest.DropFirst();
  EXPECT_EQ(Text(rest.CutBefore(CharacterClass::kOperator)), " c");
  EXPECT_EQ(Text(rest), "+d");
  EXPECT_EQ(Text(rest.CutBefore(CharacterClass::kComma)), "+d");
  EXPECT_TRUE(rest.IsEmpty());
}

TEST(Piece, ReportsBracketsOnALineOfItsOwn) {
  s_str error = "\tError : before";
  EXPECT_FALSE(Indexed("a)").whole.CheckBrackets(error));
  EXPECT_EQ(error.Get(), "\tError : before\n\tError : Too many closing ')'");
  EXPECT_FALSE(Indexed("<").whole.CheckBrackets(error));
  EXPECT_EQ(error.Get(),
            "\tError : before\n\tError : Too many closing ')'\n\tError : Unterminated '<'");
}

TEST(Source, KnowsWhetherItHoldsAnyBracket) {
  for (const char* plain : {"", "a", "a+b, c", "&x=1"})
    EXPECT_TRUE(Indexed(plain).source.IsPlain());
  for (const char* text : {"(", ")", "a>", "v[1]"}) EXPECT_FALSE(Indexed(text).source.IsPlain());
}

TEST(Source, CountsOpeningBrackets) {
  EXPECT_EQ(Indexed("a)]>").source.CountBrackets(), 0U);
  EXPECT_EQ(Indexed("(<[").source.CountBrackets(), 3U);
}

TEST(Source, SharesItsRoomWithTheSourcesAroundIt) {
  BracketRoom room;
  const Source outer("(a)[b]", room);
  {
    const Source inner("<(c)>+d", room);
    EXPECT_EQ(CutAtOperators(Piece(inner)), "|<(c)>|+|d");
    EXPECT_EQ(room.size(), 4U);
  }
  EXPECT_EQ(room.size(), 2U);
  EXPECT_EQ(CutAtOperators(Piece(outer)), "|(a)[b]");
}

TEST(Parts, LeavesOutEmptyPartsButNotBlankOnes) {
  const ValueRow kRows[] = {
      {"",             ""             },
      {",",            ""             },
      {"a, b,, c",     "|a| b| c"     },
      {" ",            "| "           },
      {"a, ,",         "|a| "         },
      {"f(a,b),<c,d>", "|f(a,b)|<c,d>"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(CutAtCommas(Indexed(row.expression).whole), row.value) << row.expression;
  }
}

TEST(Piece, AgreesWithASlowerReadingOnEveryShortText) {
  std::size_t differing = 0;
  ForEachText(kBracketWorld, kLongestInWorld, [&](const std::string& text) {
    const Indexed indexed(text);
    const SlowBrackets slow(text);
    const std::string cut = CutAtOperators(indexed.whole);
    if (cut == slow.Cut('+', true) && CutAtCommas(indexed.whole) == slow.Cut(',', false)) {
      if (cut.starts_with('\t') || JoinPieces(cut) == text) return;
    }
    if (++differing < 10) ADD_FAILURE() << text << " is cut into " << cut;
  });
  EXPECT_EQ(differing, 0U);
}

TEST(Piece, EveryStretchOfAShortTextIsCutAsATextOfItsOwn) {
  std::size_t differing = 0;
  ForEachText(kBracketWorld, kLongestInWorld - 1, [&](const std::string& text) {
    const Indexed indexed(text);
    for (std::uint32_t begin = 1; begin < text.size(); ++begin) {
      for (std::uint32_t end = begin; end <= text.size(); ++end) {
        const Piece stretch = indexed.whole.Behind(begin - 1).Before(end);
        if (CutAtOperators(stretch) == SlowBrackets(stretch.GetText()).Cut('+', true)) continue;
        if (++differing < 10) ADD_FAILURE() << Text(stretch) << " of " << text;
      }
    }
  });
  EXPECT_EQ(differing, 0U);
}

}  // namespace
}  // namespace Quarn
