// Timer measures time by the clock of the TimeManager, and makes that manager if there is none yet.
// It can be paused; the time of a pause does not count.
//   Timer timer;
//   s_double seconds = timer.GetElapsed();
#pragma once

#include "utils/s_bool.h"
#include "utils/s_double.h"

namespace Quarn {

class Timer {
 public:
  static constexpr char kClassName[] = "Timer";

  // Starts at once, or paused with no time elapsed.
  explicit Timer(s_bool running = true);

  // Goes on after a pause; a running timer just runs on.
  void Start();
  // Keeps what has elapsed; a paused timer stays so.
  void Pause();
  // Sets the elapsed time to 0; a running timer runs on, a paused one stays so.
  void Reset();

  s_bool IsPaused() const { return paused_; }
  // In seconds.
  s_double GetElapsed() const;

 private:
  s_double accumulated_;  // over the runs before the last pause
  s_double start_;        // of the present run
  s_bool paused_ = true;
};

}  // namespace Quarn
