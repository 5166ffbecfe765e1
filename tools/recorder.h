// Recorder appends commands to a file, each as soon as it was accepted, so that the file is a
// script that makes the same symbols.
//   Recorder recorder("session.mirlow");
//   if (!recorder.IsOpen()) ...        // errno says why
//   recorder.Add("x=1");
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/report.h"

namespace Quarn {

class Recorder {
 public:
  explicit Recorder(const std::string& path);
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;
  ~Recorder();

  bool IsOpen() const { return file_ >= 0; }
  bool HasFailed() const { return has_failed_; }

  // A command that did what the report says, to a State that had these names before. In a script
  // nobody is asked, so what "~" erased is erased by name.
  void Add(std::string_view command, const Report& report, const std::vector<std::string>& names);

 private:
  void Write(const std::string& lines);

  int file_;
  bool has_failed_ = false;
};

}  // namespace Quarn
