// Lines as the terminal itself lets them be typed: the erase key and little more.
#include <csignal>
#include <iostream>

#include "tools/line_reader.h"
#include "tools/terminal_input.h"

namespace Quarn {
namespace {

// While it lives, Ctrl-C ends reading and not the program.
class InterruptsReading {
 public:
  InterruptsReading() {
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    sigaction(SIGINT, &action, &before_);
  }
  InterruptsReading(const InterruptsReading&) = delete;
  InterruptsReading& operator=(const InterruptsReading&) = delete;
  ~InterruptsReading() { sigaction(SIGINT, &before_, nullptr); }

 private:
  struct sigaction before_ = {};
};

class PlainReader : public LineReader {
 public:
  explicit PlainReader(TerminalInput& input) : input_(input) {}

  Outcome Read(std::string& line) override {
    std::cout << "> " << std::flush;
    const InterruptsReading guard;
    std::istream in(&input_);
    if (std::getline(in, line)) return Outcome::kLine;
    std::cout << std::endl;
    return input_.TakeInterruption() ? Outcome::kAbandoned : Outcome::kEnd;
  }

 private:
  TerminalInput& input_;
};

}  // namespace

std::unique_ptr<LineReader> NewLineReader(const State&, TerminalInput& input) {
  return std::make_unique<PlainReader>(input);
}

}  // namespace Quarn
