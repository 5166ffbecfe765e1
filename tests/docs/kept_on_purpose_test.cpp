// Whatever the code keeps on purpose is explained in docs/kept_on_purpose.md, in the same words.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/temporary_directory.h"

namespace Quarn {
namespace {

const std::string kMark = "Kept on purpose: ";

// All words with one blank between them.
std::string JoinWords(const std::string& text) {
  std::istringstream stream(text);
  std::string joined;
  for (std::string word; stream >> word;) joined += word + " ";
  if (!joined.empty()) joined.pop_back();
  return joined;
}

// The words of a comment line behind its "//" or "#"; empty for any other line.
std::string ReadComment(const std::string& line) {
  const std::size_t begin = line.find_first_not_of(' ');
  if (begin == std::string::npos) return "";
  for (const std::string leader : {"// ", "# "}) {
    if (line.compare(begin, leader.size(), leader) == 0) return line.substr(begin + leader.size());
  }
  return "";
}

// What follows the mark, each to the end of its comment.
std::vector<std::string> FindReasons(const std::string& text) {
  std::vector<std::string> reasons;
  std::istringstream stream(text);
  bool inside = false;
  for (std::string line; std::getline(stream, line);) {
    const std::string comment = ReadComment(line);
    if (comment.starts_with(kMark)) {
      reasons.push_back(comment.substr(kMark.size()));
      inside = true;
    } else if (inside && !comment.empty()) {
      reasons.back() += " " + comment;
    } else {
      inside = false;
    }
  }
  return reasons;
}

bool IsRead(const std::filesystem::path& path) {
  const std::string extension = path.extension();
  return extension == ".h" || extension == ".cpp" || extension == ".txt";
}

TEST(KeptOnPurpose, IsFoundInComments) {
  const std::vector<std::string> reasons =
      FindReasons("// Kept on purpose: a\n//   b.\nint c;  // d\n  # Kept on purpose: e\n> f\n");
  EXPECT_EQ(reasons, (std::vector<std::string>{"a   b.", "e"}));
}

TEST(KeptOnPurpose, IsExplainedInTheSameWords) {
  const std::filesystem::path root = MIRLOW_SOURCE;
  const std::string explained = JoinWords(ReadBytes(root / "docs/kept_on_purpose.md"));
  std::size_t found = 0;
  for (const char* part : {"main.cpp", "utils", "interpreter", "types", "tests"}) {
    std::vector<std::filesystem::path> files = {root / part};
    if (std::filesystem::is_directory(root / part)) {
      const std::filesystem::recursive_directory_iterator begin(root / part), end;
      files.assign(begin, end);
    }
    for (const std::filesystem::path& file : files) {
      if (!IsRead(file) || file.filename() == "kept_on_purpose_test.cpp") continue;
      for (const std::string& reason : FindReasons(ReadBytes(file))) {
        ++found;
        // On the page it begins a sentence, or does not.
        const std::string words = JoinWords(reason).substr(1);
        EXPECT_NE(explained.find(words), std::string::npos) << file << ": " << reason;
      }
    }
  }
  EXPECT_GT(found, 10U);
}

}  // namespace
}  // namespace Quarn
