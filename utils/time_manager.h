// TimeManager holds the clock, the step and the rates of a loop that calls Update each time around,
// the calendar and the profilers. The program installs the clock, a function that returns seconds;
// without one the time is always 0.
//   TimeManager::Get().SetClock(&ProcessorSeconds);
//   TimeManager::Get().Initialise();
//   while (running) { TimeManager::Get().Update(); ... }
// The instance lives from the first Get to Destroy and owns the profilers. Not thread-safe.
#pragma once

#include "utils/profiler.h"
#include "utils/s_bool.h"
#include "utils/s_double.h"
#include "utils/s_int.h"
#include "utils/s_refptr.h"
#include "utils/s_str.h"
#include "utils/timer.h"

namespace Quarn {

class TimeManager {
 public:
  static constexpr char kClassName[] = "TimeManager";

  using ClockFunction = s_double (*)();

  TimeManager(const TimeManager&) = delete;
  TimeManager& operator=(const TimeManager&) = delete;

  static TimeManager& Get();
  static void Destroy();  // the next Get creates a new instance

  void SetClock(ClockFunction clock) { clock_ = clock; }  // null: no clock
  s_double GetTime() const { return clock_ ? clock_() : s_double(0.0); }

  void Initialise();  // starts the measuring of rates and the play time
  void Update();      // to be called once per iteration of the loop

  // In seconds, between the last two updates; if that is 0.0001 or less, 1 / current rate, or 0
  // without one.
  s_double GetStep() const;

  // In updates per second. The rate of a one-second period is the mean of the instantaneous rates
  // of its steps, not a count of updates.
  s_uint GetRate() const { return rate_; }  // of the last whole period; 0 without one
  s_uint GetAverageRate() const;            // of all periods; NaN without one
  s_uint GetHighestRate() const { return highest_rate_; }  // 0 without one
  s_uint GetLowestRate() const { return lowest_rate_; }    // INF without one

  // Since Initialise; 0 before.
  s_double GetPlayTime() const;  // in seconds
  s_str GetPlayTimeText() const;

  // Switching on starts the profiled time and switching off ends it, even if repeated.
  void SetProfiling(s_bool on);
  s_bool IsProfiling() const { return profiling_; }
  // In seconds; 0 until profiling was switched off.
  s_double GetProfiledTime() const { return profiled_; }
  // Created on first use, valid as long as the instance.
  Profiler& GetProfiler(const s_str& group, const s_str& name);
  const ProfilerGroups& GetProfilerGroups() const { return groups_; }
  // Through the UtilsManager. Percentages are of the profiled time: "nan%" while that is 0.
  void PrintReport() const;

  // Local time.
  s_uint GetYear() const;
  s_uint GetMonth() const;       // January is 1
  s_uint GetDayOfWeek() const;   // Sunday is 1
  s_uint GetDayOfMonth() const;  // from 1
  s_uint GetHour() const;
  s_uint GetMinutes() const;
  s_uint GetSeconds() const;
  s_uint GetMicroseconds() const;  // of the current second

  // Seeds rand() from the microseconds and returns its fourth number.
  static s_int SeedRandom();

 private:
  TimeManager() = default;
  ~TimeManager() = default;

  static constexpr double kFirstStep = 0.017;  // until there is one

  void EndPeriod();

  static constinit TimeManager* instance_;

  ClockFunction clock_ = nullptr;
  s_refptr<Timer> period_timer_;  // null until Initialise
  s_bool profiling_ = false;
  s_uint rate_;
  s_double step_ = kFirstStep;
  s_uint periods_;
  s_uint rate_sum_;  // over the periods
  s_uint highest_rate_;
  s_uint lowest_rate_ = s_uint::INF;
  s_double start_, last_, current_;
  s_double profiling_start_, profiled_;
  ProfilerGroups groups_;

  // Of the current period; only its end resets them.
  s_uint updates_;
  s_uint instant_rate_sum_;
};

// As "[hours:minutes:seconds]": 65.5 gives "[0:01:05]". What an s_uint cannot count, a duration
// below 0 or from 2^32 s (136 years) on, gives "[inf:inf:inf]"; NaN gives "[nan:nan:nan]".
s_str FormatPlayTime(s_double seconds);

}  // namespace Quarn
