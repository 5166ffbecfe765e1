// Tests of tools/input_file: what it reads, when it calls its hook, and why it failed.
#include "tools/input_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <istream>

#include "tests/support/temporary_directory.h"

namespace Quarn {
namespace {

TEST(InputFile, ReadsAFileWithoutWaiting) {
  const TemporaryDirectory directory;
  const std::string bytes(200000, 'x');
  int waits = 0;
  InputFile file(directory.Write("file", bytes), [&] { ++waits; });
  std::istream stream(&file);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), bytes);
  EXPECT_EQ(file.GetError(), 0);
  EXPECT_EQ(waits, 0);
}

TEST(InputFile, SaysWhyItFailed) {
  const struct {
    const char* path;
    int error;
  } kRows[] = {
      {"/",         EISDIR},
      {"",          ENOENT},
      {"/no/such",  ENOENT},
      {"/dev/null", 0     },
  };
  for (const auto& row : kRows) {
    InputFile file(row.path, [] {});
    EXPECT_EQ(std::istream(&file).get(), EOF) << row.path;
    EXPECT_EQ(file.GetError(), row.error) << row.path;
  }
}

TEST(InputFile, CallsItsHookBeforeItWouldBlock) {
  std::array<int, 2> pipe_ends{};
  ASSERT_EQ(pipe(pipe_ends.data()), 0);
  const auto [read_end, write_end] = pipe_ends;
  ASSERT_EQ(write(write_end, "1\n2\n", 4), 4);
  int waits = 0;
  // What it waits for comes because of the hook, as from a process that got its answer.
  InputFile file(read_end, [&, end = write_end] {
    ++waits;
    EXPECT_EQ(write(end, "3\n", 2), 2);
    close(end);
  });
  std::istream stream(&file);
  std::string line;
  for (const char* expected : {"1", "2", "3"}) {
    const int waits_before = expected == std::string("3") ? 1 : 0;
    ASSERT_TRUE(std::getline(stream, line));
    EXPECT_EQ(line, expected);
    EXPECT_EQ(waits, waits_before);
  }
  EXPECT_FALSE(std::getline(stream, line));
  EXPECT_EQ(waits, 1);  // an end does not block
  close(read_end);
}

}  // namespace
}  // namespace Quarn
