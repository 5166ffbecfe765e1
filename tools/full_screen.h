// FullScreen is a screen of its own on a terminal, whose keys come one by one, unechoed. Both are
// given back in the end, also when a signal ends the program.
//   const FullScreen screen;
//   std::cout << "\033[H" << ...;
#pragma once

#include <termios.h>

namespace Quarn {

class FullScreen {
 public:
  // REQUIRES: standard input and output are a terminal, and there is no other FullScreen.
  FullScreen();
  FullScreen(const FullScreen&) = delete;
  FullScreen& operator=(const FullScreen&) = delete;
  ~FullScreen() { GiveBack(); }

 private:
  static void GiveBack();
  static void GiveBackAndEnd(int signal);

  static inline termios before_ = {};
};

}  // namespace Quarn
