// Lines that nobody types: from a file, a pipe or an argument.
#pragma once

#include <istream>
#include <string>

namespace Quarn {

class State;

// Carries out line by line to the end, as the calculator does with a script: a "\r" is left out,
// wherever it stands, and so are empty lines. When there is nothing to read or reading fails before
// the end, says so of `name` on standard error and returns false.
bool RunCommands(State& state, std::istream& lines, const std::string& name);

// The same for a file, which need not be writable.
bool RunFile(State& state, const std::string& path);

}  // namespace Quarn
