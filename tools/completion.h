// Tab completion of the word before the cursor: types after ":", symbols in a command that begins
// with "?" or "~", symbols and functions, with their "(", anywhere else.
//   Complete(state, "x=rou");         // start 2; "round(" "round_down(" "round_up("
//   FindSignatures(state, "x=rand(")  // "rand()" "rand(Scalar, Scalar)"
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quarn {

class State;

struct Completion {
  std::size_t start = 0;                // of the word, in the text before the cursor
  std::vector<std::string> candidates;  // sorted, without duplicates
};

Completion Complete(const State& state, std::string_view before_cursor);

// The ways to call the function in whose parentheses the cursor is; empty when no call is open, or
// when a word is before the cursor.
std::vector<std::string> FindSignatures(const State& state, std::string_view before_cursor);

std::string LongestCommonPrefix(const std::vector<std::string>& candidates);

}  // namespace Quarn
