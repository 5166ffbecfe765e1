// Trimming without a copy.
#pragma once

#include <string_view>

namespace Quarn {

// Tabs stay.
inline std::string_view TrimSpaces(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

}  // namespace Quarn
