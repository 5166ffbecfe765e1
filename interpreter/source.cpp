#include "interpreter/source.h"

#include "interpreter/messages.h"

namespace Quarn {

void Source::Match() {
  std::size_t begin = 0;
  while (begin < text_.size() && Classify(text_[begin]) < CharacterClass::kOpen) ++begin;
  plain_ = begin == text_.size();
  // While a bracket is open, `next` links to the one of its kind that was opened before it.
  std::uint32_t innermost[] = {Bracket::kOpenEnd, Bracket::kOpenEnd, Bracket::kOpenEnd};
  for (std::size_t i = begin; i < text_.size(); ++i) {
    const CharacterClass kind = Classify(text_[i]);
    if (kind < CharacterClass::kOpen) continue;
    if (kind == CharacterClass::kOpen) {
      std::uint32_t& top = innermost[kOpeningBrackets.find(text_[i])];
      room_.push_back({static_cast<std::uint32_t>(i), Bracket::kOpenEnd, top});
      top = count_++;
    } else {
      std::uint32_t& top = innermost[kClosingBrackets.find(text_[i])];
      if (top == Bracket::kOpenEnd) continue;
      Bracket& bracket = room_[base_ + top];
      top = bracket.next;
      bracket.close = static_cast<std::uint32_t>(i);
      bracket.next = count_;
    }
  }
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

std::uint32_t Piece::FindFrom(CharacterClass least) const {
  const char* text = source_->GetText().data();
  std::uint32_t bracket = bracket_;
  for (std::uint32_t i = begin_; i < end_; ++i) {
    const CharacterClass kind = Classify(text[i]);
    if (kind < least) continue;
    if (kind != CharacterClass::kOpen) return i;
    const Bracket& open = source_->GetBracket(bracket);
    if (open.close >= end_) return i;
    i = open.close;
    bracket = open.next;
  }
  return end_;
}

bool Piece::FailOnBracket(std::uint32_t position, s_str& error) const {
  const char bracket = source_->GetText()[position];
  AddError(error, Classify(bracket) == CharacterClass::kClose ? messages::TooManyClosing(bracket)
                                                              : messages::Unterminated(bracket));
  return false;
}

std::uint32_t Piece::FindClose(std::uint32_t open) const {
  const std::uint32_t close = source_->GetBracket(SkipBracketsBefore(open)).close;
  return close < end_ ? close : Bracket::kOpenEnd;
}

bool Parts::Next(Piece& part) {
  while (!rest_.IsEmpty()) {
    rest_.CutBefore(CharacterClass::kComma, part);
    if (!rest_.IsEmpty()) rest_.DropFirst();
    if (!part.IsEmpty()) return true;
  }
  return false;
}

}  // namespace Quarn
