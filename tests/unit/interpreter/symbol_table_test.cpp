// Tests of SymbolTable: names and their values.
#include "interpreter/symbol_table.h"

#include <gtest/gtest.h>

#include "tests/support/dump.h"

namespace Quarn {
namespace {

s_refptr<Symbol> New(const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); }

TEST(SymbolTable, FindsNothingInTheBeginning) {
  const SymbolTable symbols;
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
  EXPECT_EQ(symbols.Find("a")->Get(), value.Get());
  EXPECT_TRUE(symbols.Contains("a"));
  EXPECT_EQ(symbols.GetSize().Get(), 1U);
  for (const char* other : {"", "A", "a ", " a", "aa"}) EXPECT_FALSE(symbols.Contains(other));
}

TEST(SymbolTable, ANewValueTakesThePlaceOfTheOld) {
  SymbolTable symbols;
  const s_refptr<Symbol> old = New("old");
  symbols.Set("a", old);
  symbols.Set("a", New("new"));
  EXPECT_EQ((*symbols.Find("a"))->ToString().Get(), "new");
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
  const s_refptr<Symbol>* found = symbols.Find("a");
  for (int i = 0; i < 1000; ++i) symbols.Set(std::to_string(i), New("x"));
  EXPECT_EQ(symbols.Find("a"), found);
  EXPECT_EQ((*found)->ToString().Get(), "a");
}

}  // namespace
}  // namespace Quarn
