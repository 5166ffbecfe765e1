#include "tools/watch.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>
#include <sstream>

#include "tools/colours.h"
#include "tools/full_screen.h"
#include "tools/watched_script.h"

namespace Quarn {
namespace {

constexpr int kPollMilliseconds = 200;
constexpr char kControlD = 'D' & 0x1F;

winsize GetSize() {
  winsize size = {};
  const bool is_known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return is_known ? size : winsize{24, 80, 0, 0};
}

bool operator==(const winsize& a, const winsize& b) {
  return a.ws_col == b.ws_col && a.ws_row == b.ws_row;
}

class Watch {
 public:
  Watch(const std::string& path, bool is_coloured) : path_(path), is_coloured_(is_coloured) {}

  void Run() {
    while (true) {
      if (const FileStamp stamp = ReadStamp(path_); !is_started_ || stamp != stamp_) {
        stamp_ = stamp;
        RunScript();
      } else if (!(size_ == GetSize())) {
        Show();
      }
      if (IsOver()) return;
    }
  }

 private:
  void RunScript() {
    before_ = std::move(run_.rows);
    run_ = RunWatched(path_);
    if (!is_started_) before_ = run_.rows;  // nothing is marked at first
    is_started_ = true;
    Show();
  }

  void Show() {
    size_ = GetSize();
    std::vector<std::string> lines = GetLines();
    if (lines.size() > size_.ws_row) {
      const std::size_t hidden = lines.size() - size_.ws_row + 1;
      lines.resize(lines.size() - hidden);
      lines.push_back("  and " + std::to_string(hidden) + " more lines\n");
    }
    lines.back().pop_back();  // a newline would scroll
    std::cout << "\033[H";
    for (const std::string& line : lines) {
      std::cout << std::string_view(line).substr(0, line.find('\n')) << "\033[K"
                << (line.ends_with('\n') ? "\r\n" : "");
    }
    std::cout << "\033[J" << std::flush;
  }

  std::vector<std::string> GetLines() const {
    const std::size_t columns = size_.ws_col;
    std::vector<std::string> lines = {CutToColumns(path_ + " - q to leave", columns) + "\n"};
    for (std::string& line : FormatTable(run_.rows, before_, {columns, is_coloured_}))
      lines.push_back(std::move(line));
    std::istringstream messages(run_.messages);
    for (std::string message; std::getline(messages, message);) {
      message = CutToColumns(message, columns);
      lines.push_back((is_coloured_ ? Paint(message, kErrorColour) : message) + "\n");
    }
    return lines;
  }

  // Waits a moment for a key.
  static bool IsOver() {
    pollfd waiting{STDIN_FILENO, POLLIN, 0};
    if (poll(&waiting, 1, kPollMilliseconds) <= 0) return false;
    char key = 0;
    if (read(STDIN_FILENO, &key, 1) != 1) return true;
    return key == 'q' || key == kControlD;
  }

  const std::string path_;
  const bool is_coloured_;
  bool is_started_ = false;
  FileStamp stamp_;
  ScriptRun run_;
  std::vector<SymbolRow> before_;
  winsize size_ = {};
};

}  // namespace

void WatchScript(const std::string& path, bool is_coloured) {
  const FullScreen screen;
  Watch(path, is_coloured).Run();
}

}  // namespace Quarn
