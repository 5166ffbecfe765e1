#include "tools/watched_script.h"

#include <sys/stat.h>

#include <cstdlib>
#include <sstream>

#include "tools/input_file.h"
#include "tools/limits_option.h"
#include "tools/run_commands.h"
#include "tools/runner.h"

namespace Quarn {

FileStamp ReadStamp(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return {};
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
          status.st_mtim.tv_nsec};
}

ScriptRun RunWatched(const std::string& path) {
  std::srand(1);
  std::ostringstream values;  // nobody sees them
  std::ostringstream messages;
  std::istringstream answers;
  Runner runner({.format = Format::kPlain, .limits = GetSessionLimits(), .errors = &messages},
                *values.rdbuf(), answers);
  InputFile file(path, [] {});
  std::istream lines(&file);
  RunFile(runner, lines, file, path, "'" + path + "'");
  return {ListSymbols(runner.GetState()), messages.str()};
}

}  // namespace Quarn
