#include "tools/run_commands.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

#include "interpreter/state.h"

namespace Quarn {

bool RunCommands(State& state, std::istream& lines, const std::string& name) {
  for (std::string line; std::getline(lines, line);) {
    std::erase(line, '\r');
    if (!line.empty()) state.ProcessLine(line);
  }
  if (lines.eof()) return true;
  const int reason = errno;
  state.Flush();
  std::cerr << "mirlow-shell: cannot read " << name << ": " << std::strerror(reason) << '\n';
  return false;
}

bool RunFile(State& state, const std::string& path) {
  std::ifstream file(path);
  return RunCommands(state, file, "'" + path + "'");
}

}  // namespace Quarn
