// TerminalInput reads what is typed at a terminal byte by byte, so that nothing which another
// reader is to get waits in a buffer here. A signal that is caught ends the reading as the end of
// input does.
//   TerminalInput buffer(STDIN_FILENO);
//   std::istream in(&buffer);
#pragma once

#include <streambuf>

namespace Quarn {

class TerminalInput : public std::streambuf {
 public:
  explicit TerminalInput(int file) : file_(file) {}

  // Did a signal end the reading, since this was asked before?
  bool TakeInterruption();

 protected:
  int_type underflow() override;

 private:
  int file_;
  char character_ = 0;
  bool was_interrupted_ = false;
};

}  // namespace Quarn
