#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>

namespace Quarn::model {

// splitmix64. The standard's distributions differ between libraries, so the few choices that are
// needed are made here with whole numbers only.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  // From 0 to limit - 1. REQUIRES: limit > 0.
  std::size_t Below(std::size_t limit) {
    return static_cast<std::size_t>(Next() % static_cast<std::uint64_t>(limit));
  }

  // True once in n times.
  bool OneIn(std::size_t n) { return Below(n) == 0; }

  // Each with the same chance; an entry that stands twice has twice the chance.
  std::string Pick(std::initializer_list<const char*> texts) {
    return *(texts.begin() + Below(texts.size()));
  }

 private:
  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
  }

  std::uint64_t state_;
};

// The texts in a row. Inside the braces they are made from left to right, which the operands of "+"
// are not; the draws must not depend on the compiler.
inline std::string Join(std::initializer_list<std::string> texts) {
  std::string joined;
  for (const std::string& text : texts) joined += text;
  return joined;
}

}  // namespace Quarn::model
