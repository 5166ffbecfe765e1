// Tests of the profiling of TimeManager, in a time that is moved by hand.
#include <string>

#include "tests/support/hand_clock.h"
#include "tests/support/printed_lines.h"
#include "utils/time_manager.h"

namespace Quarn {
namespace {

class ProfilingTest : public HandClockTest {};

TEST_F(ProfilingTest, ProfiledTimeLiesBetweenSwitchingOnAndOff) {
  TimeManager& manager = TimeManager::Get();
  HandClock::now = 10;
  manager.SetProfiling(true);
  EXPECT_TRUE(manager.IsProfiling());
  HandClock::now = 12.5;
  EXPECT_EQ(manager.GetProfiledTime().Get(), 0.0);
  manager.SetProfiling(false);
  EXPECT_FALSE(manager.IsProfiling());
  EXPECT_EQ(manager.GetProfiledTime().Get(), 2.5);

  HandClock::now = 20;
  manager.SetProfiling(true);
  EXPECT_EQ(manager.GetProfiledTime().Get(), 2.5);  // the last one, until it is switched off again
  HandClock::now = 21;
  manager.SetProfiling(true);
  HandClock::now = 24;
  manager.SetProfiling(false);
  EXPECT_EQ(manager.GetProfiledTime().Get(), 3.0);
  HandClock::now = 25;
  manager.SetProfiling(false);
  EXPECT_EQ(manager.GetProfiledTime().Get(), 4.0);
}

TEST_F(ProfilingTest, GroupsAndProfilersAreMadeOnFirstUse) {
  TimeManager& manager = TimeManager::Get();
  Profiler& first = manager.GetProfiler("b", "x");
  Profiler& other = manager.GetProfiler("a", "x");
  EXPECT_NE(&first, &other);
  EXPECT_EQ(&manager.GetProfiler("b", "x"), &first);
  std::string groups;
  for (const auto& [name, group] : manager.GetProfilerGroups()) groups += name.Get() + "|";
  EXPECT_EQ(groups, "a|b|");
}

// As on top of utils/profiler.h.
TEST_F(ProfilingTest, TheExampleOfTheHeaderReportsAShare) {
  const PrintedLines printed;
  TimeManager::Get().SetProfiling(true);
  {
    Chrono chrono(TimeManager::Get().GetProfiler("physics", "collisions"));
    HandClock::now += 0.5;
  }
  TimeManager::Get().SetProfiling(false);
  TimeManager::Get().PrintReport();
  EXPECT_EQ(printed.Get(),
            "# Profiling info : 0.5 s of profiling\n"
            "# Profiling info for group [physics] : 0.5 s of profiling\n"
            "  - collisions :\n"
            "     - call number     : 1 (0 not timed)\n"
            "     - total time      : 0.5000 s (100.0% of total)\n"
            "     - average time    : 500.0 ms\n"
            "     - highest time    : 500.0 ms\n"
            "     - lowest time     : 500.0 ms\n"
            "     - listing records :\n"
            "        [0] : 500.0 ms\n"
            "# end.\n");
}

TEST_F(ProfilingTest, PrintsTheReportOfAScene) {
  const PrintedLines printed;
  TimeManager& manager = TimeManager::Get();
  { const Chrono before(manager.GetProfiler("frame", "draw")); }
  HandClock::now = 100;
  manager.SetProfiling(true);
  for (const double seconds : {0.0625, 0.125, 0.0625}) {
    const Chrono chrono(manager.GetProfiler("frame", "draw"));
    HandClock::now += seconds;
  }
  HandClock::now = 102;
  manager.SetProfiling(false);
  EXPECT_EQ(printed.Get(), "");
  manager.PrintReport();
  EXPECT_EQ(printed.Get(),
            "# Profiling info : 2 s of profiling\n"
            "# Profiling info for group [frame] : 0.25 s of profiling\n"
            "  - draw :\n"
            "     - call number     : 4 (1 not timed)\n"
            "     - total time      : 0.2500 s (12.50% of total)\n"
            "     - average time    : 83.33 ms\n"
            "     - highest time    : 125.0 ms\n"
            "     - lowest time     : 62.50 ms\n"
            "     - listing records :\n"
            "        [0] : 62.50 ms\n"
            "        [1] : 125.0 ms\n"
            "        [2] : 62.50 ms\n"
            "# end.\n");
}

}  // namespace
}  // namespace Quarn
