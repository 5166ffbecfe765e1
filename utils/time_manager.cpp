#include "utils/time_manager.h"

#include <sys/time.h>

#include <cstdlib>
#include <ctime>

#include "utils/s_str_convert.h"
#include "utils/utils_manager.h"

namespace Quarn {
namespace {

// Shorter steps count as if they had this length.
constexpr double kShortestStep = 0.0001;
constexpr unsigned int kRateOfShorterSteps = 10000;
constexpr double kPeriod = 1.0;

// NaN of nothing. A sum that is INF or NaN stays so.
s_uint Mean(s_uint sum, s_uint count) {
  if (count.Get() == 0) return s_uint::NaN;
  return sum.IsValid() ? s_uint(sum.Get() / count.Get()) : sum;
}

s_uint CalendarField(int std::tm::*field, int first) {
  const std::time_t now = std::time(nullptr);
  return static_cast<unsigned int>(std::localtime(&now)->*field + first);
}

s_str TwoDigits(s_uint number) {
  const s_str text = ToText(number);
  return number < 10U ? "0" + text : text;
}

}  // namespace

constinit TimeManager* TimeManager::instance_ = nullptr;

TimeManager& TimeManager::Get() {
  if (!instance_) instance_ = new TimeManager;
  return *instance_;
}

void TimeManager::Destroy() {
  delete instance_;
  instance_ = nullptr;
}

void TimeManager::Initialise() {
  period_timer_ = s_refptr<Timer>(new Timer);
  start_ = last_ = current_ = GetTime();
  profiled_ = 0.0;
  step_ = kFirstStep;
  rate_ = 0U;
  periods_ = 0U;
  rate_sum_ = 0U;
  highest_rate_ = 0U;
  lowest_rate_ = s_uint::INF;
}

void TimeManager::Update() {
  last_ = current_;
  current_ = GetTime();
  step_ = current_ - last_;
  instant_rate_sum_ += step_ < kShortestStep ? s_uint(kRateOfShorterSteps) : (1.0 / step_).ToUint();
  updates_ += 1U;
  if (!period_timer_.IsNull() && period_timer_->GetElapsed() > kPeriod) EndPeriod();
}

void TimeManager::EndPeriod() {
  period_timer_->Reset();
  rate_ = Mean(instant_rate_sum_, updates_);
  instant_rate_sum_ = 0U;
  updates_ = 0U;
  rate_sum_ += rate_;
  periods_ += 1U;
  if (rate_ > highest_rate_) highest_rate_ = rate_;
  if (rate_ < lowest_rate_) lowest_rate_ = rate_;
}

s_double TimeManager::GetStep() const {
  if (step_ > kShortestStep) return step_;
  if (rate_ > 0U) return 1.0 / rate_.Get();
  return 0.0;
}

s_uint TimeManager::GetAverageRate() const { return Mean(rate_sum_, periods_); }

s_double TimeManager::GetPlayTime() const {
  return period_timer_.IsNull() ? s_double(0.0) : GetTime() - start_;
}

s_str TimeManager::GetPlayTimeText() const { return FormatPlayTime(GetPlayTime()); }

void TimeManager::SetProfiling(s_bool on) {
  if (on) {
    profiling_start_ = GetTime();
  } else {
    profiled_ = GetTime() - profiling_start_;
  }
  profiling_ = on;
}

Profiler& TimeManager::GetProfiler(const s_str& group, const s_str& name) {
  return groups_[group].GetProfiler(name);
}

void TimeManager::PrintReport() const {
  for (const s_str& line : MakeReport(profiled_, groups_)) UtilsManager::Get().Print(line);
}

s_uint TimeManager::GetYear() const { return CalendarField(&std::tm::tm_year, 1900); }
s_uint TimeManager::GetMonth() const { return CalendarField(&std::tm::tm_mon, 1); }
s_uint TimeManager::GetDayOfWeek() const { return CalendarField(&std::tm::tm_wday, 1); }
s_uint TimeManager::GetDayOfMonth() const { return CalendarField(&std::tm::tm_mday, 0); }
s_uint TimeManager::GetHour() const { return CalendarField(&std::tm::tm_hour, 0); }
s_uint TimeManager::GetMinutes() const { return CalendarField(&std::tm::tm_min, 0); }
s_uint TimeManager::GetSeconds() const { return CalendarField(&std::tm::tm_sec, 0); }

s_uint TimeManager::GetMicroseconds() const {
  timeval now{};
  gettimeofday(&now, nullptr);
  return static_cast<unsigned int>(now.tv_usec);
}

s_int TimeManager::SeedRandom() {
  std::srand(Get().GetMicroseconds().Get());
  for (int i = 0; i < 3; ++i) std::rand();
  return std::rand();
}

s_str FormatPlayTime(s_double seconds) {
  constexpr double kTooLong = 4294967296.0;  // ToUint would wrap
  const s_uint total = seconds >= kTooLong ? s_uint::INF : seconds.Floor().ToUint();
  s_uint hours = total;  // INF or NaN stays so
  s_uint minutes = total;
  s_uint rest = total;
  if (total.IsValid()) {
    hours = total.Get() / 3600;
    minutes = total.Get() / 60 % 60;
    rest = total.Get() % 60;
  }
  return "[" + ToText(hours) + ":" + TwoDigits(minutes) + ":" + TwoDigits(rest) + "]";
}

}  // namespace Quarn
