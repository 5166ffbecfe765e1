// Answers reads the answers to questions from a terminal. Who presses Ctrl-C or Ctrl-D instead of
// answering means no.
//   TerminalInput terminal(STDIN_FILENO);
//   Answers buffer(terminal);
//   std::istream answers(&buffer);
#pragma once

#include <istream>
#include <streambuf>
#include <string>

#include "tools/terminal_input.h"

namespace Quarn {

class Answers : public std::streambuf {
 public:
  // The terminal must outlive it.
  explicit Answers(TerminalInput& terminal) : terminal_(terminal) {}
  Answers(const Answers&) = delete;
  Answers& operator=(const Answers&) = delete;

 protected:
  int_type underflow() override;

 private:
  TerminalInput& terminal_;
  std::string line_;
};

}  // namespace Quarn
