#include "tools/colours.h"

#include <unistd.h>

#include <cstdlib>

#include "tools/report.h"

namespace Quarn {
namespace {

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

bool CanShowColours() {
  const char* terminal = std::getenv("TERM");
  return terminal && *terminal && std::string_view(terminal) != "dumb";
}

// The length of "\tDefining Scalar :" or "\tScalar :" at the start; 0 without one.
std::size_t MeasureType(std::string_view output) {
  const std::size_t colon = output.find(" : ");
  const std::size_t line = output.find('\n');
  if (!output.starts_with('\t') || colon == std::string_view::npos || colon > line) return 0;
  std::string_view type = output.substr(1, colon - 1);
  if (type.starts_with("Defining ")) type.remove_prefix(9);
  const bool is_word = type.find_first_of(" '\t") == std::string_view::npos;
  const bool is_line = line + 1 == output.size();
  return is_word && is_line ? colon + 2 : 0;
}

}  // namespace

bool UsesColour(ColourUse use) {
  if (use != ColourUse::kAuto) return use == ColourUse::kAlways;
  return isatty(STDIN_FILENO) && isatty(STDOUT_FILENO) && !IsSet("NO_COLOR") && CanShowColours();
}

// A newline at the end stays outside.
std::string Paint(std::string_view text, const char* colour) {
  const bool ends_line = text.ends_with('\n');
  if (ends_line) text.remove_suffix(1);
  return std::string(colour).append(text).append(kColourEnd).append(ends_line ? "\n" : "");
}

std::string AddColours(std::string_view output) {
  if (IsError(output)) return Paint(output, kErrorColour);
  if (output.starts_with("\tWarning : ")) return Paint(output, kWarningColour);
  const std::size_t type = MeasureType(output);
  if (type == 0) return std::string(output);
  return Paint(output.substr(0, type), kFaintColour).append(output.substr(type));
}

}  // namespace Quarn
