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
  const OperatorPriority good[] = {
      {"[]", 2},
      {"+",  1},
      {"^",  1},
      {"|",  1}
  };
  const OperatorPriority of_parentheses[] = {
      {"[]", 2},
      {"+",  0}
  };
  const OperatorPriority too_tight[] = {
      {"[]", 256},
      {"+",  1  }
  };
  const OperatorPriority no_indexing[] = {
      {"+", 1}
  };
  const OperatorPriority indexing_last[] = {
      {"+",  1},
      {"[]", 2}
  };
  const OperatorPriority too_long[] = {
      {"[]", 2},
      {"**", 1}
  };
  const OperatorPriority empty[] = {
      {"[]", 2},
      {"",   1}
  };
  const OperatorPriority twice[] = {
      {"[]", 2},
      {"+",  1},
      {"+",  2}
  };
  EXPECT_TRUE(IsSound(good));
  EXPECT_FALSE(IsSound(of_parentheses));
  EXPECT_FALSE(IsSound(too_tight));
  EXPECT_FALSE(IsSound(no_indexing));
  EXPECT_FALSE(IsSound(indexing_last));
  EXPECT_FALSE(IsSound(too_long));
  EXPECT_FALSE(IsSound(empty));
  EXPECT_FALSE(IsSound(twice));
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
