#include "tools/limits_option.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>

namespace Quarn {
namespace {

constexpr std::uint64_t kThousand = 1000;

struct Counted {
  std::string_view name;
  std::uint64_t Limits::*limit;
};
constexpr Counted kCounted[] = {
    {"steps",   &Limits::steps  },
    {"memory",  &Limits::memory },
    {"output",  &Limits::output },
    {"nesting", &Limits::nesting},
};
constexpr std::string_view kFinite = "finite";

// 1 without a unit; 0 when it is none.
std::uint64_t ReadUnit(std::string_view unit) {
  if (unit.empty()) return 1;
  if (unit == "K") return kThousand;
  if (unit == "M") return kThousand * kThousand;
  return unit == "G" ? kThousand * kThousand * kThousand : 0;
}

std::optional<std::uint64_t> ReadCount(std::string_view text) {
  if (text == "none") return Limits::kNone;
  std::uint64_t count = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, count);
  const std::uint64_t unit = ReadUnit({stop, end});
  if (error != std::errc() || unit == 0 || count > Limits::kNone / unit) return std::nullopt;
  return count * unit;
}

bool Change(Limits& limits, std::string_view name, std::string_view value) {
  if (name == kFinite) {
    limits.ends_the_endless = value == "yes";
    return value == "yes" || value == "no";
  }
  for (const auto& [known, limit] : kCounted) {
    if (name != known) continue;
    const std::optional<std::uint64_t> count = ReadCount(value);
    if (count) limits.*limit = *count;
    return count.has_value();
  }
  return false;
}

}  // namespace

Limits GetSessionLimits() {
  Limits limits;
  limits.ends_the_endless = true;
  const long pages = sysconf(_SC_PHYS_PAGES);
  const long size = sysconf(_SC_PAGESIZE);
  if (pages > 0 && size > 0) {
    limits.memory = static_cast<std::uint64_t>(pages) / 2 * static_cast<std::uint64_t>(size);
  }
  return limits;
}

std::optional<Limits> ChangeLimits(Limits limits, std::string_view changes) {
  while (!changes.empty()) {
    const std::string_view change = changes.substr(0, changes.find(','));
    changes.remove_prefix(std::min(change.size() + 1, changes.size()));
    const std::size_t equals = change.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    if (!Change(limits, change.substr(0, equals), change.substr(equals + 1))) return std::nullopt;
  }
  return limits;
}

std::string FormatLimits(const Limits& limits) {
  std::string text;
  for (const auto& [name, limit] : kCounted) {
    const std::uint64_t count = limits.*limit;
    text.append(name) += '=' + (count == Limits::kNone ? "none" : std::to_string(count)) + '\n';
  }
  return text.append(kFinite) + (limits.ends_the_endless ? "=yes\n" : "=no\n");
}

}  // namespace Quarn
