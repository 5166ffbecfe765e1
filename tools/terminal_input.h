// TerminalInput reads unbuffered, so that no input for another reader is lost here. A caught signal
// looks like the end of input, as does a Ctrl-C that was noted before.
//   TerminalInput buffer(STDIN_FILENO);
//   std::istream in(&buffer);
#pragma once

#include <streambuf>

namespace Quarn {

class TerminalInput : public std::streambuf {
 public:
  explicit TerminalInput(int file) : file_(file) {}
  TerminalInput(const TerminalInput&) = delete;
  TerminalInput& operator=(const TerminalInput&) = delete;

 protected:
  int_type underflow() override;

 private:
  int file_;
  char character_ = 0;
};

}  // namespace Quarn
