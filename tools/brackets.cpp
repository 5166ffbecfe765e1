#include "tools/brackets.h"

namespace Quarn {
namespace {

constexpr std::string_view kOpening = "([<";
constexpr std::string_view kClosing = ")]>";
constexpr std::size_t kNone = std::string_view::npos;

std::optional<std::size_t> FindOpening(std::string_view line, char opening, char closing) {
  std::size_t depth = 0;
  for (std::size_t i = line.size(); i-- > 0;) {
    if (line[i] == closing) ++depth;
    if (line[i] == opening && --depth == 0) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> FindEnd(std::string_view line, std::size_t begin, char opening,
                                   char closing) {
  std::size_t depth = 0;
  for (std::size_t i = begin; i < line.size(); ++i) {
    if (line[i] == opening) ++depth;
    if (line[i] == closing && --depth == 0) return i + 1;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::size_t> FindMatch(std::string_view line, std::size_t cursor) {
  const std::size_t closed = cursor > 0 ? kClosing.find(line[cursor - 1]) : kNone;
  if (closed != kNone)
    return FindOpening(line.substr(0, cursor), kOpening[closed], kClosing[closed]);
  const std::size_t opened = cursor < line.size() ? kOpening.find(line[cursor]) : kNone;
  if (opened == kNone) return std::nullopt;
  return FindEnd(line, cursor, kOpening[opened], kClosing[opened]);
}

}  // namespace Quarn
