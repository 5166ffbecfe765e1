#include "tools/directories.h"

#include <cstdlib>

namespace Quarn {
namespace {

using Path = std::filesystem::path;

// Empty if the variable is not an absolute path.
Path FromEnvironment(const char* variable) {
  const char* value = std::getenv(variable);
  const Path path = value ? value : "";
  return path.is_absolute() ? path : Path();
}

Path Find(const char* variable, const Path& below_home, const Path& name) {
  const Path directory = FromEnvironment(variable);
  if (!directory.empty()) return directory / name;
  const Path home = FromEnvironment("HOME");
  return home.empty() ? Path() : home / below_home / name;
}

}  // namespace

Path FindHistory() { return Find("XDG_STATE_HOME", ".local/state", "mirlow/history"); }

Path FindInit() { return Find("XDG_CONFIG_HOME", ".config", "mirlow/init"); }

}  // namespace Quarn
