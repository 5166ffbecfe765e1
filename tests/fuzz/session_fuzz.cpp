// Property: whatever lines are typed, what is printed is what the model foretells, to the byte.
// Each line of the input is one line of the session, and one that begins with "@" is the answer to
// a question of the line before it. Skipped: what follows a line that the model does not foretell,
// since it does not end or costs too much.
#include <vector>

#include "tests/fuzz/bounded.h"
#include "tests/fuzz/fuzz.h"
#include "tests/model/compare.h"

namespace Quarn::fuzz {
namespace {

std::vector<model::Step> ReadSession(std::string_view input) {
  std::vector<model::Step> session;
  while (!input.empty()) {
    const std::string_view line = input.substr(0, input.find('\n'));
    input.remove_prefix(std::min(input.size(), line.size() + 1));
    if (line.starts_with('@') && !session.empty()) {
      session.back().answers.emplace_back(line.substr(1));
    } else {
      session.push_back({std::string(line), {}});
    }
  }
  return session;
}

}  // namespace

void Try(std::string_view input) {
  constexpr unsigned int kRandomSeed = 1;
  const std::vector<model::Step> session = ReadSession(input);
  const model::Comparison comparison = model::Compare(session, kRandomSeed, RegisterBounded);
  Require(!comparison.difference, "the model agrees", model::Describe(session, comparison));
}

}  // namespace Quarn::fuzz
