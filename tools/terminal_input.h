// TerminalInput reads unbuffered, so that no input for another reader is lost here. A caught signal
// looks like the end of input.
//   TerminalInput buffer(STDIN_FILENO);
//   std::istream in(&buffer);
#pragma once

#include <streambuf>

namespace Quarn {

class TerminalInput : public std::streambuf {
 public:
  explicit TerminalInput(int file) : file_(file) {}

  // Did a signal end the reading since the last call?
  bool TakeInterruption();

 protected:
  int_type underflow() override;

 private:
  int file_;
  char character_ = 0;
  bool was_interrupted_ = false;
};

}  // namespace Quarn
