// Completion: what Tab offers for the word that is being typed, out of what a State knows at that
// moment. Behind ":" these are types; in a command that begins with "?" or "~", symbols; anywhere
// else symbols and functions, which come with their "(".
//   Complete(state, "x=rou");  // start 2; "round(" "round_down(" "round_up("
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quarn {

class State;

struct Completion {
  std::size_t start = 0;                // of the word, in the text before the cursor
  std::vector<std::string> candidates;  // all begin with that word; ascending, each once
};

Completion Complete(const State& state, std::string_view before_cursor);

// The longest text with which all begin; empty when there are none.
std::string CommonStart(const std::vector<std::string>& candidates);

}  // namespace Quarn
