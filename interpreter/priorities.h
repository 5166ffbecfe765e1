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

// The table; what is remembered of operators goes by their places in it.
inline constexpr OperatorPriority kPriorities[] = {
    {"[]", 5}, // indexing; only ever applied to what stands before and inside the brackets
    {"!",  4},
    {"^",  3},
    {"*",  2},
    {"/",  2},
    {"+",  1},
    {"-",  1},
};

// How many there are, and the place of "[]".
inline constexpr std::size_t kOperators = std::size(kPriorities);
inline constexpr std::size_t kIndexing = 0;
static_assert(kPriorities[kIndexing].text == "[]");

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
