// How a failure gets its words.
#pragma once

#include "../utils/api.h"
#include "../utils/fwd.h"

namespace Quarn {

// Adds a message on a line of its own: a newline comes before it when the text holds something.
//   AddError(error, "\tError : Division of complex numbers by zero");
MIRLOW_API void AddError(s_str& error, const s_str& message);

}  // namespace Quarn
