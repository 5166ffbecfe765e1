// What the shell says to who does not know it.
#pragma once

#include <string>
#include <string_view>

namespace Quarn {

// "mirlow 0.1.0: ? for help, Ctrl-D to leave", and a newline.
std::string GetGreeting();

// For a line that would define a symbol though help or a way out was meant, such as "help" or
// "exit ": what to type instead, and a newline. Empty for other lines.
std::string GetHint(std::string_view line);

}  // namespace Quarn
