// The directories of the user, where the environment or custom says they are.
#pragma once

#include <filesystem>

namespace Quarn {

// mirlow/history below $XDG_STATE_HOME or ~/.local/state; empty if there is neither.
std::filesystem::path FindHistory();

// mirlow/init below $XDG_CONFIG_HOME or ~/.config; empty if there is neither.
std::filesystem::path FindInit();

}  // namespace Quarn
