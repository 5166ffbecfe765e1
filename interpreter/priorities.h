// The operators of the language and how tightly they bind; a larger number binds tighter. The table
// is fixed: types give these operators a meaning, they do not add others.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace Quarn {

// One row of the table.
struct OperatorPriority {
  // What is written, and how tightly it binds.
  std::string_view text;
  unsigned int priority;
};

// The table. Operators are known by their places in it.
inline constexpr OperatorPriority kPriorities[] = {
    {"[]", 5}, // indexing; only ever applied to what stands before and inside the brackets
    {"!",  4},
    {"^",  3},
    {"*",  2},
    {"/",  2},
    {"+",  1},
    {"-",  1},
};

// What the scanner and the evaluator rely on: "[]" comes first and is the one operator of two
// characters, since no scan ever meets it; each other is one character that means nothing else; no
// text comes twice; and each priority fits into a byte and is above 0, which is that of an open
// parenthesis.
inline constexpr unsigned int kLowestPriority = 1;
template <std::size_t N>
constexpr bool IsSound(const OperatorPriority (&table)[N]) {
  if (table[0].text != "[]") return false;
  for (std::size_t i = 0; i < N; ++i) {
    const auto& [text, priority] = table[i];
    if (priority < kLowestPriority || priority > UINT8_MAX) return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (table[j].text == text) return false;
    }
    if (i == 0) continue;
    if (text.size() != 1) return false;
    const char c = text[0];
    if (std::string_view("()<>[], \t._'&;=:~?").find(c) != std::string_view::npos) return false;
    if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) return false;
  }
  return N < UINT8_MAX;
}
static_assert(IsSound(kPriorities));

// How many priorities there are at most.
inline constexpr std::size_t kPriorityCount = [] {
  std::size_t highest = 0;
  for (const OperatorPriority& row : kPriorities) {
    if (row.priority > highest) highest = row.priority;
  }
  return highest;
}();

// How many there are, and the place of "[]".
inline constexpr std::size_t kOperators = std::size(kPriorities);
inline constexpr std::size_t kIndexing = 0;

// The operators of one character, by that character; kOperators for all others.
inline constexpr auto kOperatorOf = [] {
  std::array<std::uint8_t, 256> operators{};
  for (std::uint8_t& op : operators) op = kOperators;
  for (std::size_t i = 0; i < kOperators; ++i) {
    if (kPriorities[i].text.size() != 1) continue;
    operators[static_cast<unsigned char>(kPriorities[i].text[0])] = static_cast<std::uint8_t>(i);
  }
  return operators;
}();

// The place of an operator in the table; kOperators for any other text.
constexpr std::size_t FindOperator(std::string_view text) {
  if (text.size() == 1) return kOperatorOf[static_cast<unsigned char>(text[0])];
  return text == kPriorities[kIndexing].text ? kIndexing : kOperators;
}
static_assert([] {
  for (std::size_t i = 0; i < kOperators; ++i) {
    if (FindOperator(kPriorities[i].text) != i) return false;
  }
  return true;
}());

}  // namespace Quarn
