// The limits of a shell as text: "steps=1000000,memory=2G,finite=yes".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "interpreter/limits.h"

namespace Quarn {

// Of a session: what would never end, or end the session, is an error, and evaluations leave half
// of the machine's memory alone.
Limits GetSessionLimits();

// The limits with these changes, "steps=1000,finite=no". A number may have a K, M or G behind it,
// for thousands, millions and so on; "none" is no limit. Nothing when the text makes no sense.
std::optional<Limits> ChangeLimits(Limits limits, std::string_view changes);

// A line for each.
std::string FormatLimits(const Limits& limits);

}  // namespace Quarn
