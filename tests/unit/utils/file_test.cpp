// Tests of File: its opening modes, its line reader, its indenting writer, length and position.
#include "utils/file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <type_traits>

#include "tests/support/dump.h"
#include "tests/support/temporary_directory.h"

namespace Quarn {
namespace {

constexpr uid_t kNobody = 65534;

// Files allow the super-user everything; while this lives, the test is somebody else.
class OrdinaryUser {
 public:
  OrdinaryUser() : before_(geteuid()), done_(before_ != 0 || seteuid(kNobody) == 0) {}
  ~OrdinaryUser() {
    if (geteuid() != before_) done_ = seteuid(before_) == 0;
  }
  bool Done() const { return done_; }

 private:
  uid_t before_;
  bool done_;
};

// Every line until the loop of a reader ends, each followed by "|".
std::string Lines(File& file) {
  std::string lines;
  while (file.IsValid()) lines += file.GetLine().Get() + "|";
  return lines;
}

std::string LinesOf(const std::string& bytes) {
  const TemporaryDirectory directory;
  File file(directory.Write("a.txt", bytes), File::kRead);
  return Lines(file);
}

class FileTest : public testing::Test {
 protected:
  const TemporaryDirectory directory_;
};

TEST_F(FileTest, IsAStandardStream) {
  static_assert(std::is_base_of_v<std::fstream, File>);
  File file(directory_.Write("a.txt", "12 x"), File::kRead);
  int number = 0;
  file >> number;
  EXPECT_EQ(number, 12);
}

TEST_F(FileTest, EmptyPathDoesNotExist) { EXPECT_FALSE(File::Exists("")); }

TEST_F(FileTest, ExistsWhenItCanBeRead) {
  EXPECT_FALSE(File::Exists(directory_.PathOf("a.txt")));
  directory_.Write("a.txt", "");
  EXPECT_TRUE(File::Exists(directory_.PathOf("a.txt")));
}

TEST_F(FileTest, DoesNotExistForWhoMayNotReadIt) {
  const std::string path = directory_.Write("a.txt", "");
  std::filesystem::permissions(path, std::filesystem::perms::none);
  const OrdinaryUser user;
  if (!user.Done()) GTEST_SKIP() << "cannot become an ordinary user";
  EXPECT_FALSE(File::Exists(path));
}

TEST_F(FileTest, ModesOpenWhatTheyNeed) {
  const struct {
    unsigned int mode;
    bool opens_missing;
    const char* after;  // what a file holding "old" holds after opening and writing "n"
  } kRows[] = {
      {File::kReadWrite, false, "nld"},
      {File::kRead,      false, "old"},
      {File::kWrite,     true,  "n"  }, // emptied
  };
  for (const auto& row : kRows) {
    for (const bool binary : {false, true}) {
      SCOPED_TRACE(row.mode);
      const std::string missing = directory_.PathOf("missing.txt");
      EXPECT_EQ(bool(File(missing, row.mode, binary).IsOpen()), row.opens_missing);
      EXPECT_EQ(std::filesystem::remove(missing), row.opens_missing);

      const std::string path = directory_.Write("a.txt", "old");
      {
        File file(path, row.mode, binary);
        EXPECT_TRUE(file.IsOpen());
        EXPECT_TRUE(file.IsValid());
        file << 'n';
      }
      EXPECT_EQ(ReadBytes(path), row.after);
    }
  }
}

TEST_F(FileTest, OtherModesLeaveItUnopened) {
  const std::string path = directory_.Write("a.txt", "old");
  for (const unsigned int mode : {3U, 4U, 4294967295U}) {
    File file(path, mode);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_FALSE(file.IsValid());
    EXPECT_FALSE(file.fail());  // nothing was tried
    EXPECT_EQ(Dump(file.GetName()), path);
  }
  EXPECT_EQ(ReadBytes(path), "old");
}

TEST_F(FileTest, ReadingAndWritingAtOnceNeedsTheRightToWrite) {
  const std::string path = directory_.Write("a.txt", "1\n");
  std::filesystem::permissions(path, std::filesystem::perms(0444));
  const OrdinaryUser user;
  if (!user.Done()) GTEST_SKIP() << "cannot become an ordinary user";
  EXPECT_TRUE(File::Exists(path));
  EXPECT_TRUE(File(path, File::kRead).IsOpen());
  const File file(path, File::kReadWrite);
  EXPECT_FALSE(file.IsOpen());
  EXPECT_TRUE(file.fail());
}

TEST_F(FileTest, AFileThatCannotBeOpenedGivesEmptyLines) {
  File file(directory_.PathOf("missing.txt"), File::kRead);
  EXPECT_FALSE(file.IsOpen());
  EXPECT_FALSE(file.IsValid());
  EXPECT_TRUE(file.fail());
  EXPECT_EQ(Dump(file.GetLine()), "");
  s_str line = "left over";
  file.GetLine(line);
  EXPECT_EQ(Dump(line), "");
  EXPECT_EQ(Dump(file.GetLength()), "nan");
  EXPECT_EQ(Dump(file.GetPosition()), "nan");
}

TEST_F(FileTest, ReadsLinesWithoutCarriageReturns) {
  const struct {
    const char *bytes, *lines;
  } kRows[] = {
      {"a\nb",        "a|b|"  },
      {"a\nb\n",      "a|b||" }, // the end is met after the last newline only
      {"a\r\nb\r\n",  "a|b||" },
      {"a\rb\r\rc\r", "abc|"  }, // in the middle of a line too
      {"\r\n\r\n",    "|||"   },
      {"\n\na\n",     "||a||" },
      {"",            "|"     },
      {"\r",          "|"     },
      {" a \t",       " a \t|"}, // nothing else is taken away
  };
  for (const auto& row : kRows) EXPECT_EQ(LinesOf(row.bytes), row.lines);
}

TEST_F(FileTest, ReadsEveryByteButTheTwoThatEndLines) {
  std::string bytes;
  for (int code = 0; code <= 0xFF; ++code) {
    if (code != '\n' && code != '\r') bytes += static_cast<char>(code);
  }
  EXPECT_EQ(LinesOf(bytes), bytes + "|");
}

TEST_F(FileTest, ReadsLinesLongerThanAnyBuffer) {
  const std::string line(100000, 'x');
  EXPECT_EQ(LinesOf(line + "\r\n" + line), line + "|" + line + "|");
}

TEST_F(FileTest, ALineThatIsUsedAgainHoldsNothingOfTheLast) {
  File file(directory_.Write("a.txt", "long line\nb\r\n\n"), File::kRead);
  std::string lines;
  for (s_str line = "before"; file.IsValid();) {
    file.GetLine(line);
    lines += line.Get() + "|";
  }
  EXPECT_EQ(lines, "long line|b|||");
}

TEST_F(FileTest, WritesLinesIndentedAlike) {
  const struct {
    s_uint indent;
    const char *text, *bytes;
  } kRows[] = {
      {0U,          "a",        "a\n"                       },
      {0U,          "a\nb",     "a\nb\n"                    },
      {0U,          "",         "\n"                        },
      {1U,          "a",        "    a\n"                   },
      {2U,          "a\nb",     "        a\n        b\n"    },
      {1U,          "a\n\nb\n", "    a\n    \n    b\n    \n"},
      {1U,          "",         "    \n"                    },
      {s_uint::NaN, "a\nb",     "a\nb\n"                    }, // no number of blanks
  };
  for (const auto& row : kRows) {
    const std::string path = directory_.PathOf("a.txt");
    {
      File file(path, File::kWrite);
      file.SetIndent(row.indent);
      file.WriteLine(row.text);
    }
    EXPECT_EQ(ReadBytes(path), row.bytes) << row.text;
  }
}

TEST_F(FileTest, IndentsFromWhereItIsToldTo) {
  const std::string path = directory_.PathOf("a.txt");
  File file(path, File::kWrite);
  EXPECT_EQ(Dump(file.GetIndent()), "0");
  file.WriteLine("a");
  file.SetIndent(1U);
  file.WriteLine("b");
  EXPECT_EQ(Dump(file.GetIndent()), "1");
  file.SetIndent(0U);
  file.WriteLine("c");
  file.Close();
  EXPECT_EQ(ReadBytes(path), "a\n    b\nc\n");
}

TEST_F(FileTest, KnowsThePathAsItWasGiven) {
  EXPECT_EQ(Dump(File("./no/../where.txt", File::kRead).GetName()), "./no/../where.txt");
}

TEST_F(FileTest, LengthAndPositionCountBytes) {
  File file(directory_.Write("a.txt", "ab\r\ncd"), File::kRead);
  EXPECT_EQ(Dump(file.GetLength()), "6");
  EXPECT_EQ(Dump(file.GetPosition()), "0");
  file.GetLine();
  EXPECT_EQ(Dump(file.GetPosition()), "4");
  EXPECT_EQ(Dump(file.GetLength()), "6");
  EXPECT_EQ(Dump(file.GetPosition()), "4");
  EXPECT_EQ(Dump(file.GetLine()), "cd");
}

TEST_F(FileTest, AskingForTheLengthLeavesTheEndMet) {
  File file(directory_.Write("a.txt", "ab"), File::kRead);
  file.GetLine();
  EXPECT_FALSE(file.IsValid());
  EXPECT_EQ(Dump(file.GetLength()), "2");
  EXPECT_EQ(Dump(file.GetPosition()), "2");
  EXPECT_FALSE(file.IsValid());
  EXPECT_FALSE(file.fail());
}

TEST_F(FileTest, LengthCountsWhatIsNotYetFlushed) {
  File file(directory_.PathOf("a.txt"), File::kWrite);
  EXPECT_EQ(Dump(file.GetLength()), "0");
  file.WriteLine("abc");
  EXPECT_EQ(Dump(file.GetLength()), "4");
  file.WriteLine("d");
  EXPECT_EQ(Dump(file.GetLength()), "6");
}

TEST_F(FileTest, ALengthBeyondCountingIsInfinite) {
  const std::string path = directory_.Write("a.txt", "ab\n");
  std::error_code error;
  std::filesystem::resize_file(path, 5000000000U, error);  // a hole: it takes no room
  if (error) GTEST_SKIP() << "no large files here";
  File file(path, File::kRead);
  EXPECT_EQ(Dump(file.GetLength()), "inf");
  EXPECT_EQ(Dump(file.GetPosition()), "0");
}

TEST_F(FileTest, CloseEndsTheUseOfTheFile) {
  File file(directory_.Write("a.txt", "ab\ncd"), File::kRead);
  file.Close();
  EXPECT_FALSE(file.IsOpen());
  EXPECT_FALSE(file.IsValid());
  EXPECT_FALSE(file.fail());
  file.Close();  // nothing to close
  EXPECT_TRUE(file.fail());
}

TEST_F(FileTest, CloseFailsWhenTheLastBytesFindNoRoom) {
  File file("/dev/full", File::kWrite);
  if (!file.IsOpen()) GTEST_SKIP() << "no full device here";
  file.WriteLine("a");
  EXPECT_FALSE(file.fail());
  file.Close();
  EXPECT_TRUE(file.fail());
}

}  // namespace
}  // namespace Quarn
