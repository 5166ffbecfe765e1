// Lines in the terminal's canonical mode, without line editing.
#include <csignal>
#include <iostream>

#include "tools/line_reader.h"
#include "tools/terminal_input.h"

namespace Quarn {
namespace {

// In its scope, Ctrl-C ends reading and not the program. SIGINT is blocked until the read, so that
// it cannot be lost before.
class InterruptsReading {
 public:
  InterruptsReading() {
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    sigaction(SIGINT, &action, &before_);
    sigset_t interrupt;
    sigemptyset(&interrupt);
    sigaddset(&interrupt, SIGINT);
    sigprocmask(SIG_BLOCK, &interrupt, &mask_before_);
  }
  InterruptsReading(const InterruptsReading&) = delete;
  InterruptsReading& operator=(const InterruptsReading&) = delete;
  ~InterruptsReading() {
    sigprocmask(SIG_SETMASK, &mask_before_, nullptr);
    sigaction(SIGINT, &before_, nullptr);
  }

 private:
  struct sigaction before_ = {};
  sigset_t mask_before_ = {};
};

class PlainReader : public LineReader {
 public:
  explicit PlainReader(TerminalInput& input) : input_(input) {}

  Outcome Read(std::string& line) override {
    const InterruptsReading guard;
    std::cout << "> " << std::flush;
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
