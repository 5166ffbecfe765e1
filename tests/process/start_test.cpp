// Tests of the arguments of the program: a file that can be read is a script; all else is the
// prompt.
#include <gtest/gtest.h>

#include "tests/process/program.h"

namespace Quarn {
namespace {

class Start : public testing::Test {
 protected:
  Outcome With(const std::vector<std::string>& arguments) {
    return RunToEnd(arguments, "3\nq\n", {.directory = directory_.PathOf("")});
  }

  const TemporaryDirectory directory_;
};

constexpr char kPromptRun[] = "> \tScalar : 3\n> ";
constexpr char kScriptRun[] = "\tScalar : 2\n";

TEST_F(Start, WithoutArgumentPrompts) { EXPECT_EQ(With({}).output, kPromptRun); }

TEST_F(Start, WithAFileRunsItWithoutPrompt) {
  EXPECT_EQ(With({directory_.Write("a", "1+1\n")}).output, kScriptRun);
}

TEST_F(Start, FindsTheFileInTheWorkingDirectory) {
  directory_.Write("a", "1+1\n");
  EXPECT_EQ(With({"a"}).output, kScriptRun);
}

TEST_F(Start, WithAMissingFilePromptsWithoutAWord) {
  EXPECT_EQ(With({directory_.PathOf("missing")}).output, kPromptRun);
  EXPECT_EQ(With({""}).output, kPromptRun);
}

TEST_F(Start, IgnoresFurtherArguments) {
  const std::string script = directory_.Write("a", "1+1\n");
  EXPECT_EQ(With({script, "b", "--help"}).output, kScriptRun);
  EXPECT_EQ(With({script, script}).output, kScriptRun);
  EXPECT_EQ(With({"--help", script}).output, kPromptRun);
}

TEST_F(Start, EndsWithStatus0WhateverHappened) {
  EXPECT_EQ(With({}).status, 0);
  EXPECT_EQ(With({directory_.Write("good", "1+1\n")}).status, 0);
  EXPECT_EQ(With({directory_.Write("bad", "1+\nx:Foo\n")}).status, 0);
  EXPECT_EQ(With({directory_.Write("empty", "")}).status, 0);
}

}  // namespace
}  // namespace Quarn
