// Tests of the hash of texts: equal texts of any kind meet, and names spread.
#include "utils/text_hash.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <unordered_map>

namespace Quarn {
namespace {

TEST(TextHash, TableIsAskedWithTextsOfAnyKind) {
  std::unordered_map<s_str, int, TextHash, TextEqual> table;
  table[s_str("abc")] = 7;
  EXPECT_EQ(table.find(std::string_view("abcd").substr(0, 3))->second, 7);
  EXPECT_EQ(table.find(s_str("abc"))->second, 7);
  for (const char* absent : {"", "ab", "abcd", "ABC"}) {
    EXPECT_TRUE(table.find(std::string_view(absent)) == table.end()) << absent;
  }
}

TEST(TextHash, NamesThatDifferLittleSpread) {
  std::set<std::size_t> places;
  for (int i = 0; i < 1000; ++i) places.insert(TextHash()(s_str("v" + std::to_string(i))) % 1024);
  // A thousand balls thrown at 1024 boxes leave about 640 of them with one.
  EXPECT_GT(places.size(), 500U);
}

}  // namespace
}  // namespace Quarn
