// A program on the screen of a terminal, in the hands of a test: what is read is what a person
// sees, after all that the program did to the screen. tmux plays the terminal.
//   if (!Screen::IsPossible()) GTEST_SKIP();
//   Screen screen("build/mirlow-shell", directory, {.columns = 20});
//   screen.Type("1+1\n");
//   screen.Shows("> 1+1\n        Scalar : 2\n> ");
// Destroying it ends the program.
#pragma once

#include <string>
#include <string_view>

#include "tests/support/temporary_directory.h"

namespace Quarn {

class Screen {
 public:
  struct Size {
    int columns = 80;
    int rows = 24;
  };

  // Is there a tmux?
  static bool IsPossible();

  // The command is for sh. Home and the directories for state and configuration are the given one,
  // and nothing is coloured.
  Screen(const std::string& command, const std::string& home, Size size);
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  ~Screen();

  // The bytes that the keys send.
  void Type(std::string_view keys) const;
  void Resize(Size size) const;

  // Is the text on the screen, or will it be? Waits for it. Lines have no blanks at their ends.
  bool Shows(std::string_view text) const;
  // All of it; with colours as control sequences.
  std::string GetText() const;
  std::string GetColours() const;

 private:
  std::string Run(const std::string& tmux_command) const;

  const TemporaryDirectory directory_;
};

}  // namespace Quarn
