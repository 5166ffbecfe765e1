// Timer measures time by the clock of the TimeManager, and makes that manager if there is none yet.
// It can be paused; the time of a pause does not count. PeriodicTimer tells when the next of equal
// periods has passed.
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
  // The source of its messages.
  static constexpr char kClassName[] = "Timer";

  // Starts at once, or paused with no time elapsed.
  explicit Timer(s_bool running = true);

  // Goes on after a pause; a running timer just runs on.
  void Start();
  // Keeps what has elapsed; a paused timer stays so.
  void Pause();
  // Sets the elapsed time to 0; a running timer runs on, a paused one stays so.
  void Reset();

  // Does it stand still? It does until it is started.
  s_bool IsPaused() const { return paused_; }
  // In seconds.
  s_double GetElapsed() const;

 private:
  s_double accumulated_;  // over the runs before the last pause
  s_double start_;        // of the present run
  s_bool paused_ = true;
};

// A timer that rings once per period.
class PeriodicTimer {
 public:
  // The source of its messages.
  static constexpr char kClassName[] = "PeriodicTimer";

  // A period in seconds. One that is not above 0, or not finite, never passes, and a warning says
  // so. Starts at once, or paused.
  explicit PeriodicTimer(s_double period, s_bool running = true);

  // True once for each period that has passed, however late one asks: the periods begin one after
  // another from the start, and none is lost.
  s_bool HasPassed();

  // What is paused goes on where it was.
  void Start() { timer_.Start(); }
  void Pause() { timer_.Pause(); }
  // Begins the first period anew; periods that passed unasked are forgotten.
  void Reset();

  // Does it stand still?
  s_bool IsPaused() const { return timer_.IsPaused(); }
  // In seconds; NaN for a period that was refused.
  s_double GetPeriod() const { return period_; }
  // Since the start, in seconds; pauses do not count.
  s_double GetElapsed() const { return timer_.GetElapsed(); }

 private:
  Timer timer_;
  s_double period_;
  s_double next_ = 1.0;  // the number of the period that is waited for, from 1
};

}  // namespace Quarn
