// LineReader asks a person at a terminal for one line after the other. Which kind there is was
// decided when the program was built: editing_reader.cpp, with libedit, or plain_reader.cpp.
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
    kAbandoned,  // by Ctrl-C; there is no line, but another will come
    kEnd,        // by Ctrl-D on an empty line, or because the terminal is gone
  };

  virtual ~LineReader() = default;
  // Prints the prompt and reads a line, without its newline.
  virtual Outcome Read(std::string& line) = 0;
};

// The reader asks the State what could complete a word. Both arguments must outlive it.
std::unique_ptr<LineReader> NewLineReader(const State& state, TerminalInput& input);

}  // namespace Quarn
