// Interrupts decides what Ctrl-C does: it ends the program, or a command, or is noted by who reads
// from the terminal. Pressed again while a command goes on, it ends the program.
//   Interrupts::Catch(EndCommand);   // in a signal handler; null: ends the program
//   {
//     const Interrupts::Noting noting;
//     ...                            // read; a caught signal ends that
//     if (Interrupts::Take()) ...    // it was pressed
//   }
#pragma once

#include <csignal>

namespace Quarn {

class Interrupts {
 public:
  using Hook = void (*)();

  // From now on.
  static void Catch(Hook hook);

  // A question is about to be shown: until the end of the next Noting, Ctrl-C is only noted.
  static void BeginQuestion();

  static bool WasPressed();
  // Was it pressed since the last call?
  static bool Take();

  // In its scope Ctrl-C is only noted. SIGINT is blocked, so that it cannot be lost before the read
  // that it ends: TerminalInput lets it through.
  class Noting {
   public:
    Noting();
    Noting(const Noting&) = delete;
    Noting& operator=(const Noting&) = delete;
    ~Noting();

   private:
    sigset_t mask_before_ = {};
  };
};

}  // namespace Quarn
