// Tests of the table of operators: what is in it, and what is not.
#include "interpreter/priorities.h"

#include <gtest/gtest.h>

#include <string>

namespace Quarn {
namespace {

unsigned int PriorityOf(std::string_view op) { return kPriorities[FindOperator(op)].priority; }

TEST(Priorities, HoldsSevenOperators) {
  std::string dump;
  for (const OperatorPriority& row : kPriorities) {
    dump += std::string(row.text) + std::to_string(row.priority) + " ";
  }
  EXPECT_EQ(dump, "[]5 !4 ^3 *2 /2 +1 -1 ");
  EXPECT_EQ(kOperators, 7U);
}

TEST(Priorities, IndexingBindsTightestAndSumsLoosest) {
  EXPECT_GT(PriorityOf("[]"), PriorityOf("!"));
  EXPECT_GT(PriorityOf("!"), PriorityOf("^"));
  EXPECT_GT(PriorityOf("^"), PriorityOf("*"));
  EXPECT_GT(PriorityOf("*"), PriorityOf("+"));
}

TEST(Priorities, ProductsTieAndSumsTie) {
  EXPECT_EQ(PriorityOf("*"), PriorityOf("/"));
  EXPECT_EQ(PriorityOf("+"), PriorityOf("-"));
}

TEST(Priorities, OtherTextsAreNoOperators) {
  for (const char* text : {"",  "[", "]", "[[", "[]]", "][", " ", "++", "+ ", " +",
                           "%", "=", "<", ">",  "(",   ")",  ",", "&",  "a",  "\xFF"}) {
    EXPECT_EQ(FindOperator(text), kOperators) << text;
  }
}

// Tables that would compile and evaluate wrongly.
TEST(Priorities, WhatTheScannerReliesOnIsChecked) {
  constexpr OperatorPriority kGood[] = {
      {"[]", 2},
      {"+",  1}
  };
  constexpr OperatorPriority kOfParentheses[] = {
      {"[]", 2},
      {"+",  0}
  };
  constexpr OperatorPriority kTooTight[] = {
      {"[]", 256},
      {"+",  1  }
  };
  constexpr OperatorPriority kNoIndexing[] = {
      {"+", 1}
  };
  constexpr OperatorPriority kIndexingLast[] = {
      {"+",  1},
      {"[]", 2}
  };
  constexpr OperatorPriority kLong[] = {
      {"[]", 2},
      {"**", 1}
  };
  constexpr OperatorPriority kEmpty[] = {
      {"[]", 2},
      {"",   1}
  };
  constexpr OperatorPriority kTwice[] = {
      {"[]", 2},
      {"+",  1},
      {"+",  2}
  };
  static_assert(IsSound(kGood));
  static_assert(!IsSound(kOfParentheses));
  static_assert(!IsSound(kTooTight));
  static_assert(!IsSound(kNoIndexing));
  static_assert(!IsSound(kIndexingLast));
  static_assert(!IsSound(kLong));
  static_assert(!IsSound(kEmpty));
  static_assert(!IsSound(kTwice));
  for (char c : std::string_view("()<>[], ._=;:&~?0a9zAZ")) {
    const OperatorPriority taken[] = {
        {"[]", 2},
        { std::string_view(&c,  1), 1}
    };
    EXPECT_FALSE(IsSound(taken)) << c;
  }
}

TEST(Priorities, KnowsOperatorsOfOneCharacterByIt) {
  for (unsigned int code = 0; code < 256; ++code) {
    const char character = static_cast<char>(code);
    const std::string_view text(&character, 1);
    const bool is_operator = std::string_view("!^*/+-").find(character) != std::string_view::npos;
    EXPECT_EQ(kOperatorOf[code] != kOperators, is_operator) << code;
    EXPECT_EQ(FindOperator(text), kOperatorOf[code]) << code;
  }
}

}  // namespace
}  // namespace Quarn
