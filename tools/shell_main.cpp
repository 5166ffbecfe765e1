// mirlow-shell: the calculator with line editing, history and completion at a terminal, and with an
// end, an exit status and several sources of commands in a pipe. What the commands print is the
// calculator's, byte for byte.
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

// The State with its streams. Questions are asked where `answers` come from.
class Shell {
 public:
  explicit Shell(std::istream& answers)
      : watch_(*std::cout.rdbuf()), out_(&watch_), state_(out_, answers) {
    Vector::Register(state_);
  }

  State& GetState() { return state_; }

  // Once all was done.
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

Status Talk() {
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
  // Not even memory that runs out takes back what was printed.
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
  switch (line.wish) {
    case CommandLine::Wish::kShowHelp:
      std::cout << kUsage;
      return kGood;
    case CommandLine::Wish::kShowVersion:
      std::cout << "mirlow-shell " << kVersion << '\n';
      return kGood;
    case CommandLine::Wish::kNothing:
      return kCannotRun;
    case CommandLine::Wish::kRun:
      break;
  }
  if (!line.tasks.empty()) return RunTasks(line.tasks);
  return IsTerminal() ? Talk()
                      : RunTasks({
                            {Task::kFile, "-"}
  });
}

}  // namespace
}  // namespace Quarn

int main(int count, char** values) { return Quarn::Run(Quarn::ReadCommandLine(count, values)); }
