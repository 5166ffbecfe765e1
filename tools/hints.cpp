#include "tools/hints.h"

#include "interpreter/version.h"
#include "utils/trim.h"

namespace Quarn {
namespace {

constexpr std::string_view kForHelp = "For help, type ?";
constexpr std::string_view kToLeave = "To leave, type q, or press Ctrl-D";

struct Word {
  std::string_view word;
  std::string_view hint;
};
constexpr Word kWords[] = {
    {"help", kForHelp},
    {"man",  kForHelp},
    {"quit", kToLeave},
    {"exit", kToLeave},
    {"bye",  kToLeave},
    {"q",    kToLeave},
};

}  // namespace

std::string GetGreeting() {
  return std::string("mirlow ") + kVersion + ": ? for help, Ctrl-D to leave\n";
}

std::string GetHint(std::string_view line) {
  const std::string_view typed = TrimSpaces(line);
  for (const auto& [word, hint] : kWords) {
    if (typed != word) continue;
    return std::string(hint) + ". To define a symbol '" + std::string(word) +
           "', type it once more.\n";
  }
  return "";
}

}  // namespace Quarn
