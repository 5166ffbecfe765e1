// Tests of Timer and PeriodicTimer, by a clock that is moved by hand.
#include "utils/timer.h"

#include <limits>
#include <string>

#include "tests/support/hand_clock.h"
#include "tests/support/printed_lines.h"

namespace Quarn {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class TimerTest : public HandClockTest {};
class PeriodicTimerTest : public HandClockTest {};

TEST_F(TimerTest, RunsFromItsConstruction) {
  HandClock::now = 10;
  const Timer timer;
  EXPECT_FALSE(timer.IsPaused());
  EXPECT_EQ(timer.GetElapsed().Get(), 0.0);
  HandClock::now = 12.5;
  EXPECT_EQ(timer.GetElapsed().Get(), 2.5);
}

TEST_F(TimerTest, StandsAtZeroWhenMadePaused) {
  HandClock::now = 10;
  Timer timer(false);
  EXPECT_TRUE(timer.IsPaused());
  HandClock::now = 12;
  EXPECT_EQ(timer.GetElapsed().Get(), 0.0);
  timer.Start();
  EXPECT_FALSE(timer.IsPaused());
  HandClock::now = 15;
  EXPECT_EQ(timer.GetElapsed().Get(), 3.0);
}

TEST_F(TimerTest, PausesDoNotCount) {
  Timer timer;
  HandClock::now = 1;
  timer.Pause();
  EXPECT_TRUE(timer.IsPaused());
  HandClock::now = 5;
  EXPECT_EQ(timer.GetElapsed().Get(), 1.0);
  timer.Start();
  HandClock::now = 7;
  EXPECT_EQ(timer.GetElapsed().Get(), 3.0);
  timer.Pause();
  timer.Start();
  HandClock::now = 8;
  EXPECT_EQ(timer.GetElapsed().Get(), 4.0);
}

TEST_F(TimerTest, PausingOrStartingTwiceChangesNothing) {
  Timer timer;
  HandClock::now = 1;
  timer.Start();
  HandClock::now = 2;
  timer.Pause();
  HandClock::now = 3;
  timer.Pause();
  EXPECT_EQ(timer.GetElapsed().Get(), 2.0);
}

TEST_F(TimerTest, ResetSetsARunningTimerBackToZero) {
  Timer timer;
  HandClock::now = 1;
  timer.Pause();
  timer.Start();
  HandClock::now = 4;
  timer.Reset();
  EXPECT_EQ(timer.GetElapsed().Get(), 0.0);
  EXPECT_FALSE(timer.IsPaused());
  HandClock::now = 6;
  EXPECT_EQ(timer.GetElapsed().Get(), 2.0);
}

TEST_F(TimerTest, ResetKeepsAPausedTimerPaused) {
  Timer timer;
  HandClock::now = 1;
  timer.Pause();
  timer.Reset();
  EXPECT_TRUE(timer.IsPaused());
  HandClock::now = 6;
  EXPECT_EQ(timer.GetElapsed().Get(), 0.0);
}

TEST_F(TimerTest, WithoutAClockNoTimeElapses) {
  TimeManager::Get().SetClock(nullptr);
  const Timer timer;
  EXPECT_EQ(timer.GetElapsed().Get(), 0.0);
}

TEST_F(TimerTest, TheFirstTimerMakesTheManager) {
  TimeManager::Destroy();
  const Timer timer;
  TimeManager::Get().SetClock(&HandClock::Read);
  HandClock::now = 3;
  EXPECT_EQ(timer.GetElapsed().Get(), 3.0);  // it started at 0, without a clock
}

TEST_F(TimerTest, GoesOnByTheClockOfTheNextManager) {
  const Timer timer;
  TimeManager::Destroy();
  TimeManager::Get().SetClock(&HandClock::Read);
  HandClock::now = 3;
  EXPECT_EQ(timer.GetElapsed().Get(), 3.0);
}

TEST_F(PeriodicTimerTest, TellsOncePerPeriod) {
  HandClock::now = 10;
  PeriodicTimer timer(0.5);
  EXPECT_EQ(timer.GetPeriod().Get(), 0.5);
  const struct {
    double now;
    bool passed;
  } kRows[] = {
      {10.0,  false},
      {10.25, false},
      {10.5,  true }, // exactly at its end
      {10.5,  false},
      {10.75, false},
      {11.25, true },
      {11.25, false},
  };
  for (const auto& row : kRows) {
    HandClock::now = row.now;
    EXPECT_EQ(bool(timer.HasPassed()), row.passed) << row.now;
  }
}

TEST_F(PeriodicTimerTest, AskingLateLosesNoPeriod) {
  PeriodicTimer timer(1.0);
  HandClock::now = 3.5;
  int passed = 0;
  while (timer.HasPassed()) ++passed;
  EXPECT_EQ(passed, 3);
  HandClock::now = 3.75;
  EXPECT_FALSE(timer.HasPassed());
  HandClock::now = 4.0;  // not 4.5: being late does not move the periods
  EXPECT_TRUE(timer.HasPassed());
}

// A tenth has no exact double: the sum of a million of them is off by more than a microsecond.
TEST_F(PeriodicTimerTest, DoesNotDrift) {
  PeriodicTimer timer(0.1);
  for (int i = 1; i <= 1000000; ++i) {
    HandClock::now = i * 0.1;
    ASSERT_TRUE(timer.HasPassed()) << i;
    ASSERT_FALSE(timer.HasPassed()) << i;
  }
  HandClock::now = 100000.1 - 1e-9;
  EXPECT_FALSE(timer.HasPassed());
  HandClock::now = 100000.1 + 1e-9;
  EXPECT_TRUE(timer.HasPassed());
}

TEST_F(PeriodicTimerTest, PausesDoNotCount) {
  PeriodicTimer timer(1.0, false);
  EXPECT_TRUE(timer.IsPaused());
  HandClock::now = 5;
  EXPECT_FALSE(timer.HasPassed());
  timer.Start();
  HandClock::now = 5.75;
  timer.Pause();
  HandClock::now = 9;
  EXPECT_FALSE(timer.HasPassed());
  EXPECT_EQ(timer.GetElapsed().Get(), 0.75);
  timer.Start();
  HandClock::now = 9.25;
  EXPECT_TRUE(timer.HasPassed());
}

TEST_F(PeriodicTimerTest, ResetBeginsTheFirstPeriodAnew) {
  PeriodicTimer timer(1.0);
  HandClock::now = 3.5;
  EXPECT_TRUE(timer.HasPassed());
  timer.Reset();
  EXPECT_FALSE(timer.HasPassed());
  HandClock::now = 4.25;
  EXPECT_FALSE(timer.HasPassed());
  HandClock::now = 4.5;
  EXPECT_TRUE(timer.HasPassed());
}

TEST_F(PeriodicTimerTest, APeriodThatIsNoneNeverPassesAndWarns) {
  const PrintedLines printed;
  std::string expected;
  for (const double period : {0.0, -1.0, kNaN, kInf, -kInf}) {
    PeriodicTimer timer(period);
    EXPECT_TRUE(timer.GetPeriod().IsNaN());
    HandClock::now += 100;
    EXPECT_FALSE(timer.HasPassed()) << period;
    expected += "# Warning # : PeriodicTimer : the period must be above 0 s, and finite\n";
    EXPECT_EQ(printed.Get(), expected) << period;
  }
}

}  // namespace
}  // namespace Quarn
