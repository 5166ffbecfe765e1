// Tests of Profiler, its groups and Chrono, in a time that is moved by hand.
#include "utils/profiler.h"

#include <string>
#include <type_traits>

#include "tests/support/dump.h"
#include "tests/support/hand_clock.h"

namespace Quarn {
namespace {

class ProfilerTest : public HandClockTest {};
class ChronoTest : public HandClockTest {};

std::string DumpRecords(const Profiler& profiler) {
  std::string text;
  for (const s_double record : profiler.GetRecords()) text += ToText(record).Get() + "|";
  return text;
}

// "calls untimed | total average highest lowest"
std::string DumpFigures(const Profiler& profiler) {
  return Dump(profiler.GetCalls()) + " " + Dump(profiler.GetUntimedCalls()) + " | " +
         ToText(profiler.GetTotal()).Get() + " " + ToText(profiler.GetAverage()).Get() + " " +
         ToText(profiler.GetHighest()).Get() + " " + ToText(profiler.GetLowest()).Get();
}

TEST_F(ProfilerTest, HasNoTimesUntilSomethingIsRecorded) {
  Profiler profiler("a");
  EXPECT_EQ(Dump(profiler.GetName()), "a");
  EXPECT_EQ(DumpFigures(profiler), "0 0 | nan nan nan nan");
  profiler.CountUntimed();
  EXPECT_EQ(DumpFigures(profiler), "1 1 | nan nan nan nan");
}

TEST_F(ProfilerTest, SumsUpItsRecords) {
  Profiler profiler("a");
  profiler.Record(0.5);
  EXPECT_EQ(DumpFigures(profiler), "1 0 | 0.5 0.5 0.5 0.5");
  profiler.Record(2.0);
  profiler.CountUntimed();
  profiler.Record(0.25);
  profiler.Record(0.25);
  EXPECT_EQ(DumpFigures(profiler), "5 1 | 3 0.75 2 0.25");  // the average over four timed calls
  EXPECT_EQ(DumpRecords(profiler), "0.5|2|0.25|0.25|");
}

TEST_F(ProfilerTest, AGroupMakesProfilersOnFirstUseAndKeepsThatOrder) {
  ProfilerGroup group;
  Profiler& b = group.GetProfiler("b");
  Profiler& a = group.GetProfiler("a");
  EXPECT_EQ(&group.GetProfiler("b"), &b);
  EXPECT_EQ(&group.GetProfiler("a"), &a);
  for (unsigned int i = 0; i < 1000; ++i) group.GetProfiler("p" + ToText(s_uint(i)));
  EXPECT_EQ(&group.GetProfiler("b"), &b);  // where they were, however many came after them
  std::string names;
  for (unsigned int i = 0; i < 4; ++i) names += group.GetProfilers()[i].GetName().Get() + "|";
  EXPECT_EQ(names, "b|a|p0|p1|");
  EXPECT_EQ(Dump(group.GetProfilers().GetSize()), "1002");
}

TEST_F(ProfilerTest, AGroupSumsUpWhatWasRecorded) {
  ProfilerGroup group;
  EXPECT_EQ(group.GetTime().Get(), 0.0);
  group.GetProfiler("a").CountUntimed();
  EXPECT_EQ(group.GetTime().Get(), 0.0);
  group.GetProfiler("b").Record(0.5);
  group.GetProfiler("c").Record(0.25);
  group.GetProfiler("c").Record(1.0);
  EXPECT_EQ(group.GetTime().Get(), 1.75);
}

TEST_F(ChronoTest, RecordsWhenItEnds) {
  TimeManager::Get().SetProfiling(true);
  Profiler profiler("a");
  HandClock::now = 10;
  {
    const Chrono chrono(profiler);
    HandClock::now = 10.5;
    EXPECT_EQ(chrono.GetElapsed().Get(), 0.5);
    EXPECT_EQ(DumpRecords(profiler), "");
  }
  EXPECT_EQ(DumpRecords(profiler), "0.5|");
  EXPECT_EQ(Dump(profiler.GetCalls()), "1");
}

TEST_F(ChronoTest, RecordsAtItsFirstStopAlone) {
  TimeManager::Get().SetProfiling(true);
  Profiler profiler("a");
  {
    Chrono chrono(profiler);
    HandClock::now = 1;
    chrono.Stop();
    HandClock::now = 3;
    chrono.Stop();
    chrono.Start();
    HandClock::now = 4;
  }
  EXPECT_EQ(DumpRecords(profiler), "1|");
  EXPECT_EQ(Dump(profiler.GetCalls()), "1");
}

TEST_F(ChronoTest, LeavesPausesAndWhatWasBeforeAResetOut) {
  TimeManager::Get().SetProfiling(true);
  Profiler profiler("a");
  {
    Chrono chrono(profiler);
    HandClock::now = 1;
    chrono.Reset();
    HandClock::now = 3;
    chrono.Pause();
    HandClock::now = 10;
    chrono.Start();
    HandClock::now = 10.5;
  }
  EXPECT_EQ(DumpRecords(profiler), "2.5|");
}

TEST_F(ChronoTest, OnlyCountsWhileProfilingIsOff) {
  Profiler profiler("a");
  for (int i = 0; i < 3; ++i) const Chrono chrono(profiler);
  EXPECT_EQ(DumpFigures(profiler), "3 3 | nan nan nan nan");
}

TEST_F(ChronoTest, TheStartSettlesWhetherTheCallIsTimed) {
  Profiler profiler("a");
  {
    const Chrono chrono(profiler);
    TimeManager::Get().SetProfiling(true);
    HandClock::now = 1;
  }
  EXPECT_EQ(DumpFigures(profiler), "1 1 | nan nan nan nan");
  {
    const Chrono chrono(profiler);
    HandClock::now = 3;
    TimeManager::Get().SetProfiling(false);
  }
  EXPECT_EQ(DumpFigures(profiler), "2 1 | 2 2 2 2");
}

TEST_F(ChronoTest, IsNeverCopied) {
  static_assert(!std::is_copy_constructible_v<Chrono>);
  static_assert(!std::is_copy_assignable_v<Chrono>);
}

}  // namespace
}  // namespace Quarn
