// A child process at a terminal of its own, in the hands of a test: what is typed passes through
// the terminal, and what is read is what a person would see, control sequences and echo included.
//   Terminal terminal({"build/mirlow-shell"}, directory);
//   terminal.Shows("> ");
//   terminal.Type("1+1\n");
//   terminal.Shows("\tScalar : 2");
//   terminal.Type(Terminal::kControlD);
//   terminal.Wait();  // 0
// Destroying it kills the child, if it still runs.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quarn {

class Terminal {
 public:
  static constexpr std::string_view kControlC = "\x03";
  static constexpr std::string_view kControlD = "\x04";
  static constexpr std::string_view kUp = "\x1b[A";

  using Environment = std::vector<std::pair<std::string, std::string>>;

  // Home and the directories for state and configuration are the given one, and nothing is
  // coloured, unless the environment says otherwise. Raises std::runtime_error when there is no
  // terminal.
  Terminal(const std::vector<std::string>& command, const std::string& home,
           const Environment& environment = {});
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal();

  void Type(std::string_view keys) const;
  // Nothing can be typed any more.
  void HangUp();

  // Does the text appear, behind what was shown before? Waits for it, a minute at most.
  bool Shows(std::string_view text);
  // Does the child make Ctrl-C a key like any other? Waits for it, a minute at most.
  bool MakesNoSignals() const;
  // All that appeared so far and was not asked for.
  const std::string& GetRest() const { return rest_; }

  // Waits for the end: the exit status, or minus the number of the signal. Kills a child that does
  // not end within a minute.
  int Wait();
  // Presses Ctrl-C until the child ends; as Wait.
  int Interrupt();

 private:
  bool ReadMore(std::chrono::milliseconds patience);

  pid_t child_ = -1;  // negative once it was waited for
  int terminal_ = -1;
  std::string rest_;
};

}  // namespace Quarn
