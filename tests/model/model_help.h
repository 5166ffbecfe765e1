#pragma once

#include <string>

namespace Quarn::model {

// The whole help screen, its last line break included.
std::string HelpScreen();

}  // namespace Quarn::model
