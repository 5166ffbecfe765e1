#include "tools/terminal_input.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace Quarn {

bool TerminalInput::TakeInterruption() { return std::exchange(was_interrupted_, false); }

TerminalInput::int_type TerminalInput::underflow() {
  const ssize_t count = read(file_, &character_, 1);
  if (count == 1) {
    setg(&character_, &character_, &character_ + 1);
    return traits_type::to_int_type(character_);
  }
  was_interrupted_ = count < 0 && errno == EINTR;
  return traits_type::eof();
}

}  // namespace Quarn
