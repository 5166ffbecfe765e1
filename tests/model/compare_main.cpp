// Compares random sessions with the model until so many commands were compared.
//   compare COMMANDS [SEED [references]]   a seed of the clock's when none is given
// With the last word, sessions that are mostly about references.
// Ends with 1 on the first difference, after shrinking it, and names the session's seed.
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>

#include "tests/model/compare.h"

namespace Quarn::model {
namespace {

using Generator = std::vector<Step> (*)(std::uint64_t seed, std::size_t length);

constexpr std::size_t kLines = 30;
constexpr std::size_t kMillion = 1000000;

// Commands, not lines: a line may hold several.
std::size_t CountCommands(const std::vector<Step>& session, std::size_t lines) {
  std::size_t commands = 0;
  for (std::size_t i = 0; i < lines; ++i) {
    bool in_command = false;
    for (char c : session[i].line) {
      if (c != ';' && !in_command) ++commands;
      in_command = c != ';';
    }
  }
  return commands;
}

int Run(Generator generate, std::size_t wanted, std::uint64_t seed) {
  std::cout << "seed " << seed << std::endl;
  std::size_t commands = 0, sessions = 0, shown = 0;
  for (; commands < wanted; ++sessions, ++seed) {
    if (commands / kMillion > shown) {
      shown = commands / kMillion;
      std::cout << shown << ",000,000 commands so far" << std::endl;
    }
    const auto random_seed = static_cast<unsigned int>(seed);
    const std::vector<Step> session = generate(seed, kLines);
    const Comparison comparison = Compare(session, random_seed);
    commands += CountCommands(session, comparison.lines);
    if (!comparison.difference) continue;
    const std::vector<Step> shrunk = Shrink(session, random_seed);
    std::cout << "session " << seed << " differs:\n"
              << Describe(shrunk, Compare(shrunk, random_seed));
    return 1;
  }
  std::cout << commands << " commands of " << sessions << " sessions, no difference\n";
  return 0;
}

}  // namespace
}  // namespace Quarn::model

int main(int count, char** values) {
  const bool is_about_references = count == 4 && std::strcmp(values[3], "references") == 0;
  if (count < 2 || (count > 3 && !is_about_references)) {
    std::cerr << "usage: compare COMMANDS [SEED [references]]\n";
    return 2;
  }
  namespace model = Quarn::model;
  const auto clock = std::chrono::system_clock::now().time_since_epoch().count();
  const std::uint64_t seed =
      count >= 3 ? std::strtoull(values[2], nullptr, 10) : static_cast<std::uint64_t>(clock);
  return model::Run(is_about_references ? model::ReferenceSession : model::Session,
                    std::strtoull(values[1], nullptr, 10), seed);
}
