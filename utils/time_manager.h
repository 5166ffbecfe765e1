// TimeManager is the system's notion of time. The clock comes from outside: a function that returns
// seconds; without one it is always 0 o'clock.
//   TimeManager::Get().SetClock(&ProcessorSeconds);
//   TimeManager::Get().Initialise();
// The instance is made by the first Get and lives until Destroy. For one thread only.
#pragma once

#include "utils/s_double.h"

namespace Quarn {

class TimeManager {
 public:
  static constexpr char kClassName[] = "TimeManager";

  using ClockFunction = s_double (*)();

  TimeManager(const TimeManager&) = delete;
  TimeManager& operator=(const TimeManager&) = delete;

  // The instance, which stays owned here.
  static TimeManager& Get();
  // Deletes the instance, if there is one; the next Get makes a fresh one.
  static void Destroy();

  void SetClock(ClockFunction clock) { clock_ = clock; }
  // What the clock says, in seconds; 0 without a clock.
  s_double GetTime() const { return clock_ ? clock_() : s_double(0.0); }

 private:
  TimeManager() = default;
  ~TimeManager() = default;

  static constinit TimeManager* instance_;

  ClockFunction clock_ = nullptr;
};

}  // namespace Quarn
