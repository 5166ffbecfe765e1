#include "utils/timer.h"

#include "utils/time_manager.h"

namespace Quarn {
namespace {

s_double Now() { return TimeManager::Get().GetTime(); }

}  // namespace

Timer::Timer(s_bool running) {
  if (running) Start();
}

void Timer::Start() {
  if (!paused_) return;
  start_ = Now();
  paused_ = false;
}

void Timer::Pause() {
  accumulated_ = GetElapsed();
  paused_ = true;
}

void Timer::Reset() {
  accumulated_ = 0.0;
  start_ = Now();
}

s_double Timer::GetElapsed() const {
  return paused_ ? accumulated_ : accumulated_ + Now() - start_;
}

}  // namespace Quarn
