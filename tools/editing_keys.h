// The keys that readline does not know by itself. ~/.inputrc may bind all of them differently.
#pragma once

namespace Quarn {

// To be called before readline reads ~/.inputrc.
void BindKeys();

}  // namespace Quarn
