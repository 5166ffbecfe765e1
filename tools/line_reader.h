// LineReader reads lines from a terminal: editing_reader.cpp with GNU readline, or
// plain_reader.cpp, chosen at build time.
#pragma once

#include <memory>
#include <string>

namespace Quarn {

class State;
class TerminalInput;

class LineReader {
 public:
  enum class Outcome {
    kLine,
    kAbandoned,  // Ctrl-C
    kEnd,        // Ctrl-D on an empty line, or a hangup
  };

  LineReader() = default;
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  virtual ~LineReader() = default;
  // Prints the prompt. The line comes without its newline; what was pasted may hold some.
  virtual Outcome Read(std::string& line) = 0;
  // What its keys do, for the help.
  virtual std::string GetKeyHelp() const { return ""; }
};

// The State is for completion. It and the input must outlive the reader.
std::unique_ptr<LineReader> NewLineReader(const State& state, TerminalInput& input,
                                          bool is_coloured);

}  // namespace Quarn
