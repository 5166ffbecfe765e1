// A Profiler records how long each run of a section of code took; a Chrono on the stack of the
// section measures one run. The TimeManager owns the profilers, in named groups, and creates them
// on first use. While profiling is off, runs are counted but not timed. The report needs it
// switched off, which ends the time that its percentages are taken of.
//   TimeManager::Get().SetProfiling(true);
//   { Chrono chrono(TimeManager::Get().GetProfiler("physics", "collisions")); ... }
//   TimeManager::Get().SetProfiling(false);
//   TimeManager::Get().PrintReport();
#pragma once

#include <map>

#include "utils/s_ctnr.h"
#include "utils/s_double.h"
#include "utils/s_str.h"
#include "utils/timer.h"

namespace Quarn {

class Profiler {
 public:
  static constexpr char kClassName[] = "Profiler";

  explicit Profiler(const s_str& name) : name_(name) {}

  void Record(s_double seconds);  // one call
  void CountUntimed();            // one call

  const s_str& GetName() const { return name_; }
  s_uint GetCalls() const { return calls_; }  // timed or not
  s_uint GetUntimedCalls() const { return untimed_calls_; }
  const s_ctnr<s_double>& GetRecords() const { return records_; }  // in seconds

  // In seconds; NaN while nothing is recorded.
  s_double GetTotal() const;
  s_double GetAverage() const;
  s_double GetHighest() const;
  s_double GetLowest() const;

 private:
  s_str name_;
  s_uint calls_;
  s_uint untimed_calls_;
  s_ctnr<s_double> records_;
};

// A named list of profilers.
class ProfilerGroup {
 public:
  // Created on first use; the reference is valid as long as the group.
  Profiler& GetProfiler(const s_str& name);
  const s_ctnr<Profiler>& GetProfilers() const { return profilers_; }  // in order of first use
  s_double GetTime() const;  // the sum of all records in seconds

 private:
  s_ctnr<Profiler> profilers_;
};

// By name.
using ProfilerGroups = std::map<s_str, ProfilerGroup>;

// Times one call, from its construction to Stop or its destruction. If profiling is off at its
// start, the call is only counted.
class Chrono {
 public:
  static constexpr char kClassName[] = "Chrono";

  // REQUIRES: the profiler outlives the Chrono.
  explicit Chrono(Profiler& profiler);
  Chrono(const Chrono&) = delete;
  Chrono& operator=(const Chrono&) = delete;
  ~Chrono() { Stop(); }

  // Records the call; later Stops do nothing.
  void Stop();

  void Start() { timer_.Start(); }
  void Pause() { timer_.Pause(); }
  void Reset() { timer_.Reset(); }
  s_double GetElapsed() const { return timer_.GetElapsed(); }

 private:
  Profiler& profiler_;
  Timer timer_;
  s_bool timed_;
  s_bool stopped_ = false;
};

// A fixed count of significant digits and no exponent, halves rounded away from zero: with
// 4, 12.346 gives "12.35" and 0.000123456 gives "0.0001235". Further digits of the integer part
// become 0 without rounding: 123456 gives "123400". "nan", "inf+" and "inf-" for the rest.
// REQUIRES: 1 to 17 digits.
// Kept on purpose: the text has the value of the number. Below 1 there is one zero fewer after the
// point than the multiplications by ten that reach 1: 0.05 takes two of them, and is "0.05000". A
// rounding may carry into the integer part: 12.996 is "13.00". An integer part of four digits has
// no point: 1234.6 is "1235". And 0 is "0.0000".
s_str FormatSignificant(s_double value, s_uint digits);

// The lines of the report, where `total` is the profiled time in seconds.
s_ctnr<s_str> MakeReport(s_double total, const ProfilerGroups& groups);

}  // namespace Quarn
