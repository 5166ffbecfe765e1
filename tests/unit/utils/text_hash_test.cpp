// Tests of the hash of texts: equal texts of any kind meet, names spread, and nobody outside of the
// process can tell where.
#include "utils/text_hash.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

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

TEST(TextHash, IsTheSameForAllTablesOfAProcess) {
  for (const char* text : {"", "a", "abcdefgh", "abcdefghijklmnopqrstuvwxyz"}) {
    EXPECT_EQ(TextHash()(std::string_view(text)), TextHash()(s_str(text))) << text;
  }
}

// Whatever their size: the bytes are read in words that may overlap.
TEST(TextHash, EveryByteAndTheSizeCount) {
  const TextHash hash;
  std::set<std::size_t> hashes;
  std::size_t count = 0;
  for (std::size_t size = 0; size <= 70; ++size) {
    std::string text(size, 'a');
    hashes.insert(hash(std::string_view(text)));
    ++count;
    for (char& c : text) {
      for (const char other : {'b', '\0', '\xFF'}) {
        c = other;
        hashes.insert(hash(std::string_view(text)));
        ++count;
      }
      c = 'a';
    }
  }
  EXPECT_EQ(hashes.size(), count);
}

// How many of 1024 places five hundred texts take. Thrown at random, they take about 396.
std::size_t CountPlaces(const std::vector<std::string>& texts, const TextHash& hash) {
  EXPECT_EQ(texts.size(), 500U);
  std::set<std::size_t> places;
  for (const std::string& text : texts) places.insert(hash(std::string_view(text)) % 1024);
  return places.size();
}
constexpr std::size_t kFewPlaces = 340;

TEST(TextHash, NamesThatDifferLittleSpread) {
  for (const char* start : {"v", "name", "aVeryLongNameThatIsTheSameForAll"}) {
    std::vector<std::string> names;
    for (int i = 0; i < 500; ++i) names.push_back(start + std::to_string(i));
    EXPECT_GT(CountPlaces(names, TextHash()), kFewPlaces) << start;
  }
}

// Five hundred names to which `hash` gives the same low ten bits.
template <class Hash>
std::vector<std::string> Craft(const Hash& hash, std::string_view start) {
  std::vector<std::string> names;
  for (std::size_t i = 0; names.size() < 500; ++i) {
    const std::string name = std::string(start) + std::to_string(i);
    if (hash(std::string_view(name)) % 1024 == 0) names.push_back(name);
  }
  return names;
}

// A script may have been written with names that fall together in a hash that is known.
TEST(TextHash, NamesCraftedForAHashWithoutAKeySpread) {
  const auto known = [](std::string_view text) {
    std::uint64_t hash = 0;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x9E3779B97F4A7C15U;
    return hash ^ (hash >> 32);
  };
  EXPECT_GT(CountPlaces(Craft(known, "v"), TextHash()), kFewPlaces);
}

TEST(TextHash, NamesCraftedForOneKeySpreadUnderAnother) {
  const TextHash::Key key = {0x243F6A8885A308D3U, 0x13198A2E03707344U, 0xA4093822299F31D0U,
                             0x082EFA98EC4E6C89U};
  for (const char* start : {"v", "nameOfAScript", "aVeryLongNameThatIsTheSameForAll"}) {
    const std::vector<std::string> names = Craft(TextHash(key), start);
    EXPECT_EQ(CountPlaces(names, TextHash(key)), 1U);
    EXPECT_GT(CountPlaces(names, TextHash()), kFewPlaces) << start;
    for (std::size_t i = 0; i < key.size(); ++i) {
      TextHash::Key other = key;
      other[i] ^= 0x5555555555555555U;  // each part of the key matters
      EXPECT_GT(CountPlaces(names, TextHash(other)), kFewPlaces) << start << " " << i;
    }
  }
}

// The child begins anew, and looks at the hash that its parent had.
TEST(TextHashDeathTest, TheKeyIsAnotherInEveryProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto hash = [] { return std::to_string(TextHash()(std::string_view("name"))); };
  setenv("MIRLOW_HASH_OF_PARENT", hash().c_str(), 0);
  const std::string of_parent = std::getenv("MIRLOW_HASH_OF_PARENT");
  EXPECT_EXIT(std::exit(hash() == of_parent ? 1 : 0), testing::ExitedWithCode(0), "");
  unsetenv("MIRLOW_HASH_OF_PARENT");
}

}  // namespace
}  // namespace Quarn
