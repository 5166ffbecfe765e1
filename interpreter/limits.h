// What one evaluation may use: for hosts whose users are not to be trusted. There are no limits
// unless a host sets some.
//   Limits limits;
//   limits.steps = 1'000'000;
//   limits.ends_the_endless = true;
//   state.SetLimits(limits);
#pragma once

#include <cstdint>

namespace Quarn {

// Each limit that is reached ends the command, or what a host asked for, with an error of its own;
// nothing changes, and the State goes on.
struct Limits {
  static constexpr std::uint64_t kNone = 0xFFFFFFFFFFFFFFFF;

  // An instruction is a step (a number, a name, an operator, a call), and so is each element of a
  // vector that an operator makes or that is printed: some 10 to 100 nanoseconds each.
  std::uint64_t steps = kNone;
  // Bytes, of the operands, elements, references and texts of an evaluation. Values of symbols do
  // not count.
  std::uint64_t memory = kNone;
  // Characters, of the text of one value.
  std::uint64_t output = kNone;
  // Levels, of brackets in an expression and of references that wait for one another.
  std::uint64_t nesting = kNone;
  // Do the factorials that use up the stack, and the index that never comes back, end with an error
  // instead?
  bool ends_the_endless = false;
};

}  // namespace Quarn
