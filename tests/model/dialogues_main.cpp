// Writes random sessions with what the library prints, to be compared with the same library
// elsewhere.
//   dialogues COMMANDS SEED [references]
// A group separator (0x1d) stands before each session, a record separator (0x1e) before each line;
// unit separators (0x1f) part the line, its answers, each with a newline, and what is printed.
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>

#include "tests/model/compare.h"
#include "tests/model/kept.h"

namespace Quarn::model {
namespace {

constexpr std::size_t kLines = 30;

void Write(const Step& step, const std::string& output) {
  std::cout << '\x1e' << step.line << '\x1f';
  for (const std::string& answer : step.answers) std::cout << answer << '\n';
  std::cout << '\x1f' << output;
}

// Only lines that the model foretells: others may never return.
std::size_t WriteSession(std::vector<Step> session, unsigned int random_seed) {
  session.resize(Compare(session, random_seed).lines);
  const std::vector<std::string> outputs = Outputs(session, random_seed, true);
  std::cout << '\x1d';
  std::size_t commands = 0;
  for (std::size_t i = 0; i < session.size(); ++i) {
    Write(session[i], outputs[i]);
    for (const char c : session[i].line) commands += c == ';';
    ++commands;
  }
  return commands;
}

}  // namespace
}  // namespace Quarn::model

int main(int count, char** values) {
  const bool is_about_references = count == 4 && std::strcmp(values[3], "references") == 0;
  if (count != 3 && !is_about_references) {
    std::cerr << "usage: dialogues COMMANDS SEED [references]\n";
    return 2;
  }
  namespace model = Quarn::model;
  const auto generate = is_about_references ? model::ReferenceSession : model::Session;
  const std::size_t wanted = std::strtoull(values[1], nullptr, 10);
  std::uint64_t seed = std::strtoull(values[2], nullptr, 10);
  for (std::size_t commands = 0; commands < wanted; ++seed) {
    commands += model::WriteSession(generate(seed, model::kLines), 1);
  }
  return 0;
}
