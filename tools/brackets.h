// Which bracket matches the one at the cursor.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace Quarn {

// Where the stretch ends that begins at the cursor, with an opening bracket there, or where it
// begins when a closing bracket stands before the cursor. Nothing without a bracket or its partner.
// As in the language, brackets of other kinds do not count.
//   FindMatch("2*(1+2)", 7);  // 2
//   FindMatch("2*(1+2)", 2);  // 7
std::optional<std::size_t> FindMatch(std::string_view line, std::size_t cursor);

}  // namespace Quarn
