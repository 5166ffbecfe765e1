// What a symbol may be called.
#pragma once

#include <string_view>

namespace Quarn {

// Letters and digits only, of ASCII whatever the locale. The empty text passes.
inline bool IsAlphanumeric(std::string_view text) {
  for (char c : text) {
    if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))) return false;
  }
  return true;
}

}  // namespace Quarn
