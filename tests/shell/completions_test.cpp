// Tests of tools/completions: every option that the shell knows is completed by every other shell.
#include <gtest/gtest.h>

#include <regex>

#include "tests/shell/shell.h"
#include "tools/command_line.h"

namespace Quarn {
namespace {

std::vector<std::string> FindOptions() {
  static const std::regex kOption("--([a-z-]+)");
  const std::string usage(kUsage);
  std::vector<std::string> options;
  for (std::sregex_iterator found(usage.begin(), usage.end(), kOption), end; found != end; ++found)
    options.push_back((*found)[1]);
  return options;
}

TEST(Completions, KnowEveryOption) {
  const std::string root = MIRLOW_ROOT;
  for (const std::string& option : FindOptions()) {
    for (const char* file : {"mirlow-shell.bash", "_mirlow-shell"}) {
      const std::string text = ReadBytes(root + "/tools/completions/" + file);
      EXPECT_NE(text.find("--" + option), std::string::npos) << file << ' ' << option;
    }
    const std::string fish = ReadBytes(root + "/tools/completions/mirlow-shell.fish");
    EXPECT_NE(fish.find("-l " + option + " "), std::string::npos) << option;
    const std::string page = ReadBytes(root + "/docs/man/mirlow-shell.1");
    const std::string escaped = std::regex_replace("--" + option, std::regex("-"), "\\-");
    EXPECT_NE(page.find(escaped), std::string::npos) << option;
  }
  EXPECT_GE(FindOptions().size(), 6U);  // the search still finds them
}

// As bash does when Tab is pressed after the last word.
std::string CompleteInBash(const std::string& words) {
  const std::string script =
      ". " MIRLOW_ROOT "/tools/completions/mirlow-shell.bash; compopt() { :; }; COMP_WORDS=(" +
      words + "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _mirlow_shell; echo \"${COMPREPLY[*]}\"";
  const TemporaryDirectory directory;
  directory.Write("loan.mirlow", "");
  return RunCommand({"/bin/bash", "-c", script}, "", {.directory = directory.PathOf("")}).output;
}

TEST(Completions, WorkInBash) {
  if (!std::filesystem::exists("/bin/bash")) GTEST_SKIP() << "no bash";
  EXPECT_EQ(CompleteInBash("mirlow-shell --pl"), "--plain\n");
  EXPECT_EQ(CompleteInBash("mirlow-shell --exe"), "--execute=\n");
  EXPECT_EQ(CompleteInBash("mirlow-shell --nothing"), "\n");
  EXPECT_EQ(CompleteInBash("mirlow-shell lo"), "loan.mirlow\n");
  EXPECT_EQ(CompleteInBash("mirlow-shell -e lo"), "\n");
}

}  // namespace
}  // namespace Quarn
