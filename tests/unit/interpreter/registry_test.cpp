// Tests of the registries: their order, and what a row may leave out.
#include "interpreter/registry.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace Quarn {
namespace {

TEST(Registry, WalksItsKeysInAscendingOrder) {
  Registry<int> registry;
  for (const char* key : {"b", "(Scalar, Scalar)", "a", "()", "B", "ab", "(Scalar)", ""}) {
    registry[key] = 1;
  }
  std::string keys;
  for (const auto& [key, value] : registry) keys += key.Get() + "|";
  EXPECT_EQ(keys, "|()|(Scalar)|(Scalar, Scalar)|B|a|ab|b|");
}

TEST(Registry, IsAskedWithTextsOfAnyKind) {
  Registry<int> registry;
  registry["Scalar"] = 7;
  const std::string_view part = std::string_view("Scalars").substr(0, 6);
  EXPECT_EQ(registry.find(part)->second, 7);
  EXPECT_EQ(registry.find(s_str("Scalar"))->second, 7);
  for (const char* absent : {"", "scalar", "Scalar ", "Scala"}) {
    EXPECT_EQ(registry.find(std::string_view(absent)), registry.end()) << absent;
  }
}

TEST(Registry, ATypeNeedsNothingButANameAndACreator) {
  const TypeRow row = {"Nameless",
                       [](const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); }};
  EXPECT_EQ(row.create("x")->ToString().Get(), "x");
  EXPECT_EQ(row.is_literal, nullptr);
  EXPECT_EQ(row.create_from, nullptr);
  EXPECT_EQ(row.read_number, nullptr);
  EXPECT_EQ(row.create_list, nullptr);
  EXPECT_TRUE(row.literal_starts.IsEmpty());
}

}  // namespace
}  // namespace Quarn
