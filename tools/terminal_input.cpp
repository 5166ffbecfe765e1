#include "tools/terminal_input.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>

namespace Quarn {

bool TerminalInput::TakeInterruption() { return std::exchange(was_interrupted_, false); }

TerminalInput::int_type TerminalInput::underflow() {
  // Blocked signals are delivered during ppoll alone.
  sigset_t none;
  sigemptyset(&none);
  pollfd waiting{file_, POLLIN, 0};
  const int ready = ppoll(&waiting, 1, nullptr, &none);
  const ssize_t count = ready < 0 ? ready : read(file_, &character_, 1);
  if (count == 1) {
    setg(&character_, &character_, &character_ + 1);
    return traits_type::to_int_type(character_);
  }
  was_interrupted_ = count < 0 && errno == EINTR;
  return traits_type::eof();
}

}  // namespace Quarn
