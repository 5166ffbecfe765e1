#include "interpreter/source.h"

#include <array>

#include "interpreter/messages.h"
#include "interpreter/priorities.h"

namespace Quarn {
namespace {

constexpr std::string_view kOpening = "(<[";
constexpr std::string_view kClosing = ")>]";

constexpr std::size_t Code(char c) { return static_cast<unsigned char>(c); }

constexpr auto kClasses = [] {
  std::array<CharacterClass, 256> classes{};
  classes[Code(' ')] = CharacterClass::kBlank;
  classes[Code(',')] = CharacterClass::kComma;
  for (char c : kOpening) classes[Code(c)] = CharacterClass::kOpen;
  for (char c : kClosing) classes[Code(c)] = CharacterClass::kClose;
  for (const OperatorPriority& row : kPriorities) {
    // "[]" is never met at top level: its "[" opens a bracket.
    if (row.text.size() == 1) classes[Code(row.text[0])] = CharacterClass::kOperator;
  }
  return classes;
}();

CharacterClass Classify(char c) { return kClasses[Code(c)]; }

}  // namespace

Source::Source(std::string_view text, BracketRoom& room)
    : text_(text), room_(room), base_(room.size()) {
  Match();
}

void Source::Match() {
  // While a bracket is open, `next` links to the one of its kind that was opened before it.
  std::uint32_t innermost[] = {Bracket::kOpenEnd, Bracket::kOpenEnd, Bracket::kOpenEnd};
  for (std::size_t i = 0; i < text_.size(); ++i) {
    const CharacterClass kind = Classify(text_[i]);
    if (kind < CharacterClass::kOpen) continue;
    plain_ = false;
    if (kind == CharacterClass::kOpen) {
      std::uint32_t& top = innermost[kOpening.find(text_[i])];
      room_.push_back({static_cast<std::uint32_t>(i), Bracket::kOpenEnd, top});
      top = count_++;
    } else {
      std::uint32_t& top = innermost[kClosing.find(text_[i])];
      if (top == Bracket::kOpenEnd) continue;
      Bracket& bracket = room_[base_ + top];
      top = bracket.next;
      bracket.close = static_cast<std::uint32_t>(i);
      bracket.next = count_;
    }
  }
}

Piece Piece::Trimmed() const {
  Piece trimmed = *this;
  const std::string_view text = source_->GetText();
  while (trimmed.begin_ < trimmed.end_ && text[trimmed.begin_] == ' ') ++trimmed.begin_;
  while (trimmed.begin_ < trimmed.end_ && text[trimmed.end_ - 1] == ' ') --trimmed.end_;
  return trimmed;
}

Piece Piece::Inside() const {
  Piece inside = *this;
  ++inside.begin_;
  ++inside.bracket_;
  // A lone bracket holds nothing.
  if (inside.end_ > inside.begin_) --inside.end_;
  return inside;
}

std::uint32_t Piece::SkipBracketsBefore(std::uint32_t position) const {
  std::uint32_t bracket = bracket_;
  while (bracket < source_->CountBrackets() && source_->GetBracket(bracket).open < position) {
    ++bracket;
  }
  return bracket;
}

Piece Piece::Before(std::uint32_t position) const {
  Piece before = *this;
  before.end_ = position;
  return before;
}

Piece Piece::Behind(std::uint32_t position) const {
  Piece behind = *this;
  behind.begin_ = position + 1;
  behind.bracket_ = SkipBracketsBefore(position + 1);
  return behind;
}

bool Piece::CheckBrackets(s_str& error) const {
  if (source_->IsPlain()) return true;
  const std::string_view text = source_->GetText();
  std::uint32_t bracket = bracket_;
  for (std::uint32_t i = begin_; i < end_; ++i) {
    const CharacterClass kind = Classify(text[i]);
    if (kind == CharacterClass::kClose) {
      AddError(error, messages::TooManyClosing(text[i]));
      return false;
    }
    if (kind != CharacterClass::kOpen) continue;
    const Bracket& open = source_->GetBracket(bracket);
    if (open.close >= end_) {
      AddError(error, messages::Unterminated(text[i]));
      return false;
    }
    i = open.close;
    bracket = open.next;
  }
  return true;
}

Piece Piece::CutBefore(CharacterClass stop) {
  Piece cut = *this;
  const std::string_view text = source_->GetText();
  for (; begin_ < end_; ++begin_) {
    const CharacterClass kind = Classify(text[begin_]);
    if (kind == stop) break;
    if (kind != CharacterClass::kOpen) continue;
    const Bracket& open = source_->GetBracket(bracket_);
    begin_ = open.close;
    bracket_ = open.next;
  }
  cut.end_ = begin_;
  return cut;
}

std::uint32_t Piece::FindClose(std::uint32_t open) const {
  const std::uint32_t close = source_->GetBracket(SkipBracketsBefore(open)).close;
  return close < end_ ? close : Bracket::kOpenEnd;
}

bool Parts::Next(Piece& part) {
  while (!rest_.IsEmpty()) {
    part = rest_.CutBefore(CharacterClass::kComma);
    if (!rest_.IsEmpty()) rest_.DropFirst();
    if (!part.IsEmpty()) return true;
  }
  return false;
}

}  // namespace Quarn
