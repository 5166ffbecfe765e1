// mirlow-shell: the calculator with line editing, history and completion at a terminal, and with an
// exit status and several sources of commands for pipes. Commands print what the calculator prints.
#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <sstream>

#include "interpreter/state.h"
#include "interpreter/version.h"
#include "tools/command_line.h"
#include "tools/error_watch.h"
#include "tools/line_reader.h"
#include "tools/run_commands.h"
#include "tools/session.h"
#include "tools/terminal_input.h"
#include "types/vector.h"

namespace Quarn {
namespace {

enum Status { kGood = 0, kReportedError = 1, kCannotRun = 2 };

bool IsTerminal() { return isatty(STDIN_FILENO) && isatty(STDOUT_FILENO); }

// The State and its streams; `answers` is its input for questions.
class Shell {
 public:
  explicit Shell(std::istream& answers)
      : watch_(*std::cout.rdbuf()), out_(&watch_), state_(out_, answers) {
    Vector::Register(state_);
  }

  State& GetState() { return state_; }

  Status GetStatus() {
    if (!out_.flush()) {
      std::cerr << "mirlow-shell: cannot write to standard output\n";
      return kCannotRun;
    }
    return watch_.HasSeenError() ? kReportedError : kGood;
  }

 private:
  ErrorWatch watch_;
  std::ostream out_;
  State state_;
};

Status RunInteractively() {
  TerminalInput input(STDIN_FILENO);
  std::istream answers(&input);
  Shell shell(answers);
  RunSession(shell.GetState(), *NewLineReader(shell.GetState(), input), answers);
  return shell.GetStatus();
}

bool RunTask(State& state, const Task& task) {
  if (task.kind == Task::kCommands) {
    std::istringstream commands(task.text);
    return RunCommands(state, commands, "commands");
  }
  if (task.text == "-") return RunCommands(state, std::cin, "standard input");
  return RunFile(state, task.text);
}

Status RunTasks(const std::vector<Task>& tasks) {
  std::ios::sync_with_stdio(false);
  std::cin.tie(nullptr);
  // So that no output is lost when memory runs out.
  std::set_terminate([] {
    std::cout.flush();
    std::abort();
  });
  Shell shell(std::cin);
  for (const Task& task : tasks) {
    if (RunTask(shell.GetState(), task)) continue;
    shell.GetStatus();
    return kCannotRun;
  }
  return shell.GetStatus();
}

Status Run(const CommandLine& line) {
  switch (line.action) {
    case CommandLine::Action::kShowHelp:
      std::cout << kUsage;
      return kGood;
    case CommandLine::Action::kShowVersion:
      std::cout << "mirlow-shell " << kVersion << '\n';
      return kGood;
    case CommandLine::Action::kReject:
      return kCannotRun;
    case CommandLine::Action::kRun:
      break;
  }
  if (!line.tasks.empty()) return RunTasks(line.tasks);
  return IsTerminal() ? RunInteractively()
                      : RunTasks({
                            {Task::kFile, "-"}
  });
}

}  // namespace
}  // namespace Quarn

int main(int count, char** values) { return Quarn::Run(Quarn::ReadCommandLine(count, values)); }
