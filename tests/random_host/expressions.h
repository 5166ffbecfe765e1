// Random expressions over the names, literals and functions that a random host may know. Most are
// well formed; some have a few characters lost, put in or doubled.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tests/random_host/description.h"

namespace Quarn::random_host {

// The names of symbols: values, references, and what comes and goes.
inline constexpr std::size_t kValues = 5;
inline constexpr std::size_t kReferences = 3;
inline constexpr std::size_t kFleeting = 2;
std::string ValueName(std::size_t i);      // "s0"
std::string ReferenceName(std::size_t i);  // "r0"
std::string FleetingName(std::size_t i);   // "u0"

// What an expression may be made of, beside what all of them know.
struct Vocabulary {
  std::vector<LiteralTexts> literals;
  std::size_t references;  // only the first so many
};
std::string DrawExpression(Dice& dice, const Vocabulary& vocabulary);

}  // namespace Quarn::random_host
