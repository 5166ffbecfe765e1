#include "tools/interrupts.h"

namespace Quarn {
namespace {

volatile std::sig_atomic_t was_pressed = 0;
volatile std::sig_atomic_t is_noting = 0;
Interrupts::Hook end_command = nullptr;

void OnInterrupt(int signal) {
  // Pressed twice, it ends what cannot be interrupted.
  const bool is_urgent = was_pressed;
  was_pressed = 1;
  if (is_noting) return;
  if (end_command && !is_urgent) return end_command();
  std::signal(signal, SIG_DFL);
  raise(signal);
}

}  // namespace

void Interrupts::Catch(Hook hook) {
  end_command = hook;
  struct sigaction action = {};
  sigaction(SIGINT, nullptr, &action);
  if (action.sa_handler == SIG_IGN) return;  // as in the background
  action.sa_handler = OnInterrupt;
  sigaction(SIGINT, &action, nullptr);
}

void Interrupts::BeginQuestion() { is_noting = 1; }

bool Interrupts::WasPressed() { return was_pressed; }

bool Interrupts::Take() {
  const bool was = was_pressed;
  was_pressed = 0;
  return was;
}

Interrupts::Noting::Noting() {
  sigset_t interrupt;
  sigemptyset(&interrupt);
  sigaddset(&interrupt, SIGINT);
  sigprocmask(SIG_BLOCK, &interrupt, &mask_before_);
  is_noting = 1;
}

// What was pressed after the read is not for what follows.
Interrupts::Noting::~Noting() {
  sigprocmask(SIG_SETMASK, &mask_before_, nullptr);
  is_noting = 0;
}

}  // namespace Quarn
