// What the shell is asked to do, read from the arguments of its program.
//   mirlow-shell                   a dialogue, or standard input
//   mirlow-shell -e "x=1" a.txt -  commands, a script and standard input, in this order
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quarn {

struct Task {
  enum Kind { kCommands, kFile };
  Kind kind;
  std::string text;  // the commands themselves, or the path; "-" is standard input
};

struct CommandLine {
  enum class Wish {
    kRun,
    kShowHelp,
    kShowVersion,
    kNothing
  };  // nothing: the arguments make no sense
  Wish wish = Wish::kRun;
  std::vector<Task> tasks;  // in the order given
};

extern const std::string_view kUsage;

// Says on standard error what is wrong with the arguments. REQUIRES: count is not 0.
CommandLine ReadCommandLine(int count, char** values);

}  // namespace Quarn
