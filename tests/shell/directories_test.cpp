// Tests of tools/directories: where the environment says that files are.
#include "tools/directories.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>

namespace Quarn {
namespace {

// The environment of one test; what it replaced comes back.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* before = getenv(name)) before_ = before;
    value ? setenv(name, value, 1) : unsetenv(name);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { setenv(name_, before_.c_str(), 1); }

 private:
  const char* name_;
  std::string before_;
};

TEST(Directories, AreThoseOfTheEnvironment) {
  const struct {
    const char* xdg;
    const char* home;
    const char* history;
    const char* init;
  } kRows[] = {
      {"/xdg",      "/home/me", "/xdg/mirlow/history",                  "/xdg/mirlow/init"            },
      {nullptr,     "/home/me", "/home/me/.local/state/mirlow/history", "/home/me/.config/mirlow/init"},
      {"",          "/home/me", "/home/me/.local/state/mirlow/history", "/home/me/.config/mirlow/init"},
      {"not/whole", "/home/me", "/home/me/.local/state/mirlow/history",
       "/home/me/.config/mirlow/init"                                                                 },
      {nullptr,     nullptr,    "",                                     ""                            },
      {nullptr,     "home/me",  "",                                     ""                            },
  };
  for (const auto& row : kRows) {
    const Variable state("XDG_STATE_HOME", row.xdg);
    const Variable config("XDG_CONFIG_HOME", row.xdg);
    const Variable home("HOME", row.home);
    EXPECT_EQ(FindHistory(), row.history);
    EXPECT_EQ(FindInit(), row.init);
  }
}

}  // namespace
}  // namespace Quarn
