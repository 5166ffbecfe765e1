// The command line of mirlow-shell.
//   mirlow-shell                   interactive, or standard input
//   mirlow-shell -e "x=1" a.txt -  commands, a script and standard input, in this order
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "interpreter/limits.h"
#include "tools/colours.h"
#include "tools/report_writer.h"

namespace Quarn {

struct Task {
  enum Kind { kCommands, kFile };
  Kind kind;
  std::string text;  // the commands, or the path; "-" is standard input
};

struct CommandLine {
  enum class Action { kRun, kWatch, kShowHelp, kShowVersion, kShowLimits, kReject };
  Action action = Action::kRun;
  std::vector<Task> tasks;  // in the order given
  Format format = Format::kText;
  bool stops_on_error = false;
  ColourUse colour = ColourUse::kAuto;
  bool reads_init = true;
  std::string limit_changes;  // "steps=1000,finite=no"
  Limits limits;              // what comes of them
  std::string record;         // a path; empty: nothing is recorded
  std::string watched;        // a path
};

extern const std::string_view kUsage;

// Reports invalid arguments on standard error: kReject. REQUIRES: count is not 0.
CommandLine ReadCommandLine(int count, char** values);

}  // namespace Quarn
