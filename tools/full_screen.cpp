#include "tools/full_screen.h"

#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string_view>

namespace Quarn {

FullScreen::FullScreen() {
  tcgetattr(STDIN_FILENO, &before_);
  termios raw = before_;
  raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
  raw.c_cc[VSUSP] = _POSIX_VDISABLE;
  tcsetattr(STDIN_FILENO, TCSANOW, &raw);
  std::cout << "\033[?1049h\033[?25l";
  struct sigaction action = {};
  action.sa_handler = GiveBackAndEnd;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

void FullScreen::GiveBack() {
  constexpr std::string_view kEnd = "\033[?25h\033[?1049l";
  [[maybe_unused]] const ssize_t written = write(STDOUT_FILENO, kEnd.data(), kEnd.size());
  tcsetattr(STDIN_FILENO, TCSANOW, &before_);
}

void FullScreen::GiveBackAndEnd(int signal) {
  GiveBack();
  std::signal(signal, SIG_DFL);
  raise(signal);
}

}  // namespace Quarn
