// Adding a message to an error text.
#pragma once

#include "../utils/api.h"
#include "../utils/fwd.h"

namespace Quarn {

// Adds a message on a line of its own: a newline comes before it when the text is not empty.
//   AddError(error, "\tError : Division of complex numbers by zero");
MIRLOW_API void AddError(s_str& error, const s_str& message);

}  // namespace Quarn
