// Non-interactive input: a file, a pipe or an argument.
#pragma once

#include <istream>
#include <string>

namespace Quarn {

class State;

// Runs line by line, without any "\r" and without empty lines. If reading fails, reports it for
// `name` on standard error and returns false.
bool RunCommands(State& state, std::istream& lines, const std::string& name);

// Unlike a script of the calculator, the file need not be writable.
bool RunFile(State& state, const std::string& path);

}  // namespace Quarn
