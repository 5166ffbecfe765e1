#include "tests/support/screen.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace Quarn {
namespace {

constexpr auto kPatience = std::chrono::seconds(30);
constexpr auto kMoment = std::chrono::milliseconds(20);

std::string ReadOutput(const std::string& command) {
  FILE* const stream = popen(command.c_str(), "r");
  if (!stream) throw std::runtime_error("cannot run " + command);
  std::string output;
  std::array<char, 4096> part;
  for (std::size_t count; (count = fread(part.data(), 1, part.size(), stream)) > 0;)
    output.append(part.data(), count);
  pclose(stream);
  return output;
}

std::string Quote(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? "'\\''" : std::string(1, c);
  return quoted + "'";
}

std::string DropBlanksAtEnds(const std::string& text) {
  std::string trimmed;
  for (const char c : text) {
    if (c == '\n') trimmed.erase(trimmed.find_last_not_of(' ') + 1);
    trimmed += c;
  }
  return trimmed;
}

}  // namespace

bool Screen::IsPossible() { return !ReadOutput("command -v tmux 2>/dev/null").empty(); }

Screen::Screen(const std::string& command, const std::string& home, Size size) {
  const std::string environment = "env -u TMUX NO_COLOR=1 LC_ALL=C.UTF-8 HOME=" + home +
                                  " XDG_STATE_HOME=" + home + " XDG_CONFIG_HOME=" + home +
                                  " INPUTRC=" + home + "/.inputrc ";
  Run("-f /dev/null new-session -d -x " + std::to_string(size.columns) + " -y " +
      std::to_string(size.rows) + " " + Quote(environment + command));
}

Screen::~Screen() { Run("kill-server"); }

std::string Screen::Run(const std::string& tmux_command) const {
  return ReadOutput("LC_ALL=C.UTF-8 tmux -u -S " + directory_.PathOf("socket") + " " +
                    tmux_command + " 2>&1");
}

void Screen::Type(std::string_view keys) const {
  std::string bytes;
  for (const char key : keys) {
    std::array<char, 4> byte;
    std::snprintf(byte.data(), byte.size(), " %02x", static_cast<unsigned char>(key));
    bytes += byte.data();
  }
  Run("send-keys -H" + bytes);
}

void Screen::Resize(Size size) const {
  Run("resize-window -x " + std::to_string(size.columns) + " -y " + std::to_string(size.rows));
}

std::string Screen::GetText() const { return DropBlanksAtEnds(Run("capture-pane -p")); }

std::string Screen::GetColours() const { return Run("capture-pane -p -e"); }

bool Screen::Shows(std::string_view text) const {
  const auto limit = std::chrono::steady_clock::now() + kPatience;
  while (GetText().find(text) == std::string::npos) {
    if (std::chrono::steady_clock::now() >= limit) return false;
    std::this_thread::sleep_for(kMoment);
  }
  return true;
}

}  // namespace Quarn
