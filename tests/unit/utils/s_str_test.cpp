// Tests of s_str_t: making, comparing, finding and extracting, alike for both character types.
#include "utils/s_str.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <type_traits>

#include "tests/support/dump.h"
#include "tests/support/range_error.h"

namespace Quarn {
namespace {

template <class T>
class SStr : public testing::Test {};
using Characters = testing::Types<char, unsigned int>;
TYPED_TEST_SUITE(SStr, Characters);

TYPED_TEST(SStr, IsMadeFromArraysStringsAndCopies) {
  using Str = s_str_t<TypeParam>;
  EXPECT_EQ(Dump(Str()), "");
  EXPECT_EQ(Dump(Str("")), "");
  EXPECT_EQ(Dump(Str("abc")), "abc");
  const typename Str::String standard = {'a', 'b', '\0', 'c'};
  const Str text = standard;
  EXPECT_EQ(text.GetSize().Get(), 4U);
  EXPECT_TRUE(text.Get() == standard);
  EXPECT_TRUE(Str(text.GetView()) == text);
  Str copy = text;
  copy += "d";
  EXPECT_EQ(text.GetSize().Get(), 4U);
  EXPECT_EQ(copy.GetSize().Get(), 5U);
}

TYPED_TEST(SStr, LiteralsAreWidenedByteByByte) {
  using Str = s_str_t<TypeParam>;
  const Str text("\xFF");
  ASSERT_EQ(text.GetSize().Get(), 1U);
  EXPECT_EQ(static_cast<unsigned int>(*text.begin()) & 0xFFU, 0xFFU);
  EXPECT_EQ(Widen("\xFF").Get()[0], 0xFFU);
}

// A character above 0x7F is the same one whether it stands in a literal or alone.
TYPED_TEST(SStr, ACharacterOfAByteIsWidenedAsInALiteral) {
  using Str = s_str_t<TypeParam>;
  const Str literal = "a\xE9";
  Str text = "a";
  text += '\xE9';
  EXPECT_TRUE(text == literal);
  text = "a";
  text.Append('\xE9');
  EXPECT_TRUE(text == literal);
  EXPECT_TRUE(Str("a") + '\xE9' == literal);
  EXPECT_EQ(text.Trim('\xE9').Get(), 1U);
  EXPECT_EQ(Dump(text), "a");
  EXPECT_EQ(text.Trim('\xE8').Get(), 0U);
}

TEST(SUstr, CharactersOfItsOwnAreTakenAsTheyAre) {
  s_ustr text;
  text += 0xE9U;
  text.Append(0x1F600U);
  EXPECT_TRUE((text + 0xFFFFFFE9U).Get() == (s_ustr::String{0xE9U, 0x1F600U, 0xFFFFFFE9U}));
  EXPECT_EQ(text.Trim(0x1F600U).Get(), 1U);
  EXPECT_TRUE(text == s_ustr("\xE9"));
}

TYPED_TEST(SStr, Concatenates) {
  using Str = s_str_t<TypeParam>;
  const TypeParam exclamation_mark = '!';
  const Str a = "ab", b = "cd";
  EXPECT_EQ(Dump(a + b), "abcd");
  EXPECT_EQ(Dump(a + exclamation_mark), "ab!");
  EXPECT_EQ(Dump("x" + a + "y"), "xaby");
  EXPECT_EQ(Dump(a + Str()), "ab");
  Str text = a;
  text += b;
  text += exclamation_mark;
  text.Append(b.GetView()).Append(exclamation_mark).Append("e");
  EXPECT_EQ(Dump(text), "abcd!cd!e");
  text = a;
  text += text;
  EXPECT_EQ(Dump(text), "abab");
  EXPECT_EQ(Dump(a), "ab");
}

TYPED_TEST(SStr, IsWrittenInPlace) {
  using Str = s_str_t<TypeParam>;
  Str text("ab");
  text.AppendInPlace(100, [](TypeParam* at) {
    for (char c : {'c', 'd', 'e'}) *at++ = static_cast<TypeParam>(c);
    return at;
  });
  EXPECT_EQ(Dump(text), "abcde");
  text.AppendInPlace(0, [](TypeParam* at) { return at; }).AppendInPlace(1, [](TypeParam* at) {
    return at;
  });
  EXPECT_EQ(Dump(text), "abcde");
}

TYPED_TEST(SStr, ComparesExactly) {
  using Str = s_str_t<TypeParam>;
  const struct {
    const char *a, *b;
    bool equal, less, greater;
  } kRows[] = {
      {"",      "",     true,  false, false},
      {"ab",    "ab",   true,  false, false},
      {"ab",    "AB",   false, false, true }, // capitals stand first
      {"ab",    "ac",   false, true,  false},
      {"ab",    "abc",  false, true,  false}, // a shorter prefix stands first
      {"",      "a",    false, true,  false},
      {"b",     "ab",   false, false, true },
      {"a ",    "a",    false, false, true },
      {"\x7F",  "\x80", false, true,  false}, // a byte above 0x7F is no negative number
      {"a\xE9", "ab",   false, false, true },
      {"\xE9",  "\xFF", false, true,  false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.a) + " and " + row.b);
    EXPECT_EQ(bool(Str(row.a) == Str(row.b)), row.equal);
    EXPECT_EQ(bool(Str(row.a) != Str(row.b)), !row.equal);
    EXPECT_EQ(bool(Str(row.a) < Str(row.b)), row.less);
    EXPECT_EQ(bool(Str(row.b) < Str(row.a)), row.greater);
  }
  static_assert(std::is_same_v<decltype(Str() == Str()), s_bool>);
  static_assert(std::is_same_v<decltype(Str() != Str()), s_bool>);
  static_assert(std::is_same_v<decltype(Str() < Str()), s_bool>);
}

TYPED_TEST(SStr, OrdersTheKeysOfAMap) {
  std::map<s_str_t<TypeParam>, int> numbers = {
      {"b",  3},
      {"ab", 2},
      {"B",  0},
      {"a",  1},
  };
  int expected = 0;
  for (const auto& [key, number] : numbers) EXPECT_EQ(number, expected++) << Dump(key);
  EXPECT_EQ(numbers["ab"], 2);
}

TYPED_TEST(SStr, IsEmptyMayTakeBlanksForNothing) {
  using Str = s_str_t<TypeParam>;
  const struct {
    const char* text;
    bool strictly, with_blanks;
  } kRows[] = {
      {"",     true,  true },
      {" ",    false, true },
      {"\t",   false, true },
      {" \t ", false, true },
      {" a ",  false, false},
      {"\n",   false, false}, // only blanks and tabs count
      {"\r",   false, false},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(bool(Str(row.text).IsEmpty()), row.strictly) << row.text;
    EXPECT_EQ(bool(Str(row.text).IsEmpty(false)), row.strictly) << row.text;
    EXPECT_EQ(bool(Str(row.text).IsEmpty(true)), row.with_blanks) << row.text;
  }
}

TYPED_TEST(SStr, FindGivesTheFirstPositionOrNaN) {
  using Str = s_str_t<TypeParam>;
  const struct {
    const char *text, *pattern;
    s_uint from;
    const char* position;
  } kRows[] = {
      {"abcabc", "bc",   0U,          "1"  },
      {"abcabc", "bc",   1U,          "1"  },
      {"abcabc", "bc",   2U,          "4"  },
      {"abcabc", "bc",   5U,          "nan"},
      {"abcabc", "bc",   6U,          "nan"},
      {"abcabc", "bc",   99U,         "nan"}, // past the end there is nothing, and no error
      {"abcabc", "x",    0U,          "nan"},
      {"abc",    "abcd", 0U,          "nan"},
      {"abc",    "B",    0U,          "nan"},
      {"",       "a",    0U,          "nan"},
      {"abcabc", "bc",   s_uint::NaN, "nan"},
      {"abcabc", "bc",   s_uint::INF, "nan"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Dump(Str(row.text).Find(row.pattern, row.from)), row.position)
        << row.text << " " << row.pattern << " " << Dump(row.from);
  }
  EXPECT_EQ(Dump(Str("abcabc").Find("c")), "2");
}

TYPED_TEST(SStr, ContainsStartsWithAndEndsWithCompareParts) {
  using Str = s_str_t<TypeParam>;
  const struct {
    const char *text, *part;
    bool contains, starts, ends;
  } kRows[] = {
      {"abcab", "ab",     true,  true,  true },
      {"abcab", "abc",    true,  true,  false},
      {"abcab", "bca",    true,  false, false},
      {"abcab", "cab",    true,  false, true },
      {"abcab", "abcab",  true,  true,  true },
      {"abcab", "abcabx", false, false, false}, // longer than the text
      {"abcab", "xabcab", false, false, false},
      {"abcab", "AB",     false, false, false},
      {"abcab", "",       true,  true,  true },
      {"",      "a",      false, false, false},
  };
  for (const auto& row : kRows) {
    const Str text = row.text;
    EXPECT_EQ(bool(text.Contains(row.part)), row.contains) << row.part;
    EXPECT_EQ(bool(text.StartsWith(row.part)), row.starts) << row.part;
    EXPECT_EQ(bool(text.EndsWith(row.part)), row.ends) << row.part;
  }
}

TYPED_TEST(SStr, ExtractsByCountAndByEnd) {
  using Str = s_str_t<TypeParam>;
  const struct {
    s_uint start, number;
    const char *by_count, *by_end;
  } kRows[] = {
      {0U, 2U,          "ab",    "ab"   },
      {1U, 3U,          "bcd",   "bc"   },
      {1U, 1U,          "b",     ""     },
      {2U, 0U,          "",      "cde"  }, // an end before the start: the difference wraps
      {3U, 99U,         "de",    "de"   },
      {0U, s_uint::INF, "abcde", "abcde"},
      {2U, s_uint::NaN, "cde",   "cde"  },
      {5U, 1U,          "",      ""     }, // just past the last character is allowed
      {5U, s_uint::INF, "",      ""     },
  };
  const Str text = "abcde";
  for (const auto& row : kRows) {
    SCOPED_TRACE(Dump(row.start) + " " + Dump(row.number));
    EXPECT_EQ(Dump(text.ExtractCount(row.start, row.number)), row.by_count);
    EXPECT_EQ(Dump(text.Extract(row.start, row.number)), row.by_end);
  }
}

TYPED_TEST(SStr, ExtractFromPastTheEndRaisesTheRangeError) {
  const s_str_t<TypeParam> text = "abcde";
  for (s_uint start : {s_uint(6U), s_uint(4294967295U), s_uint::NaN, s_uint::INF}) {
    EXPECT_EQ(RangeErrorOf([&] { text.ExtractCount(start, 1U); }), RangeErrorIn("substr"));
    EXPECT_EQ(RangeErrorOf([&] { text.Extract(start, s_uint::INF); }), RangeErrorIn("substr"));
  }
}

TYPED_TEST(SStr, ExtractUpToAPatternThatIsAbsentGivesTheWholeText) {
  const s_str_t<TypeParam> text = "abc";
  EXPECT_EQ(Dump(text.Extract(0U, text.Find("x"))), "abc");
}

TYPED_TEST(SStr, TakeLeavesTheTextEmpty) {
  s_str_t<TypeParam> text = "abc";
  EXPECT_TRUE(text.Take() == s_str_t<TypeParam>("abc").Get());
  EXPECT_TRUE(text.IsEmpty());
  text = "abc";
  text.Clear();
  EXPECT_TRUE(text.IsEmpty());
}

TYPED_TEST(SStr, IteratesFrontToBack) {
  const s_str_t<TypeParam> text = "abc";
  std::string seen;
  for (TypeParam character : text) seen += static_cast<char>(character);
  EXPECT_EQ(seen, "abc");
}

TYPED_TEST(SStr, IsNumberWhenItBeginsWithOne) {
  using Str = s_str_t<TypeParam>;
  for (const char* text : {"1", "12abc", " 1", "\t\n1", "-1", "+1", ".5", "5.", "1e3", "1 2", "1,2",
                           "0x10", "-.5e-3z", "1e-400", "00"}) {
    EXPECT_TRUE(Str(text).IsNumber()) << text;
  }
  for (const char* text :
       {"",    " ",  "abc", "a1",  "-",   "+",   ".",    "-.",    "e5",     "--1", "+-1",
        "- 1", "1e", "1e+", "1ex", "nan", "inf", "inf+", "1e999", "-1e999", ",1"}) {
    EXPECT_FALSE(Str(text).IsNumber()) << text;
  }
}

TYPED_TEST(SStr, IsBooleanForSixWordsAlone) {
  using Str = s_str_t<TypeParam>;
  for (const char* text : {"false", "true", "0", "1", "no", "yes"}) {
    EXPECT_TRUE(Str(text).IsBoolean()) << text;
  }
  for (const char* text : {"", "Yes", "yes ", " yes", "TRUE", "00", "2", "n", "nope", "tru"}) {
    EXPECT_FALSE(Str(text).IsBoolean()) << text;
  }
}

}  // namespace
}  // namespace Quarn
