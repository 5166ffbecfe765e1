// One run of a script that is watched.
#pragma once

#include <string>
#include <vector>

#include "tools/symbol_rows.h"

namespace Quarn {

// What tells a file that was saved from the one before, whether it was written anew or replaced.
struct FileStamp {
  unsigned long device = 0;
  unsigned long inode = 0;
  long long size = -1;  // of no file
  long long seconds = 0;
  long nanoseconds = 0;

  bool operator==(const FileStamp&) const = default;
};
FileStamp ReadStamp(const std::string& path);

struct ScriptRun {
  std::vector<SymbolRow> rows;
  std::string messages;  // "loan.mirlow:3: Error : ...", a line each
};
// In a State of its own, with the random numbers of a new process. Questions are answered with yes,
// as at the end of input.
ScriptRun RunWatched(const std::string& path);

}  // namespace Quarn
