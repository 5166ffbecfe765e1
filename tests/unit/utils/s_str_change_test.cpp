// Tests of the operations of s_str_t that change a text or cut it up, alike for both character
// types.
#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "tests/support/dump.h"
#include "tests/support/range_error.h"
#include "utils/s_str.h"

namespace Quarn {
namespace {

template <class T>
class SStrChange : public testing::Test {};
using Characters = testing::Types<char, unsigned int>;
TYPED_TEST_SUITE(SStrChange, Characters);

TYPED_TEST(SStrChange, ErasesFromStartAndEnd) {
  using Str = s_str_t<TypeParam>;
  const struct {
    s_uint number;
    const char *from_start, *from_end;
  } kRows[] = {
      {0U,          "abc", "abc"},
      {1U,          "bc",  "ab" },
      {3U,          "",    ""   },
      {s_uint::NaN, "",    ""   },
      {s_uint::INF, "",    ""   },
  };
  for (const auto& row : kRows) {
    Str text = "abc";
    text.EraseFromStart(row.number);
    EXPECT_EQ(Dump(text), row.from_start) << Dump(row.number);
    text = "abc";
    text.EraseFromEnd(row.number);
    EXPECT_EQ(Dump(text), row.from_end) << Dump(row.number);
  }
}

// Kept on purpose: the two erasers differ when there is less text than they should erase.
TYPED_TEST(SStrChange, ErasingTooMuchClearsFromTheStartAndRaisesFromTheEnd) {
  s_str_t<TypeParam> text = "abc";
  EXPECT_EQ(RangeErrorOf([&] { text.EraseFromEnd(5U); }), RangeErrorIn("erase"));
  EXPECT_EQ(RangeErrorOf([&] { text.EraseFromEnd(4U); }), RangeErrorIn("erase"));
  EXPECT_EQ(Dump(text), "abc");
  text.EraseFromStart(5U);
  EXPECT_EQ(Dump(text), "");
}

TYPED_TEST(SStrChange, TrimCountsWhatItRemoves) {
  using Str = s_str_t<TypeParam>;
  const struct {
    const char *text, *rest;
    unsigned int removed;
  } kRows[] = {
      {"xxabx", "ab",   3},
      {"ab",    "ab",   0},
      {"axxb",  "axxb", 0}, // the middle stays
      {"xab",   "ab",   1},
      {"abx",   "ab",   1},
      {"xxxx",  "",     4}, // nothing is counted twice
      {"x",     "",     1},
      {"",      "",     0},
      {"XabX",  "XabX", 0},
  };
  for (const auto& row : kRows) {
    Str text = row.text;
    EXPECT_EQ(text.Trim('x').Get(), row.removed) << row.text;
    EXPECT_EQ(Dump(text), row.rest) << row.text;
  }
}

TYPED_TEST(SStrChange, ReplaceNeverLooksAtWhatItPutIn) {
  using Str = s_str_t<TypeParam>;
  const struct {
    const char *text, *pattern, *replacement, *result;
    unsigned int count;
  } kRows[] = {
      {"aba",   "a",    "aa",  "aabaa",   2},
      {"aba",   "a",    "",    "b",       2},
      {"aba",   "x",    "y",   "aba",     0},
      {"aaa",   "aa",   "b",   "ba",      1},
      {"aaaa",  "aa",   "a",   "aa",      2},
      {"a\r\r", "\r",   "",    "a",       2},
      {"aabb",  "ab",   "",    "ab",      1}, // what came together is not searched again
      {"abc",   "abc",  "abc", "abc",     1},
      {"abc",   "abcd", "x",   "abc",     0},
      {"",      "a",    "b",   "",        0},
      {"a,b,c", ",",    ", ",  "a, b, c", 2},
  };
  for (const auto& row : kRows) {
    Str text = row.text;
    EXPECT_EQ(text.Replace(row.pattern, row.replacement).Get(), row.count) << row.text;
    EXPECT_EQ(Dump(text), row.result) << row.text;
  }
}

TYPED_TEST(SStrChange, ReplaceMayBeGivenTheTextItself) {
  s_str_t<TypeParam> text = "ab";
  EXPECT_EQ(text.Replace(text, "c").Get(), 1U);
  EXPECT_EQ(Dump(text), "c");
}

TYPED_TEST(SStrChange, CutDropsEmptyPiecesButTheLast) {
  using Str = s_str_t<TypeParam>;
  const struct {
    const char *text, *delimiter, *pieces;
  } kRows[] = {
      {"a,b",    ",",  "a|b|"  },
      {"a,,b",   ",",  "a|b|"  },
      {",a",     ",",  "a|"    },
      {"a,",     ",",  "a||"   },
      {"",       ",",  "|"     },
      {",",      ",",  "|"     },
      {",,,",    ",",  "|"     },
      {"abc",    ",",  "abc|"  },
      {"a, ,b",  ",",  "a| |b|"}, // a blank piece is not empty
      {"a::b:c", "::", "a|b:c|"},
      {"a:::b",  "::", "a|:b|" },
      {"aaa",    "aa", "a|"    },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Dump(Str(row.text).Cut(row.delimiter)), row.pieces) << row.text;
  }
}

TYPED_TEST(SStrChange, RepeatsTheText) {
  using Str = s_str_t<TypeParam>;
  const struct {
    s_uint number;
    const char* result;
  } kRows[] = {
      {0U,          ""      },
      {1U,          "ab"    },
      {3U,          "ababab"},
      {s_uint::NaN, ""      },
      {s_uint::INF, ""      },
  };
  const Str text = "ab";
  for (const auto& row : kRows) EXPECT_EQ(Dump(text.Repeat(row.number)), row.result);
  EXPECT_EQ(Dump(Str().Repeat(4294967295U)), "");
}

TYPED_TEST(SStrChange, ChangesCase) {
  using Str = s_str_t<TypeParam>;
  const struct {
    const char *text, *upper, *lower, *capital, *small;
  } kRows[] = {
      {"aBc1 d", "ABC1 D", "abc1 d", "ABc1 d", "aBc1 d"},
      {"ABC",    "ABC",    "abc",    "ABC",    "aBC"   },
      {"1ab",    "1AB",    "1ab",    "1ab",    "1ab"   },
      {"",       "",       "",       "",       ""      },
  };
  for (const auto& row : kRows) {
    Str upper = row.text, lower = row.text, capital = row.text, small = row.text;
    upper.ToUpper();
    lower.ToLower();
    capital.CapitalStart(true);
    small.CapitalStart(false);
    EXPECT_EQ(Dump(upper), row.upper);
    EXPECT_EQ(Dump(lower), row.lower);
    EXPECT_EQ(Dump(capital), row.capital);
    EXPECT_EQ(Dump(small), row.small);
  }
}

TYPED_TEST(SStrChange, ChangesCaseOfEveryByteAsTheCLibrary) {
  for (int code = 1; code <= 0xFF; ++code) {
    s_str_t<TypeParam> upper(std::string(1, static_cast<char>(code)).c_str());
    auto lower = upper;
    upper.ToUpper();
    lower.ToLower();
    EXPECT_EQ(static_cast<unsigned int>(*upper.begin()) & 0xFFU,
              static_cast<unsigned int>(std::toupper(code)));
    EXPECT_EQ(static_cast<unsigned int>(*lower.begin()) & 0xFFU,
              static_cast<unsigned int>(std::tolower(code)));
  }
}

TEST(SUstr, CharactersBeyondAByteStay) {
  s_ustr text(s_ustr::String{0x1F600U, 'a', 0x141U});
  text.ToUpper();
  EXPECT_TRUE(text.Get() == (s_ustr::String{0x1F600U, 'A', 0x141U}));
  EXPECT_EQ(Dump(text), "?A?");
  EXPECT_FALSE(text.IsNumber());
  EXPECT_EQ(Dump(s_ustr(s_ustr::String{0x131U}).Find("1")), "nan");  // not cut to its low byte
}

}  // namespace
}  // namespace Quarn
