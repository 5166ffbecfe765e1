// mirlow-shell: the calculator with line editing, history and completion at a terminal, and with an
// exit status and several sources of commands for pipes. Commands print what the calculator prints.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <sstream>

#include "interpreter/version.h"
#include "tools/answers.h"
#include "tools/command_line.h"
#include "tools/directories.h"
#include "tools/input_file.h"
#include "tools/interrupts.h"
#include "tools/limits_option.h"
#include "tools/line_reader.h"
#include "tools/run_commands.h"
#include "tools/runner.h"
#include "tools/session.h"
#include "tools/watch.h"

namespace Quarn {
namespace {

enum Status { kGood = 0, kReportedError = 1, kCannotRun = 2 };

bool Talks() { return isatty(STDIN_FILENO) && isatty(STDOUT_FILENO); }

bool ErrorsJoinOutput() {
  struct stat output {};
  struct stat errors {};
  return fstat(STDOUT_FILENO, &output) == 0 && fstat(STDERR_FILENO, &errors) == 0 &&
         output.st_dev == errors.st_dev && output.st_ino == errors.st_ino;
}

Runner::Options OptionsOf(const CommandLine& line, Recorder* recorder) {
  return {.format = line.format,
          .stops_on_error = line.stops_on_error,
          .errors_join_output = ErrorsJoinOutput(),
          .is_coloured = UsesColour(line.colour),
          .limits = line.limits,
          .recorder = recorder,
          .asks_at_terminal = isatty(STDIN_FILENO) != 0};
}

Status FinishOutput() {
  if (std::cout.flush()) return kGood;
  std::cerr << "mirlow-shell: cannot write to standard output\n";
  return kCannotRun;
}

Status Finish(Runner& runner) {
  runner.Flush();
  const Status status = FinishOutput();
  return status == kGood && runner.HasSeenError() ? kReportedError : status;
}

// Only its errors are shown. There need not be one.
void RunInit(Runner& runner) {
  const std::string path = FindInit();
  InputFile file(path, [] {});
  if (path.empty() || file.GetError() == ENOENT) return;
  std::istream lines(&file);
  runner.SetSilent(true);
  RunFile(runner, lines, file, path, "'" + path + "'");
  runner.SetSilent(false);
  runner.Flush();
}

// Whose evaluation Ctrl-C ends.
State* interrupted_state = nullptr;

Status Talk(const CommandLine& line, Recorder* recorder) {
  TerminalInput terminal(STDIN_FILENO);
  Answers buffer(terminal);
  std::istream answers(&buffer);
  Runner runner(OptionsOf(line, recorder), *std::cout.rdbuf(), answers);
  interrupted_state = &runner.GetState();
  Interrupts::Catch([] { interrupted_state->Interrupt(); });
  if (line.reads_init) RunInit(runner);
  const bool is_coloured = UsesColour(line.colour);
  RunSession(runner, *NewLineReader(runner.GetState(), terminal, is_coloured), is_coloured);
  return Finish(runner);
}

// Runs commands and scripts; questions are answered at standard input.
class Batch {
 public:
  Batch(const CommandLine& line, Recorder* recorder)
      : answers_(isatty(STDIN_FILENO) ? static_cast<std::streambuf*>(&typed_) : &input_),
        runner_(OptionsOf(line, recorder), *std::cout.rdbuf(), answers_) {}

  Ran Run(const Task& task) {
    if (task.kind == Task::kCommands) {
      std::istringstream commands(task.text);
      return RunCommands(runner_, commands, "-e");
    }
    if (task.text == "-") {
      std::istream lines(&input_);
      return RunFile(runner_, lines, input_, "-", "standard input");
    }
    return RunScript(task.text);
  }

  Runner& GetRunner() { return runner_; }

 private:
  Ran RunScript(const std::string& path) {
    InputFile file(path, [this] { runner_.Flush(); });
    std::istream lines(&file);
    const Ran ran = RunFile(runner_, lines, file, path, "'" + path + "'");
    if (file.GetError() == ENOENT && LooksLikeCommands(path)) {
      std::cerr << "To calculate it, type: mirlow-shell -e '" << path << "'\n";
    }
    return ran;
  }

  InputFile input_{STDIN_FILENO, [this] { runner_.Flush(); }};
  TerminalInput terminal_{STDIN_FILENO};
  Answers typed_{terminal_};
  std::istream answers_;
  Runner runner_;
};

Status RunTasks(const CommandLine& line, Recorder* recorder) {
  // So that no output is lost when memory runs out.
  std::set_terminate([] {
    std::cout.flush();
    std::abort();
  });
  Batch batch(line, recorder);
  Interrupts::Catch(nullptr);
  for (const Task& task : line.tasks) {
    const Ran ran = batch.Run(task);
    if (ran == Ran::kToItsEnd) continue;
    const Status status = Finish(batch.GetRunner());
    return ran == Ran::kCannotRead ? kCannotRun : status;
  }
  return Finish(batch.GetRunner());
}

Status RunCommandsOf(CommandLine line, Recorder* recorder) {
  const bool talks = line.tasks.empty() && Talks();
  // Scripts end, or do not, as they do elsewhere.
  const Limits limits = talks ? GetSessionLimits() : Limits();
  line.limits = ChangeLimits(limits, line.limit_changes).value_or(limits);
  if (talks) return Talk(line, recorder);
  std::ios::sync_with_stdio(false);
  if (line.tasks.empty())
    line.tasks = {
        {Task::kFile, "-"}
    };
  return RunTasks(line, recorder);
}

Status Record(const CommandLine& line) {
  Recorder recorder(line.record);
  const bool is_open = recorder.IsOpen();
  const int reason = errno;
  const Status status = is_open ? RunCommandsOf(line, &recorder) : kCannotRun;
  if (is_open && !recorder.HasFailed()) return status;
  std::cerr << "mirlow-shell: cannot write to '" << line.record << "'";
  if (!is_open) std::cerr << ": " << std::strerror(reason);
  std::cerr << '\n';
  return kCannotRun;
}

Status Watch(const CommandLine& line) {
  if (!Talks()) {
    std::cerr << "mirlow-shell: --watch needs a terminal\n";
    return kCannotRun;
  }
  WatchScript(line.watched, UsesColour(line.colour));
  return kGood;
}

Status Run(const CommandLine& line) {
  switch (line.action) {
    case CommandLine::Action::kShowHelp:
      std::cout << kUsage;
      return FinishOutput();
    case CommandLine::Action::kShowVersion:
      std::cout << "mirlow-shell " << kVersion << '\n';
      return FinishOutput();
    case CommandLine::Action::kShowLimits:
      std::cout << FormatLimits(GetSessionLimits());
      return FinishOutput();
    case CommandLine::Action::kReject:
      return kCannotRun;
    case CommandLine::Action::kWatch:
      return Watch(line);
    case CommandLine::Action::kRun:
      break;
  }
  return line.record.empty() ? RunCommandsOf(line, nullptr) : Record(line);
}

}  // namespace
}  // namespace Quarn

int main(int count, char** values) { return Quarn::Run(Quarn::ReadCommandLine(count, values)); }
