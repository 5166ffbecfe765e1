// A child process whose standard input and output are pipes in the hands of a test. What it writes
// to standard error goes where the test's own goes. Destroying it kills the child, if it still
// runs.
//   Process child({"/bin/cat"});
//   child.Type("a\n");
//   child.Read(2);     // "a\n"
//   child.EndInput();
//   child.Wait();      // 0
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quarn {

class Process {
 public:
  struct Options {
    std::string directory;         // to work in; empty: that of the test
    bool as_nobody = false;        // gives up the rights of root, if the test has them
    std::size_t stack = 8U << 20;  // limit of the stack in bytes; kUnlimited for none
    // How long to wait for the next byte of output.
    std::chrono::milliseconds patience = std::chrono::minutes(1);
  };
  static constexpr std::size_t kUnlimited = static_cast<std::size_t>(-1);

  // Starts the program at the path command[0]. Raises std::runtime_error when it cannot.
  explicit Process(const std::vector<std::string>& command) : Process(command, Options()) {}
  Process(const std::vector<std::string>& command, const Options& options);
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process();

  // Writes to the child's standard input. Bytes that nobody reads any more are lost.
  void Type(std::string_view bytes) const;
  void EndInput();

  // So many bytes of the child's output; fewer when it ends or patience does.
  std::string Read(std::size_t size) const;
  // All that is still to come. Give up at `limit` bytes, for output without end.
  std::string ReadRest(std::size_t limit = kUnlimited) const { return Read(limit); }
  // Does the child, which still runs, write nothing for so long?
  bool IsSilentFor(std::chrono::milliseconds time) const;

  // The memory that the child, which still runs, has in use now.
  std::size_t GetResidentBytes() const;

  void Kill() const;
  void Interrupt() const;  // as Ctrl-C does at a terminal
  // Waits for the end: the exit status, or minus the number of the signal.
  int Wait();

 private:
  std::chrono::milliseconds patience_;
  pid_t child_ = -1;  // negative once it was waited for
  int input_ = -1;
  int output_ = -1;
};

}  // namespace Quarn
