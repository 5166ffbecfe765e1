#include "tests/support/process.h"

#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace Quarn {
namespace {

constexpr int kNobody = 65534;
constexpr int kCannotStart = 127;

struct Pipe {
  int read_end;
  int write_end;
};

Pipe OpenPipe() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  return {ends[0], ends[1]};
}

void LimitStack(std::size_t bytes) {
  rlimit limit{};
  getrlimit(RLIMIT_STACK, &limit);
  const rlim_t wanted = bytes == Process::kUnlimited ? RLIM_INFINITY : bytes;
  limit.rlim_cur = std::min(wanted, limit.rlim_max);
  setrlimit(RLIMIT_STACK, &limit);
}

void DropRights() {
  if (geteuid() != 0) return;
  if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0) {
    _exit(kCannotStart);
  }
}

// In the child: becomes the program. It is open already, since nobody may not be allowed into the
// directory where it stands.
[[noreturn]] void Become(int program, const std::vector<std::string>& command,
                         const Process::Options& options) {
  std::vector<char*> arguments;
  for (const std::string& argument : command)
    arguments.push_back(const_cast<char*>(argument.data()));
  arguments.push_back(nullptr);
  if (!options.directory.empty() && chdir(options.directory.c_str()) != 0) _exit(kCannotStart);
  if (options.as_nobody) DropRights();
  LimitStack(options.stack);
  const rlimit no_core{};
  setrlimit(RLIMIT_CORE, &no_core);
  std::signal(SIGPIPE, SIG_DFL);
  // The sanitizers would make an exit status of a signal, and unlimited stacks have none at all.
  setenv("ASAN_OPTIONS", "handle_segv=0:handle_sigbus=0:handle_abort=0", 1);
  fexecve(program, arguments.data(), environ);
  _exit(kCannotStart);
}

// Waits until there is something to read, or the end of it. False when time is up.
bool WaitForBytes(int file, std::chrono::milliseconds time) {
  pollfd waiting{file, POLLIN, 0};
  int ready = 0;
  do {
    ready = poll(&waiting, 1, static_cast<int>(time.count()));
  } while (ready < 0 && errno == EINTR);
  return ready > 0;
}

}  // namespace

Process::Process(const std::vector<std::string>& command, const Options& options)
    : patience_(options.patience) {
  const int program = open(command.front().c_str(), O_RDONLY | O_CLOEXEC);
  if (program < 0) throw std::runtime_error("cannot open " + command.front());
  std::signal(SIGPIPE, SIG_IGN);
  const Pipe input = OpenPipe();
  const Pipe output = OpenPipe();
  child_ = fork();
  if (child_ < 0) throw std::runtime_error("no process");
  if (child_ == 0) {
    dup2(input.read_end, STDIN_FILENO);
    dup2(output.write_end, STDOUT_FILENO);
    Become(program, command, options);
  }
  close(program);
  close(input.read_end);
  close(output.write_end);
  input_ = input.write_end;
  output_ = output.read_end;
}

Process::~Process() {
  EndInput();
  close(output_);
  if (child_ < 0) return;
  Kill();
  Wait();
}

void Process::Type(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = write(input_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

void Process::EndInput() {
  if (input_ >= 0) close(input_);
  input_ = -1;
}

std::string Process::Read(std::size_t size) const {
  std::string bytes;
  std::array<char, 1 << 16> part;
  while (bytes.size() < size && WaitForBytes(output_, patience_)) {
    const ssize_t count = read(output_, part.data(), std::min(part.size(), size - bytes.size()));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    bytes.append(part.data(), static_cast<std::size_t>(count));
  }
  return bytes;
}

bool Process::IsSilentFor(std::chrono::milliseconds time) const {
  return !WaitForBytes(output_, time);
}

std::size_t Process::GetResidentBytes() const {
  std::ifstream stream("/proc/" + std::to_string(child_) + "/statm");
  std::size_t total = 0, resident = 0;
  stream >> total >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

void Process::Kill() const {
  if (child_ > 0) kill(child_, SIGKILL);
}

void Process::Interrupt() const {
  if (child_ > 0) kill(child_, SIGINT);
}

int Process::Wait() {
  int status = 0;
  while (waitpid(child_, &status, 0) < 0 && errno == EINTR) {
  }
  child_ = -1;
  return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace Quarn
