#include "interpreter/bracket_index.h"

#include <algorithm>

namespace Quarn {

// The C library looks for one character in many at once.
bool BracketIndex::IsSurelyPlain(std::string_view text) {
  for (char bracket : {'(', '<', '[', ')', '>', ']'}) {
    if (text.find(bracket) != std::string_view::npos) return false;
  }
  return true;
}

void BracketIndex::Match(std::string_view text, std::size_t begin) {
  // While a bracket is open, `next` links to the one of its kind that was opened before it.
  std::uint32_t innermost[] = {Bracket::kOpenEnd, Bracket::kOpenEnd, Bracket::kOpenEnd};
  constexpr std::size_t kMostOpen = 64;  // more count as not well nested
  std::uint32_t open[kMostOpen];
  std::size_t open_count = 0;
  for (std::size_t i = begin; i < text.size(); ++i) {
    const CharacterClass kind = Classify(text[i]);
    if (kind < CharacterClass::kOpen) continue;
    std::uint32_t& top = innermost[GetBracketKind(text[i])];
    if (kind == CharacterClass::kOpen) {
      storage_.push_back({static_cast<std::uint32_t>(i), Bracket::kOpenEnd, top});
      if (open_count < kMostOpen) {
        open[open_count++] = size_;
      } else {
        well_nested_ = false;
      }
      top = size_++;
    } else if (top == Bracket::kOpenEnd) {
      well_nested_ = false;
    } else {
      if (open_count == 0 || open[--open_count] != top) well_nested_ = false;
      Bracket& bracket = storage_[base_ + top];
      top = bracket.next;
      bracket.close = static_cast<std::uint32_t>(i);
      bracket.next = size_;
    }
  }
  if (open_count > 0) well_nested_ = false;
}

std::uint32_t BracketIndex::FindFirst(std::uint32_t position) const {
  const auto begin = storage_.begin() + static_cast<std::ptrdiff_t>(base_);
  const auto first =
      std::lower_bound(begin, begin + size_, position,
                       [](const Bracket& bracket, std::uint32_t at) { return bracket.open < at; });
  return static_cast<std::uint32_t>(first - begin);
}

}  // namespace Quarn
