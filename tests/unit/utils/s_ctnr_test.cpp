// Tests of s_ctnr: a sequence with value semantics that can be destroyed through its base.
#include "utils/s_ctnr.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "utils/s_refptr.h"
#include "utils/s_str.h"

namespace Quarn {
namespace {

using Words = s_ctnr<s_str>;

std::string Join(const Words& words) {
  std::string joined;
  for (const s_str& word : words) joined += word.Get() + "|";
  return joined;
}

TEST(SCtnr, IsEmptyUntilSomethingIsAppended) {
  Words words;
  EXPECT_TRUE(words.IsEmpty());
  EXPECT_TRUE(words.GetSize().IsNull());
  words.PushBack("a");
  EXPECT_FALSE(words.IsEmpty());
  EXPECT_EQ(words.GetSize().Get(), 1U);
}

TEST(SCtnr, KeepsTheOrderOfAppending) {
  Words words;
  words.PushBack("a");
  words.PushBack("b");
  words.PushBack("a");
  EXPECT_EQ(Join(words), "a|b|a|");
  EXPECT_EQ(words[0U].Get(), "a");
  EXPECT_EQ(words[1U].Get(), "b");
}

TEST(SCtnr, AppendsItsOwnElement) {
  Words words = {"a"};
  for (int i = 0; i < 100; ++i) words.PushBack(words[0U]);
  EXPECT_EQ(words[100U].Get(), "a");
}

TEST(SCtnr, ElementsCanBeChanged) {
  Words words = {"a", "b"};
  words[0U] = "c";
  for (s_str& word : words) word += "!";
  EXPECT_EQ(Join(words), "c!|b!|");
}

TEST(SCtnr, AnIndexIsOfAnyIntegralType) {
  Words words = {"a", "b"};
  const Words& fixed = words;
  words[0] = "c";
  EXPECT_EQ(fixed[0].Get(), "c");
  EXPECT_EQ(fixed[std::size_t{1}].Get(), "b");
  EXPECT_EQ(fixed[s_uint(1U)].Get(), "b");
  EXPECT_THROW(words[-1], std::out_of_range);
  EXPECT_THROW(fixed[2], std::out_of_range);
  EXPECT_THROW(fixed[std::size_t{1} << 31], std::out_of_range);
}

TEST(SCtnr, AnIndexPastTheEndRaisesTheRangeError) {
  Words words = {"a", "b"};
  const Words& fixed = words;
  for (s_uint index : {s_uint(2U), s_uint(4294967295U), s_uint::NaN, s_uint::INF}) {
    EXPECT_THROW(words[index], std::out_of_range);
    EXPECT_THROW(fixed[index], std::out_of_range);
  }
}

TEST(SCtnr, RemovesFromTheBack) {
  Words words = {"a", "b"};
  words.PopBack();
  EXPECT_EQ(Join(words), "a|");
}

TEST(SCtnr, ErasesByIndex) {
  const struct {
    s_uint index;
    const char* rest;
  } kRows[] = {
      {0U,          "b|c|"  },
      {1U,          "a|c|"  },
      {2U,          "a|b|"  },
      {3U,          "a|b|c|"}, // past the end: nothing to remove
      {s_uint::NaN, "a|b|c|"},
      {s_uint::INF, "a|b|c|"},
  };
  for (const auto& row : kRows) {
    Words words = {"a", "b", "c"};
    words.Erase(row.index);
    EXPECT_EQ(Join(words), row.rest);
  }
}

TEST(SCtnr, ClearRemovesAll) {
  Words words = {"a", "b"};
  words.Clear();
  EXPECT_TRUE(words.IsEmpty());
  EXPECT_EQ(Join(words), "");
}

TEST(SCtnr, ACopyIsIndependent) {
  Words words = {"a", "b"};
  Words copy = words;
  copy[0U] = "x";
  copy.PushBack("c");
  EXPECT_EQ(Join(words), "a|b|");
  EXPECT_EQ(Join(copy), "x|b|c|");
  copy = words;
  EXPECT_EQ(Join(copy), "a|b|");
}

TEST(SCtnr, AMovedContainerTakesTheElementsAlong) {
  Words words = {"a", "b"};
  const s_str* first = &words[0U];
  const Words moved = std::move(words);
  EXPECT_EQ(&moved[0U], first);
}

TEST(SCtnr, ACopyThatDiesLeavesTheCountsAsTheyWere) {
  const s_refptr<int> shared(new int(5));
  s_ctnr<s_refptr<int>> values = {shared, s_refptr<int>(new int(6))};
  EXPECT_EQ(shared.GetCount(), 2U);
  {
    const s_ctnr<s_refptr<int>> copy = values;
    EXPECT_EQ(shared.GetCount(), 3U);
    EXPECT_EQ(values[1U].GetCount(), 2U);
    EXPECT_EQ(copy[0U].Get(), shared.Get());
  }
  EXPECT_EQ(shared.GetCount(), 2U);
  EXPECT_EQ(values[1U].GetCount(), 1U);
  values.Clear();
  EXPECT_EQ(shared.GetCount(), 1U);
}

TEST(SCtnr, CanBeDestroyedThroughItsBase) {
  using Base = s_ctnr_t<s_refptr<int>, std::deque<s_refptr<int>>>;
  static_assert(std::has_virtual_destructor_v<Base>);
  const s_refptr<int> shared(new int(5));
  std::unique_ptr<Base> base = std::make_unique<s_ctnr<s_refptr<int>>>();
  base->PushBack(shared);
  EXPECT_EQ(shared.GetCount(), 2U);
  base.reset();
  EXPECT_EQ(shared.GetCount(), 1U);
}

TEST(SCtnr, HoldsEveryKindOfElementInUse) {
  s_ctnr<s_uint> numbers = {1U, s_uint::NaN};
  EXPECT_TRUE(numbers[1U].IsNaN());
  s_ctnr<s_ustr> wide = {"a"};
  EXPECT_EQ(wide[0U].GetSize().Get(), 1U);
}

}  // namespace
}  // namespace Quarn
