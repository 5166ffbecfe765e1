// Tests of TimeManager: clock, steps and rates, and play time, in a time that is moved by hand.
#include "utils/time_manager.h"

#include <limits>
#include <string>
#include <type_traits>

#include "tests/support/dump.h"
#include "tests/support/hand_clock.h"

namespace Quarn {
namespace {

class TimeManagerTest : public HandClockTest {
 protected:
  // Lets so many seconds go by and calls Update.
  static void Step(double seconds) {
    HandClock::now += seconds;
    TimeManager::Get().Update();
  }
};

// "current average highest lowest"
std::string Rates() {
  const TimeManager& manager = TimeManager::Get();
  return Dump(manager.GetRate()) + " " + Dump(manager.GetAverageRate()) + " " +
         Dump(manager.GetHighestRate()) + " " + Dump(manager.GetLowestRate());
}

constexpr const char* kNoRates = "0 nan 0 inf";

TEST_F(TimeManagerTest, TellsTheTimeOfItsClock) {
  HandClock::now = 12.5;
  EXPECT_EQ(TimeManager::Get().GetTime().Get(), 12.5);
  TimeManager::Get().SetClock(nullptr);
  EXPECT_EQ(TimeManager::Get().GetTime().Get(), 0.0);
}

TEST_F(TimeManagerTest, IsOneAndAPlainClass) {
  EXPECT_EQ(&TimeManager::Get(), &TimeManager::Get());
  static_assert(!std::is_polymorphic_v<TimeManager>);
  static_assert(!std::is_copy_constructible_v<TimeManager>);
  static_assert(!std::is_destructible_v<TimeManager>);  // but by Destroy
}

TEST_F(TimeManagerTest, StartsWithAStepAndWithoutRates) {
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.017);
  EXPECT_EQ(Rates(), kNoRates);
  EXPECT_FALSE(TimeManager::Get().IsProfiling());
  EXPECT_EQ(TimeManager::Get().GetProfiledTime().Get(), 0.0);
  EXPECT_EQ(TimeManager::Get().GetPlayTime().Get(), 0.0);
}

TEST_F(TimeManagerTest, DestroyMakesTheNextOneFresh) {
  TimeManager::Get().Initialise();
  Step(1.5);
  Step(0.25);
  TimeManager::Get().SetProfiling(true);
  TimeManager::Get().GetProfiler("g", "p");
  TimeManager::Destroy();
  TimeManager::Destroy();                              // nothing to destroy
  EXPECT_EQ(TimeManager::Get().GetTime().Get(), 0.0);  // the clock is gone
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.017);
  EXPECT_EQ(Rates(), kNoRates);
  EXPECT_FALSE(TimeManager::Get().IsProfiling());
  EXPECT_TRUE(TimeManager::Get().GetProfilerGroups().empty());

  TimeManager::Get().SetClock(&HandClock::Read);
  TimeManager::Get().Initialise();
  Step(1.25);
  EXPECT_EQ(Rates(), "1 1 1 1");  // nothing of the update before: (4 + 1) / 2 would be 2
}

TEST_F(TimeManagerTest, TheStepIsTheTimeBetweenUpdates) {
  HandClock::now = 10;
  TimeManager::Get().Initialise();
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.017);
  Step(0.25);
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.25);
  HandClock::now = 100;
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.25);  // until the next update
}

TEST_F(TimeManagerTest, AStepTooShortToMeasureIsTakenFromTheRate) {
  TimeManager::Get().Initialise();
  Step(0.0);
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.0);  // there is no rate
  Step(0.25);
  Step(1.0);  // (10000 + 4 + 1) / 3 = 3335
  EXPECT_EQ(Dump(TimeManager::Get().GetRate()), "3335");
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 1.0);
  Step(0.0);
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 1.0 / 3335.0);
}

TEST_F(TimeManagerTest, TheShortestStepItselfIsTooShortToTell) {
  TimeManager::Get().Initialise();
  HandClock::now = 0;
  Step(0.0001);
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.0);
  HandClock::now = 0;
  TimeManager::Get().Update();
  Step(0.00010001);
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.00010001);
}

TEST_F(TimeManagerTest, APeriodEndsOnlyBeyondASecond) {
  HandClock::now = 10;
  TimeManager::Get().Initialise();
  for (int i = 0; i < 4; ++i) Step(0.25);
  EXPECT_EQ(Rates(), kNoRates);  // a second exactly is not beyond it
  Step(0.25);
  EXPECT_EQ(Rates(), "4 4 4 4");
}

TEST_F(TimeManagerTest, TheRateIsTheMeanOfTheInstantaneousRatesAndNoCount) {
  TimeManager::Get().Initialise();
  for (int i = 0; i < 3; ++i) Step(1.0 / 64);
  Step(1.0);
  EXPECT_EQ(Rates(), "48 48 48 48");  // (64 + 64 + 64 + 1) / 4, though there were 4 updates
}

// Every comparison with what is no number is false, so it is neither the highest nor the lowest.
TEST_F(TimeManagerTest, AClockThatTellsNoTimeGivesNoRate) {
  TimeManager::Get().Initialise();
  HandClock::now = std::numeric_limits<double>::quiet_NaN();
  TimeManager::Get().Update();
  HandClock::now = 2;
  TimeManager::Get().Update();
  EXPECT_EQ(Rates(), "nan nan 0 inf");
}

TEST_F(TimeManagerTest, RatesAreKeptOverThePeriods) {
  TimeManager::Get().Initialise();
  for (int i = 0; i < 5; ++i) Step(0.25);
  EXPECT_EQ(Rates(), "4 4 4 4");
  Step(0.5);
  EXPECT_EQ(Rates(), "4 4 4 4");  // until the period ends
  Step(0.75);
  EXPECT_EQ(Rates(), "1 2 4 1");  // (2 + 1) / 2 = 1, and (4 + 1) / 2 = 2
  for (int i = 0; i < 9; ++i) Step(0.125);
  EXPECT_EQ(Rates(), "8 4 8 1");  // (4 + 1 + 8) / 3 = 4
  Step(3.0);
  EXPECT_EQ(Rates(), "0 3 8 0");  // 1 / 3 rounds to 0; 13 / 4 = 3
}

TEST_F(TimeManagerTest, AnInstantaneousRateIsRounded) {
  TimeManager::Get().Initialise();
  Step(0.375);  // 2.67: 3
  Step(0.75);   // 1.33: 1
  EXPECT_EQ(Dump(TimeManager::Get().GetRate()), "2");
}

TEST_F(TimeManagerTest, VeryShortStepsCountAsTenThousand) {
  const double kShortSteps[] = {0.00009, 0.0, -5.0};  // 1 / 0.00009 would be 11111
  for (const double step : kShortSteps) {
    TimeManager::Get().Initialise();
    Step(step);
    Step(1.25 - step);  // comes to 1 update per second, or 0
    EXPECT_EQ(Dump(TimeManager::Get().GetRate()), "5000") << step;  // half of 10001, or of 10000
  }
}

// Only below 0.0001 s is a step too short to tell a rate.
TEST_F(TimeManagerTest, ShortStepsCountAsTheirOwnRate) {
  const struct {
    double step;
    unsigned int rate;  // the mean of that of the step and 1
  } kRows[] = {
      {0.0001, 5000}, // 10000
      {0.0002, 2500}, // 5000
      {0.0005, 1000}, // 2000
      {0.001,  500 }, // 1000
      {0.002,  250 }, // 500
      {0.005,  100 }, // 200
      {0.01,   50  }, // 100
  };
  for (const auto& row : kRows) {
    HandClock::now = 0;
    TimeManager::Get().Initialise();
    Step(row.step);
    Step(1.25);  // 0.8: 1
    EXPECT_EQ(TimeManager::Get().GetRate().Get(), row.rate) << row.step;
  }
}

TEST_F(TimeManagerTest, AStepTooShortToMeasureIsTakenFromTheRateOfTheLastPeriod) {
  TimeManager::Get().Initialise();
  for (int i = 0; i < 17; ++i) Step(0.0625);
  for (int i = 0; i < 3; ++i) Step(0.5);
  for (int i = 0; i < 5; ++i) Step(0.25);
  EXPECT_EQ(Rates(), "4 7 16 2");
  Step(0.0);
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.25);
}

TEST_F(TimeManagerTest, WithoutInitialiseStepsAreKeptButNoRates) {
  Step(0.5);
  Step(2.0);
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 2.0);
  EXPECT_EQ(Rates(), kNoRates);
}

TEST_F(TimeManagerTest, InitialiseBeginsAnewButCountsTheUpdatesOfTheRunningPeriod) {
  TimeManager::Get().Initialise();
  Step(1.25);
  EXPECT_EQ(Rates(), "1 1 1 1");
  Step(1.0 / 64);
  TimeManager::Get().SetProfiling(true);
  HandClock::now += 1;
  TimeManager::Get().SetProfiling(false);
  TimeManager::Get().Initialise();
  EXPECT_EQ(Rates(), kNoRates);
  EXPECT_EQ(TimeManager::Get().GetStep().Get(), 0.017);
  EXPECT_EQ(TimeManager::Get().GetProfiledTime().Get(), 0.0);
  EXPECT_EQ(TimeManager::Get().GetPlayTime().Get(), 0.0);
  Step(1.25);
  EXPECT_EQ(Rates(), "32 32 32 32");  // (64 + 1) / 2
}

TEST_F(TimeManagerTest, PlayTimeRunsFromInitialise) {
  HandClock::now = 10;
  EXPECT_EQ(TimeManager::Get().GetPlayTime().Get(), 0.0);
  EXPECT_EQ(Dump(TimeManager::Get().GetPlayTimeText()), "[0:00:00]");
  TimeManager::Get().Initialise();
  HandClock::now = 75.5;
  EXPECT_EQ(TimeManager::Get().GetPlayTime().Get(), 65.5);
  EXPECT_EQ(Dump(TimeManager::Get().GetPlayTimeText()), "[0:01:05]");
}

TEST(FormatPlayTime, GivesHoursMinutesAndSeconds) {
  const struct {
    double seconds;
    const char* text;
  } kRows[] = {
      {0,            "[0:00:00]"      },
      {9.999,        "[0:00:09]"      }, // begun seconds do not count
      {59.999,       "[0:00:59]"      },
      {60,           "[0:01:00]"      },
      {3599.9,       "[0:59:59]"      },
      {3600,         "[1:00:00]"      },
      {36610,        "[10:10:10]"     },
      {359999,       "[99:59:59]"     },
      {360000,       "[100:00:00]"    },
      {4294967295,   "[1193046:28:15]"}, // the most seconds that an s_uint counts
      {4294967295.9, "[1193046:28:15]"},
      {4294967296,   "[inf:inf:inf]"  },
      {4294967301,   "[inf:inf:inf]"  },
      {1e20,         "[inf:inf:inf]"  },
      {-1,           "[inf:inf:inf]"  },
      {-0.5,         "[inf:inf:inf]"  },
      {1e308 * 10,   "[inf:inf:inf]"  },
  };
  for (const auto& row : kRows) EXPECT_EQ(FormatPlayTime(row.seconds).Get(), row.text);
  EXPECT_EQ(FormatPlayTime(s_double::NaN()).Get(), "[nan:nan:nan]");
}

}  // namespace
}  // namespace Quarn
