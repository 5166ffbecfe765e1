// Property: whatever lines are typed, the same is printed whether the values of references are kept
// or not. Each line of the input is one line of the session. Skipped: inputs with more than a dozen
// "&", since without keeping each may double the work, and lines behind the first hundred.
#include <algorithm>
#include <string>
#include <vector>

#include "tests/fuzz/bounded.h"
#include "tests/fuzz/fuzz.h"
#include "tests/model/kept.h"

namespace Quarn::fuzz {
namespace {

constexpr std::ptrdiff_t kMostReferences = 12;
constexpr std::size_t kMostLines = 100;

std::vector<model::Step> ReadLines(std::string_view input) {
  std::vector<model::Step> session;
  while (!input.empty() && session.size() < kMostLines) {
    const std::string_view line = input.substr(0, input.find('\n'));
    input.remove_prefix(std::min(input.size(), line.size() + 1));
    session.push_back({std::string(line), {"y"}});
  }
  return session;
}

}  // namespace

void Try(std::string_view input) {
  constexpr unsigned int kRandomSeed = 1;
  if (std::count(input.begin(), input.end(), '&') > kMostReferences) return;
  const std::vector<model::Step> session = ReadLines(input);
  const auto kept = model::Outputs(session, kRandomSeed, true, RegisterBounded);
  const auto anew = model::Outputs(session, kRandomSeed, false, RegisterBounded);
  for (std::size_t i = 0; i < session.size(); ++i) {
    RequireEqual(kept[i], anew[i], "keeping values cannot be told");
  }
}

}  // namespace Quarn::fuzz
