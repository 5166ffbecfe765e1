#include "tools/terminal_input.h"

#include <poll.h>
#include <unistd.h>

#include <csignal>

#include "tools/interrupts.h"

namespace Quarn {

TerminalInput::int_type TerminalInput::underflow() {
  if (Interrupts::WasPressed()) return traits_type::eof();
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
  return traits_type::eof();
}

}  // namespace Quarn
