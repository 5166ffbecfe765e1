// Tests of the date, the time of day and the seeding of TimeManager, beside the C library's own
// answers.
#include <stdlib.h>
#include <sys/time.h>
#include <time.h>

#include <optional>
#include <string>

#include "tests/support/dump.h"
#include "tests/support/hand_clock.h"
#include "utils/time_manager.h"

namespace Quarn {
namespace {

class CalendarTest : public HandClockTest {};

// Sets the time zone and puts the old one back.
class TimeZone {
 public:
  explicit TimeZone(const char* zone) {
    if (const char* before = getenv("TZ")) before_ = before;
    setenv("TZ", zone, 1);
    tzset();
  }
  ~TimeZone() {
    if (before_) {
      setenv("TZ", before_->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }

 private:
  std::optional<std::string> before_;
};

std::string DumpFields(const tm& fields) {
  std::string text;
  for (int field : {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_wday + 1, fields.tm_mday,
                    fields.tm_hour, fields.tm_min, fields.tm_sec}) {
    text += std::to_string(field) + " ";
  }
  return text;
}

std::string DumpCalendar() {
  const TimeManager& manager = TimeManager::Get();
  std::string text;
  for (s_uint field :
       {manager.GetYear(), manager.GetMonth(), manager.GetDayOfWeek(), manager.GetDayOfMonth(),
        manager.GetHour(), manager.GetMinutes(), manager.GetSeconds()}) {
    text += Dump(field) + " ";
  }
  return text;
}

TEST_F(CalendarTest, TheCalendarIsThatOfTheTimeZone) {
  for (const char* zone : {"UTC0", "EST5EDT,M3.2.0,M11.1.0", "NPT-5:45", "LINT-14", "AoE12"}) {
    const TimeZone here(zone);
    std::string expected, calendar;
    time_t before = 0;
    do {  // again when the second has changed in between
      before = time(nullptr);
      tm fields{};
      localtime_r(&before, &fields);
      expected = DumpFields(fields);
      calendar = DumpCalendar();
    } while (time(nullptr) != before);
    EXPECT_EQ(calendar, expected) << zone;
  }
}

suseconds_t Microseconds() {
  timeval now{};
  gettimeofday(&now, nullptr);
  return now.tv_usec;
}

// Is the value one that the clock showed from `first` to `last`, beginning anew each second?
bool IsBetween(suseconds_t value, suseconds_t first, suseconds_t last) {
  return first <= last ? first <= value && value <= last : value >= first || value <= last;
}

TEST_F(CalendarTest, MicrosecondsAreThoseOfTheRunningSecond) {
  for (int i = 0; i < 100; ++i) {
    const suseconds_t first = Microseconds();
    const s_uint value = TimeManager::Get().GetMicroseconds();
    const suseconds_t last = Microseconds();
    EXPECT_TRUE(value < 1000000U);
    EXPECT_TRUE(IsBetween(static_cast<suseconds_t>(value.Get()), first, last)) << Dump(value);
  }
}

int FourthNumberFrom(suseconds_t seed) {
  srand(static_cast<unsigned int>(seed));
  for (int i = 0; i < 3; ++i) rand();
  return rand();
}

TEST_F(CalendarTest, SeedingGivesTheFourthNumberFromTheMicroseconds) {
  const suseconds_t first = Microseconds();
  const s_int number = TimeManager::SeedRandom();
  const int next = rand();
  const suseconds_t last = Microseconds();
  suseconds_t seed = first;
  while (FourthNumberFrom(seed) != number.Get() && seed != last) seed = (seed + 1) % 1000000;
  EXPECT_EQ(FourthNumberFrom(seed), number.Get()) << "no seed from " << first << " to " << last;
  EXPECT_EQ(rand(), next);  // the generator goes on from there
}

}  // namespace
}  // namespace Quarn
