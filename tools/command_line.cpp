#include "tools/command_line.h"

#include <getopt.h>

#include <iostream>

namespace Quarn {

const std::string_view kUsage =
    "Usage: mirlow-shell [-e COMMANDS]... [FILE]...\n"
    "Calculates with numbers, vectors and references.\n"
    "\n"
    "Without arguments it talks with you at a terminal, or runs what comes through a\n"
    "pipe. Otherwise it runs commands and scripts in the order given.\n"
    "\n"
    "  FILE               run the lines of a script; - is standard input\n"
    "  -e, --execute=COMMANDS\n"
    "                     run these commands, separated by \";\" or newlines\n"
    "  -h, --help         show this text\n"
    "  -V, --version      show the version\n"
    "\n"
    "Exit status: 0; 1 when a command reported an error; 2 when the arguments make no\n"
    "sense or a file cannot be read.\n";

namespace {

constexpr char kShortOptions[] = "-e:hV";  // "-": other arguments come in their order, as option 1

constexpr option kLongOptions[] = {
    {"execute", required_argument, nullptr, 'e'},
    {"help",    no_argument,       nullptr, 'h'},
    {"version", no_argument,       nullptr, 'V'},
    {nullptr,   0,                 nullptr, 0  },
};

}  // namespace

CommandLine ReadCommandLine(int count, char** values) {
  CommandLine line;
  optind = 0;  // from the start, whoever read arguments before
  for (int found;
       (found = getopt_long(count, values, kShortOptions, kLongOptions, nullptr)) >= 0;) {
    switch (found) {
      case 1:
        line.tasks.push_back({Task::kFile, optarg});
        break;
      case 'e':
        line.tasks.push_back({Task::kCommands, optarg});
        break;
      case 'h':
        line.action = CommandLine::Action::kShowHelp;
        return line;
      case 'V':
        line.action = CommandLine::Action::kShowVersion;
        return line;
      default:
        std::cerr << "Try 'mirlow-shell --help'.\n";
        line.action = CommandLine::Action::kReject;
        return line;
    }
  }
  for (; optind < count; ++optind) line.tasks.push_back({Task::kFile, values[optind]});
  return line;
}

}  // namespace Quarn
