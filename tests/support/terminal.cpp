#include "tests/support/terminal.h"

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace Quarn {
namespace {

constexpr int kCannotStart = 127;
constexpr std::chrono::milliseconds kPatience = std::chrono::minutes(1);
constexpr std::chrono::milliseconds kMoment(200);

// In the child: becomes the program.
[[noreturn]] void Become(const std::vector<std::string>& command, const std::string& home,
                         const Terminal::Environment& environment) {
  std::vector<char*> arguments;
  for (const std::string& argument : command)
    arguments.push_back(const_cast<char*>(argument.data()));
  arguments.push_back(nullptr);
  setenv("HOME", home.c_str(), 1);
  setenv("XDG_STATE_HOME", home.c_str(), 1);
  setenv("XDG_CONFIG_HOME", home.c_str(), 1);
  setenv("INPUTRC", (home + "/.inputrc").c_str(), 1);
  setenv("TERM", "xterm", 1);
  setenv("LC_ALL", "C.UTF-8", 1);
  setenv("NO_COLOR", "1", 1);
  for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
  execv(arguments.front(), arguments.data());
  _exit(kCannotStart);
}

int StatusOf(int status) { return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status); }

}  // namespace

Terminal::Terminal(const std::vector<std::string>& command, const std::string& home,
                   const Environment& environment) {
  const winsize size{24, 80, 0, 0};
  child_ = forkpty(&terminal_, nullptr, nullptr, &size);
  if (child_ < 0) throw std::runtime_error("no terminal");
  if (child_ == 0) Become(command, home, environment);
}

Terminal::~Terminal() {
  HangUp();
  if (child_ < 0) return;
  kill(child_, SIGKILL);
  Wait();
}

void Terminal::HangUp() {
  if (terminal_ >= 0) close(terminal_);
  terminal_ = -1;
}

void Terminal::Type(std::string_view keys) const {
  while (!keys.empty()) {
    const ssize_t written = write(terminal_, keys.data(), keys.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return;
    keys.remove_prefix(static_cast<std::size_t>(written));
  }
}

bool Terminal::Shows(std::string_view text) {
  while (true) {
    const std::size_t found = rest_.find(text);
    if (found != std::string::npos) {
      rest_.erase(0, found + text.size());
      return true;
    }
    if (!ReadMore(kPatience)) return false;
  }
}

bool Terminal::MakesNoSignals() const {
  const auto limit = std::chrono::steady_clock::now() + kPatience;
  termios modes = {};
  do {
    if (tcgetattr(terminal_, &modes) != 0) return false;
    if ((modes.c_lflag & ISIG) == 0) return true;
  } while (poll(nullptr, 0, 1) == 0 && std::chrono::steady_clock::now() < limit);
  return false;
}

// False at the end, or when patience is.
bool Terminal::ReadMore(std::chrono::milliseconds patience) {
  if (terminal_ < 0) return false;
  pollfd waiting{terminal_, POLLIN, 0};
  if (poll(&waiting, 1, static_cast<int>(patience.count())) <= 0) return errno == EINTR;
  std::array<char, 4096> part;
  const ssize_t count = read(terminal_, part.data(), part.size());
  if (count <= 0) return false;
  rest_.append(part.data(), static_cast<std::size_t>(count));
  return true;
}

int Terminal::Wait() {
  // What it still has to show would hold it up. One that does not end is made to.
  const auto limit = std::chrono::steady_clock::now() + kPatience;
  while (ReadMore(kPatience)) {
  }
  if (std::chrono::steady_clock::now() >= limit) kill(child_, SIGKILL);
  int status = 0;
  while (waitpid(child_, &status, 0) < 0 && errno == EINTR) {
  }
  child_ = -1;
  return StatusOf(status);
}

int Terminal::Interrupt() {
  const auto limit = std::chrono::steady_clock::now() + kPatience;
  int status = 0;
  while (waitpid(child_, &status, WNOHANG) == 0) {
    Type(kControlC);
    ReadMore(kMoment);
    if (std::chrono::steady_clock::now() >= limit) kill(child_, SIGKILL);
  }
  child_ = -1;
  return StatusOf(status);
}

}  // namespace Quarn
