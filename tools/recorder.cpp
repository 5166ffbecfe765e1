#include "tools/recorder.h"

#include <fcntl.h>
#include <unistd.h>

namespace Quarn {
namespace {

constexpr mode_t kAsUmaskSays = 0666;
// Forgets the last result, as every deletion does.
constexpr char kForgetLastResult[] = "~_\n";

bool IsAccepted(Report::Kind kind) {
  return kind != Report::Kind::kError && kind != Report::Kind::kWarning;
}

std::string EraseByName(const std::vector<std::string>& names) {
  std::string lines;
  for (const std::string& name : names) {
    if (!name.empty() && name != "_") lines += "~" + name + "\n";
  }
  return lines;
}

}  // namespace

Recorder::Recorder(const std::string& path)
    : file_(open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, kAsUmaskSays)) {}

Recorder::~Recorder() {
  if (IsOpen()) close(file_);
}

void Recorder::Add(std::string_view command, const Report& report,
                   const std::vector<std::string>& names) {
  if (!IsAccepted(report.kind)) return;
  if (command != "~") return Write(std::string(command) + '\n');
  const bool is_erased = report.kind == Report::Kind::kDeletion;
  Write((is_erased ? EraseByName(names) : "") + kForgetLastResult);
}

void Recorder::Write(const std::string& lines) {
  const ssize_t written = write(file_, lines.data(), lines.size());
  has_failed_ = has_failed_ || written != static_cast<ssize_t>(lines.size());
}

}  // namespace Quarn
