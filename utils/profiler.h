// A Profiler knows how long a section of code took each time it ran; a Chrono on the stack of that
// section measures one run. Profilers stand in named groups, which the TimeManager owns and makes
// when they are first asked for. While profiling is off, runs are counted but not timed. Switching
// it off ends the time that the report takes shares of.
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
  // The source of its messages.
  static constexpr char kClassName[] = "Profiler";

  // Of that name in the report.
  explicit Profiler(const s_str& name) : name_(name) {}

  // Counts one call that took so many seconds.
  void Record(s_double seconds);
  // Counts one call that was not timed.
  void CountUntimed();

  // As it was made with.
  const s_str& GetName() const { return name_; }
  // All calls, those that were not timed included.
  s_uint GetCalls() const { return calls_; }
  s_uint GetUntimedCalls() const { return untimed_calls_; }
  // The seconds of each timed call, in the order in which they ended.
  const s_ctnr<s_double>& GetRecords() const { return records_; }

  // Over all records, in seconds; NaN while there is none.
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

// The profilers of one name.
class ProfilerGroup {
 public:
  // The profiler of that name, made on first use. It stays where it is as long as the group.
  Profiler& GetProfiler(const s_str& name);
  // In the order in which their names were first used.
  const s_ctnr<Profiler>& GetProfilers() const { return profilers_; }
  // What all profilers recorded, in seconds; 0 when they recorded nothing.
  s_double GetTime() const;

 private:
  s_ctnr<Profiler> profilers_;
};

// By name.
using ProfilerGroups = std::map<s_str, ProfilerGroup>;

// A stopwatch that runs from its construction and records into its profiler when it ends. Whether
// the call is timed is settled at the start: it is when profiling is on.
class Chrono {
 public:
  // The source of its messages.
  static constexpr char kClassName[] = "Chrono";

  // REQUIRES: the profiler outlives the Chrono.
  explicit Chrono(Profiler& profiler);
  Chrono(const Chrono&) = delete;
  Chrono& operator=(const Chrono&) = delete;
  ~Chrono() { Stop(); }

  // Ends the measuring and records it; only the first Stop does so.
  void Stop();

  // As a timer does.
  void Start() { timer_.Start(); }
  void Pause() { timer_.Pause(); }
  void Reset() { timer_.Reset(); }
  // In seconds.
  s_double GetElapsed() const { return timer_.GetElapsed(); }

 private:
  Profiler& profiler_;
  Timer timer_;
  s_bool timed_;
  s_bool stopped_ = false;
};

// A number with a fixed count of significant digits and no exponent, halves rounded away from zero:
// with 4, 12.346 gives "12.35" and 0.000123456 gives "0.0001235". Digits of the integer part beyond
// those asked for become 0 without rounding: 123456 gives "123400". NaN and the infinities give
// "nan", "inf+" and "inf-".  REQUIRES: 1 to 17 digits.
// Kept on purpose: the text has the value of the number. Below 1 there is one zero fewer after the
// point than the multiplications by ten that reach 1: 0.05 takes two of them, and is "0.05000". A
// rounding may carry into the integer part: 12.996 is "13.00". An integer part of four digits has
// no point: 1234.6 is "1235". And 0 is "0.0000".
s_str FormatSignificant(s_double value, s_uint digits);

// The lines of the report, where `total` is the profiled time in seconds.
s_ctnr<s_str> MakeReport(s_double total, const ProfilerGroups& groups);

}  // namespace Quarn
