// Whole runs of the shell without a terminal, each in a directory of its own.
//   RunShell({"-e", "1+1"}).output             // "\tScalar : 2\n"
//   RunWithMessages("-e 1 no/such").output     // with what it says on standard error
#pragma once

#include <string>
#include <vector>

#include "tests/process/program.h"

namespace Quarn {

inline Outcome RunShell(const std::vector<std::string>& arguments, const std::string& input = "") {
  const TemporaryDirectory directory;
  return RunToEnd(arguments, input, {.directory = directory.PathOf("")});
}

// A command line for sh, which may redirect; standard error goes where standard output goes.
inline Outcome RunWithMessages(const std::string& arguments, const std::string& input = "") {
  const TemporaryDirectory directory;
  return RunCommand({"/bin/sh", "-c", "exec 2>&1; exec " + Program() + " " + arguments}, input,
                    {.directory = directory.PathOf("")});
}

}  // namespace Quarn
