// Tests of tools/history_file: where it lies, who may read it, and what comes back.
#include "tools/history_file.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "tests/support/temporary_directory.h"

namespace Quarn {
namespace {

using std::filesystem::perms;

perms PermissionsOf(const std::filesystem::path& path) {
  return std::filesystem::status(path).permissions();
}

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

TEST(HistoryFile, LiesInTheDirectoryForState) {
  const struct {
    const char* state;
    const char* home;
    const char* path;
  } kRows[] = {
      {"/state",    "/home/me", "/state/mirlow/history"               },
      {nullptr,     "/home/me", "/home/me/.local/state/mirlow/history"},
      {"",          "/home/me", "/home/me/.local/state/mirlow/history"},
      {"not/whole", "/home/me", "/home/me/.local/state/mirlow/history"},
      {nullptr,     nullptr,    ""                                    },
  };
  for (const auto& row : kRows) {
    const Variable state("XDG_STATE_HOME", row.state);
    const Variable home("HOME", row.home);
    EXPECT_EQ(HistoryFile::FindPath(), row.path);
  }
}

TEST(HistoryFile, IsMadeForItsOwnerAlone) {
  const TemporaryDirectory directory;
  const std::filesystem::path path = directory.PathOf("a/b/mirlow/history");
  HistoryFile(path).Append("1+1");
  EXPECT_EQ(ReadBytes(path), "1+1\n");
  EXPECT_EQ(PermissionsOf(path), perms::owner_read | perms::owner_write);
  EXPECT_EQ(PermissionsOf(path.parent_path()), perms::owner_all);
  EXPECT_EQ(PermissionsOf(directory.PathOf("a")), perms::owner_all);
}

TEST(HistoryFile, KeepsLinesInTheirOrder) {
  const TemporaryDirectory directory;
  const HistoryFile file(directory.PathOf("history"));
  EXPECT_EQ(file.Load(10), std::vector<std::string>());
  file.Append("1");
  file.Append("x = 2;x");
  HistoryFile(directory.PathOf("history")).Append("3");
  EXPECT_EQ(file.Load(10), (std::vector<std::string>{"1", "x = 2;x", "3"}));
  EXPECT_EQ(file.Load(2), (std::vector<std::string>{"x = 2;x", "3"}));
}

TEST(HistoryFile, IsCutWhenItHasGrownToTwiceItsLength) {
  const TemporaryDirectory directory;
  const HistoryFile file(directory.Write("history", "1\n2\n3\n"));
  EXPECT_EQ(file.Load(2), (std::vector<std::string>{"2", "3"}));
  EXPECT_EQ(ReadBytes(directory.PathOf("history")), "1\n2\n3\n");
  file.Append("4");
  EXPECT_EQ(file.Load(2), (std::vector<std::string>{"3", "4"}));
  EXPECT_EQ(ReadBytes(directory.PathOf("history")), "3\n4\n");
}

TEST(HistoryFile, IsDoneWithoutWhereItCannotBe) {
  const HistoryFile none("");
  none.Append("1");
  EXPECT_EQ(none.Load(10), std::vector<std::string>());
  const HistoryFile impossible("/dev/null/mirlow/history");
  impossible.Append("1");
  EXPECT_EQ(impossible.Load(10), std::vector<std::string>());
}

}  // namespace
}  // namespace Quarn
