// TimeManager is the system's notion of time: the clock, the step and the rates of a loop that
// calls Update once a round, the calendar, and the profilers. The clock comes from outside: a
// function that returns seconds; without one it is always 0.
//   TimeManager::Get().SetClock(&ProcessorSeconds);
//   TimeManager::Get().Initialise();
//   while (running) { TimeManager::Get().Update(); ... }
// The instance is made by the first Get and lives until Destroy; it owns the profilers, and every
// reference to one ends with it. For one thread only.
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
  // The source of its messages.
  static constexpr char kClassName[] = "TimeManager";

  // Seconds since any fixed time.
  using ClockFunction = s_double (*)();

  TimeManager(const TimeManager&) = delete;
  TimeManager& operator=(const TimeManager&) = delete;

  // The instance, which stays owned here.
  static TimeManager& Get();
  // Deletes the instance, if there is one; the next Get makes a fresh one.
  static void Destroy();

  // Null takes the clock away.
  void SetClock(ClockFunction clock) { clock_ = clock; }
  // What the clock says, in seconds; 0 without a clock.
  s_double GetTime() const { return clock_ ? clock_() : s_double(0.0); }

  // Begins to keep time: from here on rates are measured and the play time runs.
  void Initialise();
  // Keeps step and rates up to date; to be called once a round.
  void Update();

  // The last step in seconds; if that is 0.0001 or less, 1 / current rate; 0 while there is no
  // rate.
  s_double GetStep() const;

  // Updates per second. The rate of a period of a second is the mean of what its steps, each taken
  // alone, come to, in whole updates; it is not a count of updates.
  s_uint GetRate() const { return rate_; }  // of the last whole period; 0 before there is one
  s_uint GetAverageRate() const;            // of all periods; NaN before there is one
  s_uint GetHighestRate() const { return highest_rate_; }  // 0 before there is one
  s_uint GetLowestRate() const { return lowest_rate_; }    // INF before there is one

  // The seconds since Initialise; 0 before.
  s_double GetPlayTime() const;
  // The same as "[hours:minutes:seconds]".
  s_str GetPlayTimeText() const;

  // Switching on begins the profiled time, switching off ends it, also when it is switched so
  // already.
  void SetProfiling(s_bool on);
  s_bool IsProfiling() const { return profiling_; }
  // The seconds between the last switching on and the last switching off; 0 before.
  s_double GetProfiledTime() const { return profiled_; }
  // The profiler of that name in that group; both are made on first use.
  Profiler& GetProfiler(const s_str& group, const s_str& name);
  // Groups in the order of their names.
  const ProfilerGroups& GetProfilerGroups() const { return groups_; }
  // Prints what was profiled line by line through the UtilsManager. Shares are of the profiled
  // time: "nan%" while that is 0.
  void PrintReport() const;

  // The local date and time of the computer.
  s_uint GetYear() const;
  s_uint GetMonth() const;       // January is 1
  s_uint GetDayOfWeek() const;   // Sunday is 1
  s_uint GetDayOfMonth() const;  // from 1
  s_uint GetHour() const;
  s_uint GetMinutes() const;
  s_uint GetSeconds() const;
  // Of the running second: below 1000000.
  s_uint GetMicroseconds() const;

  // Seeds rand() from the microseconds and returns the fourth number that it then gives.
  static s_int SeedRandom();

 private:
  TimeManager() = default;
  ~TimeManager() = default;

  // Before there is a step.
  static constexpr double kFirstStep = 0.017;

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

  // Of the running period; only its end sets them back.
  s_uint updates_;
  s_uint instant_rate_sum_;
};

// A duration in seconds as "[hours:minutes:seconds]", the last two with two digits: "[0:01:05]".
// Fractions of a second are cut off. What an s_uint cannot count, a duration below 0 or of 2^32 s
// (136 years) and more, gives "[inf:inf:inf]"; NaN gives "[nan:nan:nan]".
s_str FormatPlayTime(s_double seconds);

}  // namespace Quarn
