#include "utils/profiler.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

#include "utils/s_str_convert.h"
#include "utils/time_manager.h"
#include "utils/write_real.h"

namespace Quarn {
namespace {

constexpr s_uint kTimeDigits = 4U;

// The longest label; the others are padded to its width.
constexpr std::string_view kRecords = "listing records";

s_str Label(std::string_view name) {
  const std::string padding(kRecords.size() - name.size(), ' ');
  return "     - " + std::string(name) + padding + " :";
}

s_str Seconds(s_double seconds) { return FormatSignificant(seconds, kTimeDigits) + " s"; }
s_str Milliseconds(s_double seconds) {
  return FormatSignificant(seconds * 1000.0, kTimeDigits) + " ms";
}

s_str Percentage(s_double part, s_double whole) {
  const s_double share = whole == 0.0 ? s_double::NaN() : part / whole * 100.0;
  return FormatSignificant(share, kTimeDigits) + "%";
}

void ReportProfiler(const Profiler& profiler, s_double total, s_ctnr<s_str>& lines) {
  lines.PushBack("  - " + profiler.GetName() + " :");
  lines.PushBack(Label("call number") + " " + ToText(profiler.GetCalls()) + " (" +
                 ToText(profiler.GetUntimedCalls()) + " not timed)");
  lines.PushBack(Label("total time") + " " + Seconds(profiler.GetTotal()) + " (" +
                 Percentage(profiler.GetTotal(), total) + " of total)");
  lines.PushBack(Label("average time") + " " + Milliseconds(profiler.GetAverage()));
  lines.PushBack(Label("highest time") + " " + Milliseconds(profiler.GetHighest()));
  lines.PushBack(Label("lowest time") + " " + Milliseconds(profiler.GetLowest()));
  lines.PushBack(Label(kRecords));
  s_uint index = 0U;
  for (const s_double record : profiler.GetRecords()) {
    lines.PushBack("        [" + ToText(index) + "] : " + Milliseconds(record));
    index += 1U;
  }
}

// Digits without a point; the first one counts 10^exponent.
struct Decimal {
  std::string digits;
  int exponent;
};

// All digits, of which a double has 767 at most. REQUIRES: the value is finite and above 0.
Decimal ToDecimal(double value) {
  char room[800];
  const char* end = WriteReal(room, std::end(room), value, std::chars_format::scientific, 766);
  const std::string_view text(room, static_cast<std::size_t>(end - room));  // "1.234...e-04"
  const std::size_t mark = text.find('e');
  Decimal decimal = {std::string(text.substr(0, mark)).erase(1, 1), 0};
  std::from_chars(text.data() + mark + 2, end, decimal.exponent);
  if (text[mark + 1] == '-') decimal.exponent = -decimal.exponent;
  return decimal;
}

// Halves go up.
void Round(Decimal& decimal, std::size_t wanted) {
  const bool up = decimal.digits[wanted] >= '5';
  decimal.digits.resize(wanted);
  if (!up) return;
  for (auto digit = decimal.digits.rbegin(); digit != decimal.digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return;
    }
    *digit = '0';
  }
  decimal.digits.front() = '1';  // all nines: the next power of ten
  ++decimal.exponent;
}

// REQUIRES: the value is finite and not negative.
std::string FormatPositive(double value, std::size_t wanted) {
  if (value == 0) return "0." + std::string(wanted, '0');
  Decimal decimal = ToDecimal(value);
  if (decimal.exponent >= static_cast<int>(wanted)) {
    decimal.digits.resize(wanted);
  } else {
    Round(decimal, wanted);
  }
  if (decimal.exponent < 0) {
    const std::size_t zeros = static_cast<std::size_t>(-decimal.exponent) - 1;
    return "0." + std::string(zeros, '0') + decimal.digits;
  }
  const std::size_t before_point = static_cast<std::size_t>(decimal.exponent) + 1;
  if (before_point < wanted) return decimal.digits.insert(before_point, 1, '.');
  decimal.digits.resize(before_point, '0');
  return decimal.digits;
}

}  // namespace

void Profiler::Record(s_double seconds) {
  calls_ += 1U;
  records_.PushBack(seconds);
}

void Profiler::CountUntimed() {
  calls_ += 1U;
  untimed_calls_ += 1U;
}

s_double Profiler::GetTotal() const {
  if (records_.IsEmpty()) return s_double::NaN();
  s_double total;
  for (const s_double record : records_) total += record;
  return total;
}

s_double Profiler::GetAverage() const { return GetTotal() / records_.GetSize().Get(); }

s_double Profiler::GetHighest() const {
  if (records_.IsEmpty()) return s_double::NaN();
  return *std::max_element(records_.begin(), records_.end());
}

s_double Profiler::GetLowest() const {
  if (records_.IsEmpty()) return s_double::NaN();
  return *std::min_element(records_.begin(), records_.end());
}

Profiler& ProfilerGroup::GetProfiler(const s_str& name) {
  for (Profiler& profiler : profilers_) {
    if (profiler.GetName() == name) return profiler;
  }
  profilers_.PushBack(Profiler(name));
  return profilers_[profilers_.GetSize() - 1U];
}

s_double ProfilerGroup::GetTime() const {
  s_double time;
  for (const Profiler& profiler : profilers_) {
    if (!profiler.GetRecords().IsEmpty()) time += profiler.GetTotal();
  }
  return time;
}

Chrono::Chrono(Profiler& profiler)
    : profiler_(profiler), timed_(TimeManager::Get().IsProfiling()) {}

void Chrono::Stop() {
  if (stopped_) return;
  stopped_ = true;
  timer_.Pause();
  if (timed_) {
    profiler_.Record(timer_.GetElapsed());
  } else {
    profiler_.CountUntimed();
  }
}

s_str FormatSignificant(s_double value, s_uint digits) {
  if (!value.IsFinite()) return ToText(value);
  const double positive = std::fabs(value.Get());
  const s_str text = FormatPositive(positive, digits.Get());
  return value < 0.0 ? "-" + text : text;
}

s_ctnr<s_str> MakeReport(s_double total, const ProfilerGroups& groups) {
  s_ctnr<s_str> lines;
  lines.PushBack("# Profiling info : " + ToText(total) + " s of profiling");
  for (const auto& [name, group] : groups) {
    lines.PushBack("# Profiling info for group [" + name + "] : " + ToText(group.GetTime()) +
                   " s of profiling");
    for (const Profiler& profiler : group.GetProfilers()) ReportProfiler(profiler, total, lines);
  }
  lines.PushBack("# end.");
  return lines;
}

}  // namespace Quarn
