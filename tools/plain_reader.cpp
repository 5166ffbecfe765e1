// Lines in the terminal's canonical mode, without line editing.
#include <iostream>

#include "tools/interrupts.h"
#include "tools/line_reader.h"
#include "tools/terminal_input.h"

namespace Quarn {
namespace {

class PlainReader : public LineReader {
 public:
  explicit PlainReader(TerminalInput& input) : input_(input) {}

  Outcome Read(std::string& line) override {
    const Interrupts::Noting noting;
    std::cout << "> " << std::flush;
    std::istream in(&input_);
    if (std::getline(in, line)) return Outcome::kLine;
    std::cout << std::endl;
    return Interrupts::Take() ? Outcome::kAbandoned : Outcome::kEnd;
  }

 private:
  TerminalInput& input_;
};

}  // namespace

std::unique_ptr<LineReader> NewLineReader(const State&, TerminalInput& input, bool) {
  return std::make_unique<PlainReader>(input);
}

}  // namespace Quarn
