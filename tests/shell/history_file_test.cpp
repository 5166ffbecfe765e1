// Tests of tools/history_file: who may read it, and what comes back.
#include "tools/history_file.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_directory.h"

namespace Quarn {
namespace {

using std::filesystem::perms;

perms PermissionsOf(const std::filesystem::path& path) {
  return std::filesystem::status(path).permissions();
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
