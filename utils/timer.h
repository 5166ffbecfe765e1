// Timer measures time, without its pauses, by the clock of the TimeManager, which it creates if
// needed. PeriodicTimer tells when the next of equal periods has passed.
//   Timer timer;
//   s_double seconds = timer.GetElapsed();
//   PeriodicTimer every_second(1.0);
//   while (every_second.HasPassed()) ...  // once for each second gone by
#pragma once

#include "utils/s_bool.h"
#include "utils/s_double.h"

namespace Quarn {

class Timer {
 public:
  static constexpr char kClassName[] = "Timer";

  explicit Timer(s_bool running = true);

  void Start();  // no effect on a running timer
  void Pause();
  void Reset();  // to 0; a running timer keeps running

  s_bool IsPaused() const { return paused_; }
  s_double GetElapsed() const;  // in seconds

 private:
  s_double accumulated_;  // over the runs before the last pause
  s_double start_;        // of the current run
  s_bool paused_ = true;
};

// A timer that fires once per period.
class PeriodicTimer {
 public:
  static constexpr char kClassName[] = "PeriodicTimer";

  // In seconds. A period that is not above 0 or not finite never passes; a warning says so.
  explicit PeriodicTimer(s_double period, s_bool running = true);

  // True once for each period since the start: a late call loses none.
  s_bool HasPassed();

  void Start() { timer_.Start(); }
  void Pause() { timer_.Pause(); }
  // Restarts the first period, dropping those not asked for.
  void Reset();

  s_bool IsPaused() const { return timer_.IsPaused(); }
  s_double GetPeriod() const { return period_; }  // in seconds; NaN if it was refused
  s_double GetElapsed() const { return timer_.GetElapsed(); }

 private:
  Timer timer_;
  s_double period_;
  s_double next_ = 1.0;  // number of the next period, from 1
};

}  // namespace Quarn
