// HistoryFile stores the lines typed in a file that it creates for the owner alone. If it cannot,
// there is silently no history.
//   HistoryFile history(FindHistory());
//   for (const std::string& line : history.Load(1000)) ...
//   history.Append("1+1");
// Concurrent shells append to the same file, line by line.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Quarn {

class HistoryFile {
 public:
  // Empty: no history.
  explicit HistoryFile(std::filesystem::path path) : path_(std::move(path)) {}

  // The last `count` lines, the oldest first. Truncates a file that has twice as many.
  std::vector<std::string> Load(std::size_t count) const;
  // REQUIRES: no newline in the line.
  void Append(const std::string& line) const;

 private:
  void Write(const std::string& text, int flags) const;

  std::filesystem::path path_;
};

}  // namespace Quarn
