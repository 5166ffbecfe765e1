// Random sessions that know the grammar: most lines mean something, a few names are shared by all
// lines so that they meet each other's values, and now and then a character is lost or put in.
// The same seed gives the same session everywhere. Lines and answers hold no line break, and no
// line is one of the words that end the program at its prompt.
//   for (const Step& step : Session(7, 20)) { ... step.line ... step.answers ... }
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Quarn::model {

struct Step {
  std::string line;
  // One for each time that the line asks whether to erase all symbols.
  std::vector<std::string> answers;
};

std::vector<Step> Session(std::uint64_t seed, std::size_t length);

// Nine lines in ten are about references: chains, fans, rings and what becomes of them when names
// are changed, erased, declared or given later.
std::vector<Step> ReferenceSession(std::uint64_t seed, std::size_t length);

}  // namespace Quarn::model
