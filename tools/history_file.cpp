#include "tools/history_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>

namespace Quarn {
namespace {

constexpr mode_t kOwnerOnly = 0700;
constexpr mode_t kOwnerMayReadAndWrite = 0600;

// With its missing parents.
void MakeDirectory(const std::filesystem::path& path) {
  if (path.empty() || mkdir(path.c_str(), kOwnerOnly) == 0 || errno != ENOENT) return;
  if (path == path.parent_path()) return;
  MakeDirectory(path.parent_path());
  mkdir(path.c_str(), kOwnerOnly);
}

}  // namespace

std::vector<std::string> HistoryFile::Load(std::size_t count) const {
  std::vector<std::string> lines;
  std::ifstream file(path_);
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  const bool is_long = lines.size() >= 2 * count;
  if (lines.size() > count) lines.erase(lines.begin(), lines.end() - static_cast<int>(count));
  if (is_long) {
    std::string text;
    for (const std::string& line : lines) text += line + '\n';
    Write(text, O_TRUNC);
  }
  return lines;
}

void HistoryFile::Append(const std::string& line) const {
  if (path_.empty()) return;
  MakeDirectory(path_.parent_path());
  Write(line + '\n', O_CREAT | O_APPEND);
}

void HistoryFile::Write(const std::string& text, int flags) const {
  const int file = open(path_.c_str(), O_WRONLY | O_CLOEXEC | flags, kOwnerMayReadAndWrite);
  if (file < 0) return;
  // A single write keeps lines of concurrent shells apart. Errors are ignored.
  [[maybe_unused]] const ssize_t written = write(file, text.data(), text.size());
  close(file);
}

}  // namespace Quarn
