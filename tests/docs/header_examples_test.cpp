// The example on top of a header runs in a test: it stands there in the same words.
#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>

#include "tests/support/temporary_directory.h"

namespace Quarn {
namespace {

const std::string kRoot = MIRLOW_SOURCE;

std::string WithoutBlanks(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
  return text;
}

// The lines of the comment on top that are set in by three blanks.
std::string FindExample(const std::string& header) {
  std::string example;
  std::istringstream stream(header);
  for (std::string line; std::getline(stream, line) && line.starts_with("//");) {
    if (line.starts_with("//   ")) example += line.substr(2);
  }
  return WithoutBlanks(example);
}

// Does the example stand in the text, with something of a block in place of each "..."?
bool Holds(const std::string& text, const std::string& example) {
  const std::string escaped =
      std::regex_replace(example, std::regex(R"([.*+?()[\]{}|\\^$])"), R"(\$&)");
  const std::string pattern = std::regex_replace(escaped, std::regex(R"((\\\.){3})"), "[^{}]*");
  return std::regex_search(WithoutBlanks(text), std::regex(pattern));
}

TEST(HeaderExamples, AreFoundWithTheirGaps) {
  const std::string example = FindExample("// a\n//   b(1);\n//   { c ... }\n// d\n\n//   e\n");
  EXPECT_EQ(example, "b(1);{c...}");
  EXPECT_TRUE(Holds("x;\nb(1);\n{\n  c;\n  d;\n}\ny", example));
  EXPECT_FALSE(Holds("b(1);\ny;\n{\n  c;\n}", example));
  EXPECT_FALSE(Holds("b(1);\n{\n  c;\n  {\n  }\n}", example));
}

TEST(HeaderExamples, OfTheProfilerRunsInItsTest) {
  const std::string example = FindExample(ReadBytes(kRoot + "/utils/profiler.h"));
  EXPECT_NE(example, "");
  EXPECT_TRUE(
      Holds(ReadBytes(kRoot + "/tests/unit/utils/time_manager_profiling_test.cpp"), example))
      << example;
}

}  // namespace
}  // namespace Quarn
