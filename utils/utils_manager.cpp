#include "utils/utils_manager.h"

namespace Quarn {
namespace {

s_str MakeLine(s_str line, const s_str& source, const s_str& message) {
  if (!source.IsEmpty()) line += source + " : ";
  return line + message;
}

}  // namespace

void UtilsManager::Print(const s_str& text) {
  if (!print_) {
    dropped_ += 1U;
    return;
  }
  print_(text);
}

void UtilsManager::Warning(const s_str& source, const s_str& message) {
  Print(MakeLine("# Warning # : ", source, message));
}

void UtilsManager::Error(const s_str& source, const s_str& message) {
  Print(MakeLine("# Error # : ", source, message));
}

}  // namespace Quarn
