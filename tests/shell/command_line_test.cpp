// Tests of tools/command_line: what the arguments ask for.
#include "tools/command_line.h"

#include <gtest/gtest.h>

namespace Quarn {
namespace {

CommandLine Read(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "mirlow-shell");
  std::vector<char*> values;
  for (std::string& argument : arguments) values.push_back(argument.data());
  values.push_back(nullptr);
  return ReadCommandLine(static_cast<int>(arguments.size()), values.data());
}

// "e:commands f:path".
std::string Tasks(const std::vector<std::string>& arguments) {
  std::string dump;
  for (const Task& task : Read(arguments).tasks) {
    dump += (dump.empty() ? "" : " ");
    dump += (task.kind == Task::kCommands ? "e:" : "f:") + task.text;
  }
  return dump;
}

TEST(CommandLine, KeepsCommandsAndFilesInTheirOrder) {
  EXPECT_EQ(Tasks({}), "");
  EXPECT_EQ(Tasks({"a", "-", "b"}), "f:a f:- f:b");
  EXPECT_EQ(Tasks({"-e", "x=1", "a", "-e1+1", "--execute=2"}), "e:x=1 f:a e:1+1 e:2");
  EXPECT_EQ(Tasks({"a", "--", "-e", "--help"}), "f:a f:-e f:--help");
  EXPECT_EQ(Tasks({"-e", "-1"}), "e:-1");
  EXPECT_EQ(Tasks({""}), "f:");
}

TEST(CommandLine, KnowsItsOptions) {
  using Action = CommandLine::Action;
  EXPECT_EQ(Read({"a"}).action, Action::kRun);
  EXPECT_EQ(Read({"--help"}).action, Action::kShowHelp);
  EXPECT_EQ(Read({"a", "-h"}).action, Action::kShowHelp);
  EXPECT_EQ(Read({"--version"}).action, Action::kShowVersion);
  EXPECT_EQ(Read({"-V"}).action, Action::kShowVersion);
  EXPECT_EQ(Read({"-x"}).action, Action::kReject);
  EXPECT_EQ(Read({"--unknown"}).action, Action::kReject);
  EXPECT_EQ(Read({"-e"}).action, Action::kReject);
  EXPECT_EQ(Read({"--help=me"}).action, Action::kReject);
}

}  // namespace
}  // namespace Quarn
