// Whole runs of the program, each in a directory of its own.
//   AtPrompt("1+1\nq\n").output         // "> \tScalar : 2\n> "
//   AsScript("1+1\n").output            // "\tScalar : 2\n"
#pragma once

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/process.h"
#include "tests/support/temporary_directory.h"

namespace Quarn {

struct Outcome {
  std::string output;
  int status;  // minus the number of the signal that ended it
};

// The program of this build, or the one that the environment names.
inline const std::string& Program() {
  static const char* const named = std::getenv("MIRLOW_PROGRAM");
  static const std::string program = named ? named : MIRLOW_PROGRAM;
  return program;
}

// To its end, with standard input at its end behind `input`. REQUIRES: the input fits into a pipe.
inline Outcome RunCommand(const std::vector<std::string>& command, const std::string& input,
                          const Process::Options& options) {
  Process process(command, options);
  process.Type(input);
  process.EndInput();
  Outcome outcome;
  outcome.output = process.ReadRest();
  outcome.status = process.Wait();
  return outcome;
}

// The same of the program with these arguments.
inline Outcome RunToEnd(const std::vector<std::string>& arguments, const std::string& input,
                        const Process::Options& options) {
  std::vector<std::string> command = {Program()};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return RunCommand(command, input, options);
}

// REQUIRES: a line of the input quits, or kills the program.
inline Outcome AtPrompt(const std::string& input, Process::Options options = {}) {
  const TemporaryDirectory directory;
  options.directory = directory.PathOf("");
  return RunToEnd({}, input, options);
}

inline Outcome AsScript(const std::string& script, const std::string& input = "",
                        Process::Options options = {}) {
  const TemporaryDirectory directory;
  options.directory = directory.PathOf("");
  return RunToEnd({directory.Write("script", script)}, input, options);
}

}  // namespace Quarn
