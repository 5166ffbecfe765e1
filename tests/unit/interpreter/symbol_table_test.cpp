// Tests of SymbolTable: names and their values.
#include "interpreter/symbol_table.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <random>
#include <string>

#include "interpreter/core.h"
#include "interpreter/state.h"
#include "tests/support/dump.h"
#include "utils/text_hash.h"

namespace Quarn {
namespace {

s_refptr<Symbol> New(const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); }

// The text of a symbol's value; "-" when there is none.
std::string TextOf(SymbolTable& symbols, std::string_view name) {
  Name* found = symbols.Find(name);
  return found ? symbols.GetObject(*found)->ToString().Get() : "-";
}

TEST(SymbolTable, FindsNothingInTheBeginning) {
  SymbolTable symbols;
  EXPECT_TRUE(symbols.GetSize().IsNull());
  EXPECT_EQ(symbols.Find("a"), nullptr);
  EXPECT_EQ(symbols.Find(""), nullptr);
  EXPECT_FALSE(symbols.Contains("a"));
  EXPECT_EQ(symbols.Find("_"), nullptr);
  EXPECT_EQ(Dump(symbols.GetNames()), "");
}

TEST(SymbolTable, FindsWhatWasSet) {
  SymbolTable symbols;
  const s_refptr<Symbol> value = New("a");
  symbols.Set("a", value);
  ASSERT_NE(symbols.Find("a"), nullptr);
  EXPECT_EQ(symbols.GetObject(*symbols.Find("a")).Get(), value.Get());
  EXPECT_TRUE(symbols.Contains("a"));
  EXPECT_EQ(symbols.GetSize().Get(), 1U);
  for (const char* other : {"", "A", "a ", " a", "aa"}) EXPECT_FALSE(symbols.Contains(other));
}

TEST(SymbolTable, ANameThatAProgramUsesNeedsNoValue) {
  SymbolTable symbols;
  Name* name = symbols.Bind("a");
  symbols.Set("b", New("b"));
  EXPECT_EQ(symbols.Find("a"), nullptr);
  EXPECT_EQ(Dump(symbols.GetNames()), "b|");
  symbols.Clear();
  EXPECT_EQ(Dump(symbols.GetNames()), "");
  symbols.Set("a", New("c"));
  EXPECT_EQ(symbols.Find("a"), name);
  symbols.Release(*name);
  EXPECT_EQ(Dump(symbols.GetNames()), "a|");
}

TEST(SymbolTable, ANewValueTakesThePlaceOfTheOld) {
  SymbolTable symbols;
  const s_refptr<Symbol> old = New("old");
  symbols.Set("a", old);
  symbols.Set("a", New("new"));
  EXPECT_EQ(TextOf(symbols, "a"), "new");
  EXPECT_EQ(symbols.GetSize().Get(), 1U);
  EXPECT_EQ(old.GetCount(), 1U);
}

TEST(SymbolTable, ANameNeedNotBeThatOfItsValue) {
  SymbolTable symbols;
  symbols.Set("_", New("a"));
  EXPECT_TRUE(symbols.Contains("_"));
  EXPECT_FALSE(symbols.Contains("a"));
}

TEST(SymbolTable, TheEmptyNameIsAName) {
  SymbolTable symbols;
  symbols.Set("", New("a"));
  EXPECT_TRUE(symbols.Contains(""));
  symbols.Erase("");
  EXPECT_FALSE(symbols.Contains(""));
}

TEST(SymbolTable, ErasesOneNameAlone) {
  SymbolTable symbols;
  const s_refptr<Symbol> value = New("a");
  symbols.Set("a", value);
  symbols.Set("b", New("b"));
  symbols.Erase("a");
  symbols.Erase("a");
  symbols.Erase("nothing");
  EXPECT_EQ(Dump(symbols.GetNames()), "b|");
  EXPECT_EQ(value.GetCount(), 1U);
}

// The index closes up behind what goes, so each name must still be found, whatever stood before it.
TEST(SymbolTable, ComesAndGoesLikeAMap) {
  SymbolTable symbols;
  std::map<std::string, std::string> map;
  std::mt19937 random(1);
  for (int i = 0; i < 20000; ++i) {
    const std::string name = std::to_string(random() % 300);
    if (random() % 2 == 0) {
      symbols.Set(name, New(s_str(std::to_string(i))));
      map[name] = std::to_string(i);
    } else {
      symbols.Erase(name);
      map.erase(name);
    }
    ASSERT_EQ(symbols.GetSize().Get(), map.size());
    if (i % 100 != 0) continue;
    for (int j = 0; j < 300; ++j) {
      const auto found = map.find(std::to_string(j));
      ASSERT_EQ(TextOf(symbols, std::to_string(j)), found == map.end() ? "-" : found->second)
          << j << " after " << i;
    }
  }
}

// The table compares names where their hashes, of which it keeps 32 bits, do not tell them apart.
TEST(SymbolTable, TellsNamesOfTheSameHashApart) {
  std::map<std::uint32_t, std::string> names;
  std::string first, second;
  for (int i = 0; i < 1'000'000 && second.empty(); ++i) {
    const std::string name = "v" + std::to_string(i);
    const auto hash = static_cast<std::uint32_t>(TextHash()(std::string_view(name)));
    const auto [known, is_new] = names.try_emplace(hash, name);
    if (!is_new) {
      first = known->second;
      second = name;
    }
  }
  ASSERT_FALSE(second.empty());
  SymbolTable symbols;
  symbols.Set(first, New("first"));
  EXPECT_FALSE(symbols.Contains(second));
  symbols.Set(second, New("second"));
  EXPECT_EQ(TextOf(symbols, first), "first");
  EXPECT_EQ(TextOf(symbols, second), "second");
  symbols.Erase(first);
  EXPECT_FALSE(symbols.Contains(first));
  EXPECT_EQ(TextOf(symbols, second), "second");
}

TEST(SymbolTable, MayBeFilledAgainAfterItWasCleared) {
  SymbolTable symbols;
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < 100; ++i) symbols.Set(std::to_string(i), New("x"));
    EXPECT_EQ(symbols.GetSize().Get(), 100U);
    symbols.Clear();
    EXPECT_FALSE(symbols.Contains("7"));
  }
}

TEST(SymbolTable, ClearLeavesNothing) {
  SymbolTable symbols;
  const s_refptr<Symbol> value = New("a");
  symbols.Set("a", value);
  symbols.Set("_", value);
  symbols.Clear();
  EXPECT_TRUE(symbols.GetSize().IsNull());
  EXPECT_EQ(value.GetCount(), 1U);
}

TEST(SymbolTable, NamesComeInAscendingOrder) {
  SymbolTable symbols;
  for (const char* name : {"b", "ab", "B", "_", "a", "10", "2", ""}) symbols.Set(name, New(name));
  EXPECT_EQ(Dump(symbols.GetNames()), "|10|2|B|_|a|ab|b|");
}

TEST(SymbolTable, WhatWasFoundStaysWhileOthersCome) {
  SymbolTable symbols;
  symbols.Set("a", New("a"));
  const Name* found = symbols.Find("a");
  for (int i = 0; i < 1000; ++i) symbols.Set(std::to_string(i), New("x"));
  EXPECT_EQ(symbols.Find("a"), found);
  EXPECT_EQ(found->object->ToString().Get(), "a");
}

TEST(SymbolTable, ANumberIsNoObjectUntilSomebodyAsks) {
  SymbolTable symbols;
  symbols.SetNumber("x", 2.5, true);
  symbols.SetNumber("y", 3, false);
  EXPECT_TRUE(symbols.Find("x")->IsNumber());
  EXPECT_EQ(symbols.GetNameOfValue(*symbols.Find("x")), "x");
  EXPECT_EQ(symbols.GetNameOfValue(*symbols.Find("y")), "");
  const s_refptr<Symbol> object = symbols.GetObject(*symbols.Find("x"));
  EXPECT_EQ(object->ToString().Get(), "x = 2.5");
  EXPECT_EQ(symbols.GetObject(*symbols.Find("x")).Get(), object.Get());
  EXPECT_EQ(TextOf(symbols, "y"), "3");
}

TEST(SymbolTable, AReferenceIsNoObjectUntilSomebodyAsks) {
  State state;
  SymbolTable& symbols = state.GetCore().symbols;
  const CellPtr cell = state.GetCore().machine.GetCell("1+2");
  EXPECT_EQ(symbols.ReplaceByReference("r", cell).Get(), nullptr);
  ASSERT_TRUE(symbols.Find("r")->IsReference());
  EXPECT_EQ(symbols.Find("r")->cell, cell.Get());
  EXPECT_EQ(symbols.GetNameOfValue(*symbols.Find("r")), "r");
  const s_refptr<Symbol> object = symbols.GetObject(*symbols.Find("r"));
  EXPECT_FALSE(symbols.Find("r")->IsReference());
  EXPECT_EQ(object->GetName().Get(), "r");
  EXPECT_EQ(object->ToString().Get(), "r = 3");
  EXPECT_EQ(symbols.GetObject(*symbols.Find("r")).Get(), object.Get());
}

TEST(SymbolTable, AReferenceWithoutACellIsANullReference) {
  State state;
  SymbolTable& symbols = state.GetCore().symbols;
  symbols.ReplaceByReference("r", CellPtr());
  EXPECT_TRUE(symbols.Contains("r"));
  EXPECT_EQ(TextOf(symbols, "r"), "null");
}

TEST(SymbolTable, ReplacingTellsWhatWasThere) {
  State state;
  SymbolTable& symbols = state.GetCore().symbols;
  const CellPtr cell = state.GetCore().machine.GetCell("1+2");
  symbols.SetNumber("x", 5, true);
  EXPECT_EQ(symbols.ReplaceByReference("x", cell)->ToString().Get(), "x = 5");
  EXPECT_EQ(symbols.Replace("x", New("y"))->ToString().Get(), "x = 3");
  EXPECT_EQ(symbols.ReplaceByReference("x", cell)->ToString().Get(), "y");
  EXPECT_EQ(symbols.ReplaceByReference("x", cell)->ToString().Get(), "x = 3");
}

TEST(SymbolTable, AReferenceGoesWithItsCell) {
  State state;
  SymbolTable& symbols = state.GetCore().symbols;
  const auto replace = [&](std::string_view how) {
    if (how == "number") symbols.SetNumber("r", 1, true);
    if (how == "object") symbols.Set("r", New("r"));
    if (how == "erased") symbols.Erase("r");
    if (how == "cleared") symbols.Clear();
  };
  for (const char* how : {"number", "object", "erased", "cleared"}) {
    const CellPtr cell = state.GetCore().machine.GetCell("1+2");
    symbols.ReplaceByReference("r", cell);
    EXPECT_EQ(cell.GetCount(), 2U) << how;
    replace(how);
    EXPECT_EQ(cell.GetCount(), 1U) << how;
    symbols.Erase("r");
  }
}

TEST(SymbolTable, TheLastReferenceMayBearTheNameOfASymbol) {
  State state;
  SymbolTable& symbols = state.GetCore().symbols;
  symbols.SetLastReference(state.GetCore().machine.GetCell("1+2"), "x");
  EXPECT_EQ(TextOf(symbols, "_"), "x = 3");
  symbols.SetLastReference({});
  EXPECT_EQ(TextOf(symbols, "_"), "null");
}

TEST(SymbolTable, TheLastResultMayBearTheNameOfASymbol) {
  SymbolTable symbols;
  symbols.SetLastResult(Operand(2), "x");
  EXPECT_EQ(TextOf(symbols, "_"), "x = 2");
  symbols.SetLastResult(Operand(3));
  EXPECT_EQ(TextOf(symbols, "_"), "3");
}

TEST(SymbolTable, KeepsANameWithoutAValueWhileAProgramUsesIt) {
  SymbolTable symbols;
  Name* name = symbols.Bind("x");
  EXPECT_FALSE(name->HasValue());
  EXPECT_FALSE(symbols.Contains("x"));
  EXPECT_TRUE(symbols.GetSize().IsNull());
  symbols.SetNumber("x", 1, true);
  EXPECT_EQ(symbols.Find("x"), name);
  symbols.Erase("x");
  EXPECT_EQ(symbols.Bind("x"), name);
  symbols.Release(*name);
  symbols.Release(*name);
  EXPECT_EQ(Dump(symbols.GetNames()), "");
}

}  // namespace
}  // namespace Quarn
