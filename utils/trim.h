// Trimming where nothing may be copied: a view of a text without the spaces around it.
#pragma once

#include <string_view>

namespace Quarn {

// Without leading and trailing spaces. Tabs stay.
inline std::string_view TrimSpaces(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

}  // namespace Quarn
