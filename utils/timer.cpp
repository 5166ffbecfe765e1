#include "utils/timer.h"

#include "utils/time_manager.h"
#include "utils/utils_manager.h"

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

PeriodicTimer::PeriodicTimer(s_double period, s_bool running) : timer_(running), period_(period) {
  if (period > 0.0 && period.IsFinite()) return;
  UtilsManager::Get().Warning(kClassName, "the period must be above 0 s, and finite");
  period_ = s_double::NaN();  // compares false with any time
}

// Multiplied, since a running sum of periods would drift.
s_bool PeriodicTimer::HasPassed() {
  if (!(timer_.GetElapsed() >= next_ * period_)) return false;
  next_ += 1.0;
  return true;
}

void PeriodicTimer::Reset() {
  timer_.Reset();
  next_ = 1.0;
}

}  // namespace Quarn
