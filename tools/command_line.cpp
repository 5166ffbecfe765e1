#include "tools/command_line.h"

#include <getopt.h>

#include <iostream>

#include "tools/limits_option.h"

namespace Quarn {

const std::string_view kUsage =
    "Usage: mirlow-shell [OPTION]... [-e COMMANDS]... [FILE]...\n"
    "Calculates with numbers, vectors and references.\n"
    "\n"
    "Without commands and files it talks with you at a terminal, or runs what comes\n"
    "through a pipe. Otherwise it runs commands and scripts in the order given.\n"
    "\n"
    "  FILE               run the lines of a script; - is standard input\n"
    "  -e, --execute=COMMANDS\n"
    "                     run these commands, separated by \";\" or newlines\n"
    "      --plain        print the values of expressions and queries alone\n"
    "      --json         print an object of JSON for each command\n"
    "      --stop-on-error\n"
    "                     run nothing after a command that reported an error\n"
    "      --record=FILE  append each command that was accepted to a file\n"
    "      --watch=FILE   show the symbols of a script, anew whenever it is saved\n"
    "      --no-init      do not run the startup file, mirlow/init in ~/.config\n"
    "      --limit=LIST   change limits: steps, memory, output, nesting, finite;\n"
    "                     without a list, show those of a session\n"
    "      --color=WHEN   use colours: auto (at a terminal), always or never\n"
    "  -h, --help         show this text\n"
    "  -V, --version      show the version\n"
    "\n"
    "Exit status: 0; 1 when a command reported an error; 2 when the arguments make no\n"
    "sense, a file cannot be read, or output cannot be written.\n";

namespace {

constexpr char kShortOptions[] = "-e:hV";  // "-": other arguments come in their order, as option 1

// Options without a short form.
enum {
  kPlainOption = 256,
  kJsonOption,
  kStopOnErrorOption,
  kRecordOption,
  kWatchOption,
  kNoInitOption,
  kLimitOption,
  kColourOption
};

constexpr option kLongOptions[] = {
    {"execute",       required_argument, nullptr, 'e'               },
    {"plain",         no_argument,       nullptr, kPlainOption      },
    {"json",          no_argument,       nullptr, kJsonOption       },
    {"stop-on-error", no_argument,       nullptr, kStopOnErrorOption},
    {"record",        required_argument, nullptr, kRecordOption     },
    {"watch",         required_argument, nullptr, kWatchOption      },
    {"no-init",       no_argument,       nullptr, kNoInitOption     },
    {"limit",         optional_argument, nullptr, kLimitOption      },
    {"color",         optional_argument, nullptr, kColourOption     },
    {"help",          no_argument,       nullptr, 'h'               },
    {"version",       no_argument,       nullptr, 'V'               },
    {nullptr,         0,                 nullptr, 0                 },
};

void Reject(CommandLine& line) {
  std::cerr << "Try 'mirlow-shell --help'.\n";
  line.action = CommandLine::Action::kReject;
}

void ApplyColour(const std::string& when, CommandLine& line) {
  if (when == "auto") {
    line.colour = ColourUse::kAuto;
  } else if (when == "always") {
    line.colour = ColourUse::kAlways;
  } else if (when == "never") {
    line.colour = ColourUse::kNever;
  } else {
    std::cerr << "mirlow-shell: '" << when << "' is none of auto, always, never\n";
    Reject(line);
  }
}

void ApplyLimit(const char* changes, CommandLine& line) {
  if (!changes) {
    line.action = CommandLine::Action::kShowLimits;
  } else if (!ChangeLimits({}, changes)) {
    std::cerr << "mirlow-shell: no limits: '" << changes << "'\n";
    Reject(line);
  } else {
    line.limit_changes += std::string(line.limit_changes.empty() ? "" : ",") + changes;
  }
}

void ApplyOption(int option, CommandLine& line) {
  using Action = CommandLine::Action;
  switch (option) {
    case 1:
      line.tasks.push_back({Task::kFile, optarg});
      break;
    case 'e':
      line.tasks.push_back({Task::kCommands, optarg});
      break;
    case kPlainOption:
      line.format = Format::kPlain;
      break;
    case kJsonOption:
      line.format = Format::kJson;
      break;
    case kStopOnErrorOption:
      line.stops_on_error = true;
      break;
    case kRecordOption:
      line.record = optarg;
      break;
    case kWatchOption:
      line.watched = optarg;
      break;
    case kNoInitOption:
      line.reads_init = false;
      break;
    case kLimitOption:
      ApplyLimit(optarg, line);
      break;
    case kColourOption:
      ApplyColour(optarg ? optarg : "always", line);
      break;
    case 'h':
      line.action = Action::kShowHelp;
      break;
    case 'V':
      line.action = Action::kShowVersion;
      break;
    default:
      Reject(line);
      break;
  }
}

}  // namespace

CommandLine ReadCommandLine(int count, char** values) {
  CommandLine line;
  optind = 0;  // from the start, whoever read arguments before
  while (line.action == CommandLine::Action::kRun) {
    const int found = getopt_long(count, values, kShortOptions, kLongOptions, nullptr);
    if (found < 0) break;
    ApplyOption(found, line);
  }
  if (line.action == CommandLine::Action::kRun && !line.watched.empty()) {
    line.action = CommandLine::Action::kWatch;
  }
  for (; optind < count; ++optind) line.tasks.push_back({Task::kFile, values[optind]});
  return line;
}

}  // namespace Quarn
