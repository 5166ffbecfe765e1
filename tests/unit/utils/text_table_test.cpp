// Tests of the table of texts with hashes of the test's own, so that entries meet as they never
// would: what is found, and that what is left stays found when others go.
#include "utils/text_table.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Quarn {
namespace {

struct Entry {
  std::string_view GetText() const { return text; }

  std::string text;
  std::uint32_t hash;
};

TEST(TextTable, FindsWhatHasTheTextAndTheHash) {
  TextTable<Entry> table;
  Entry a{"a", 5};
  Entry b{"b", 5};
  for (Entry* entry : {&a, &b}) {
    EXPECT_EQ(table.Find(entry->text, 5), nullptr);
    table.MakeRoom();
    table.Add(*entry, 5);
  }
  EXPECT_EQ(table.Find("a", 5), &a);
  EXPECT_EQ(table.Find("b", 5), &b);
  EXPECT_EQ(table.Find("c", 5), nullptr);
  EXPECT_EQ(table.Find("a", 6), nullptr);
  EXPECT_EQ(table.GetSize(), 2U);
}

TEST(TextTable, HashesTextsOfAllLengths) {
  const TextTable<Entry> table;
  EXPECT_EQ(table.Hash("abc"), table.Hash(std::string("abc")));
  std::set<std::uint32_t> hashes;
  for (const char* text : {"", "a", "abcd", "abcdefgh", "abcdefghijklmnopq"}) {
    hashes.insert(table.Hash(text));
  }
  EXPECT_EQ(hashes.size(), 5U);
}

// 300 entries have 7 hashes, which lie at the end of the table, so that they go on at its
// beginning.
TEST(TextTable, KeepsWhatIsLeftWhenOthersGo) {
  TextTable<Entry> table;
  std::vector<Entry> entries;
  for (std::uint32_t i = 0; i < 300; ++i) {
    entries.push_back({std::to_string(i), 0xFFFFFFFFU - i % 7});
  }
  std::set<const Entry*> inside;
  std::mt19937 random(1);
  for (int step = 0; step < 3000; ++step) {
    Entry& entry = entries[random() % entries.size()];
    if (inside.insert(&entry).second) {
      table.MakeRoom();
      table.Add(entry, entry.hash);
    } else {
      table.Remove(entry, entry.hash);
      inside.erase(&entry);
    }
    ASSERT_EQ(table.GetSize(), inside.size());
    const Entry& other = entries[random() % entries.size()];
    ASSERT_EQ(table.Find(other.text, other.hash) == &other, inside.contains(&other)) << step;
  }
  std::set<const Entry*> visited;
  table.ForEach([&](const Entry& entry) { EXPECT_TRUE(visited.insert(&entry).second); });
  EXPECT_EQ(visited, inside);
}

TEST(TextTable, IsEmptyAgainAndMayBeFilledAgain) {
  TextTable<Entry> table;
  Entry entry{"x", 1};
  for (int round = 0; round < 2; ++round) {
    table.MakeRoom();
    table.Add(entry, 1);
    table.ShrinkIfEmpty();
    EXPECT_EQ(table.Find("x", 1), &entry);
    table.Remove(entry, 1);
    table.ShrinkIfEmpty();
    EXPECT_EQ(table.Find("x", 1), nullptr);
  }
}

}  // namespace
}  // namespace Quarn
