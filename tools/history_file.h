// HistoryFile keeps the lines that were typed, one on a line, for the next time. It lies in the
// user's directory for state, $XDG_STATE_HOME or ~/.local/state, as mirlow/history; both are made
// when they are missing, for their owner alone. Where that is not possible there is no history, and
// nobody is bothered with it.
//   HistoryFile history(HistoryFile::FindPath());
//   for (const std::string& line : history.Load(1000)) ...
//   history.Append("1+1");
// Shells that run at once add to the same file, line by line.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Quarn {

class HistoryFile {
 public:
  // From the environment; empty when that names no directory.
  static std::filesystem::path FindPath();

  // An empty path: no file, nothing is kept.
  explicit HistoryFile(std::filesystem::path path) : path_(std::move(path)) {}

  // The last lines, at most so many, the oldest first. A file that has grown to twice as many is
  // cut down to them.
  std::vector<std::string> Load(std::size_t count) const;
  // REQUIRES: no newline in the line.
  void Append(const std::string& line) const;

 private:
  void Write(const std::string& text, int flags) const;

  std::filesystem::path path_;
};

}  // namespace Quarn
