// Tests of the character classes: every character has the class of the tables that name it.
#include "interpreter/character_class.h"

#include <gtest/gtest.h>

#include <string>

namespace Quarn {
namespace {

std::string CharactersOf(CharacterClass kind) {
  std::string characters;
  for (int code = 0; code < 256; ++code) {
    if (Classify(static_cast<char>(code)) == kind) characters += static_cast<char>(code);
  }
  return characters;
}

TEST(CharacterClass, NamesEachCharacterOnce) {
  EXPECT_EQ(CharactersOf(CharacterClass::kBlank), " ");
  EXPECT_EQ(CharactersOf(CharacterClass::kComma), ",");
  EXPECT_EQ(CharactersOf(CharacterClass::kOperator), "!*+-/^");
  EXPECT_EQ(CharactersOf(CharacterClass::kOpen), "(<[");
  EXPECT_EQ(CharactersOf(CharacterClass::kClose), ")>]");
  EXPECT_EQ(CharactersOf(CharacterClass::kOther).size(), 256U - 1 - 1 - 6 - 3 - 3);
}

TEST(CharacterClass, BracketsComeLast) {
  EXPECT_LT(CharacterClass::kOperator, CharacterClass::kOpen);
  EXPECT_LT(CharacterClass::kOpen, CharacterClass::kClose);
}

}  // namespace
}  // namespace Quarn
