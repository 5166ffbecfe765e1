// The colours of the shell.
#pragma once

#include <string>
#include <string_view>

namespace Quarn {

enum class ColourUse { kAuto, kAlways, kNever };

// Automatically: when both ends are terminals that can, and NO_COLOR is not set.
bool UsesColour(ColourUse use);

constexpr char kColourEnd[] = "\033[0m";
constexpr char kBracketColour[] = "\033[1;36m";
constexpr char kErrorColour[] = "\033[31m";
constexpr char kWarningColour[] = "\033[33m";
constexpr char kFaintColour[] = "\033[2m";

// What a command printed: errors and warnings in their colours, types faint.
std::string AddColours(std::string_view output);

std::string Paint(std::string_view text, const char* colour);

}  // namespace Quarn
