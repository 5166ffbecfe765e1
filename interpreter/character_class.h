// What a character is to the scanner of expressions.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "interpreter/priorities.h"

namespace Quarn {

// The brackets come last, in this order.
enum class CharacterClass : std::uint8_t { kOther, kBlank, kComma, kOperator, kOpen, kClose };

inline constexpr std::string_view kOpeningBrackets = "(<[";
inline constexpr std::string_view kClosingBrackets = ")>]";

inline constexpr auto kCharacterClasses = [] {
  std::array<CharacterClass, 256> classes{};
  const auto set = [&](std::string_view characters, CharacterClass to) {
    for (char c : characters) classes[static_cast<unsigned char>(c)] = to;
  };
  set(" ", CharacterClass::kBlank);
  set(",", CharacterClass::kComma);
  set(kOpeningBrackets, CharacterClass::kOpen);
  set(kClosingBrackets, CharacterClass::kClose);
  for (const OperatorPriority& row : kPriorities) {
    // "[]" is never met at top level: its "[" opens a bracket.
    if (row.text.size() == 1) set(row.text, CharacterClass::kOperator);
  }
  return classes;
}();

// The place of a bracket among the brackets of its side.
constexpr std::size_t GetBracketKind(char c) {
  if (c == '(' || c == ')') return 0;
  return c == '<' || c == '>' ? 1 : 2;
}
static_assert([] {
  for (std::size_t kind = 0; kind < kOpeningBrackets.size(); ++kind) {
    if (GetBracketKind(kOpeningBrackets[kind]) != kind) return false;
    if (GetBracketKind(kClosingBrackets[kind]) != kind) return false;
  }
  return true;
}());

inline CharacterClass Classify(char c) { return kCharacterClasses[static_cast<unsigned char>(c)]; }

}  // namespace Quarn
