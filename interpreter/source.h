// The text of an expression as the evaluator sees it: matched once, then only looked at.
//
// A bracket of one kind hides the other kinds: inside "(" only "(" and ")" count until the
// parenthesis is closed. So which character closes an opening bracket depends on the characters of
// its own kind behind it and on nothing before it: it can be found for every opening bracket of a
// text in one pass, one stack per kind, and holds for every stretch of that text that reaches to
// the closing one. A Source makes this index; a Piece is a stretch that is looked at on its own,
// and steps over its inner brackets by the index, so that nesting costs what the text weighs.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "interpreter/character_class.h"
#include "utils/s_str.h"

namespace Quarn {

// A pair of brackets, by their positions in the text.
struct Bracket {
  // The place of what is not there.
  static constexpr std::uint32_t kOpenEnd = 0xFFFFFFFF;

  // Where the pair opens and closes.
  std::uint32_t open;
  std::uint32_t close;  // kOpenEnd: never closed
  std::uint32_t
      next;  // the first opening bracket behind the closing one, by its place in the index
};

// Lends the room for the indexes of texts that are evaluated inside one another; see Source.
using BracketRoom = std::vector<Bracket>;

// A text and the index of its brackets.
class Source {
 public:
  // Positions have 32 bits.
  static constexpr std::size_t kLongest = 0xFFFFFFFF;

  // REQUIRES: at most kLongest bytes. The text must outlive the source, and sources that share a
  // room must go in reverse order of their coming.
  Source(std::string_view text, BracketRoom& room) : Source(room, text) { Match(); }
  ~Source() { room_.resize(base_); }
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

  std::string_view GetText() const { return text_; }
  // Does the text hold no bracket at all?
  bool IsPlain() const { return plain_; }
  const Bracket& GetBracket(std::uint32_t index) const { return room_[base_ + index]; }
  std::uint32_t CountBrackets() const { return count_; }

 private:
  // Complete before the matching, which may run out of memory and then leaves the room as it was.
  Source(BracketRoom& room, std::string_view text) : text_(text), room_(room), base_(room.size()) {}
  void Match();

  std::string_view text_;
  BracketRoom& room_;
  std::size_t base_;
  std::uint32_t count_ = 0;  // how many brackets open in the text
  bool plain_ = true;
};

// A stretch of a source: positions in its text, and the first bracket that opens at or behind its
// begin. Cheap to copy; valid as long as the source.
class Piece {
 public:
  Piece() = default;  // of nothing; only good for being assigned to
  // Member by member: positions that were just stored one by one are slow to load as a whole, as
  // defaulted copies load them.
  // NOLINTBEGIN(modernize-use-equals-default,bugprone-unhandled-self-assignment)
  Piece(const Piece& other)
      : source_(other.source_),
        begin_(other.begin_),
        end_(other.end_),
        bracket_(other.bracket_),
        holds_no_operator_(other.holds_no_operator_) {}
  Piece& operator=(const Piece& other) {
    source_ = other.source_;
    begin_ = other.begin_;
    end_ = other.end_;
    bracket_ = other.bracket_;
    holds_no_operator_ = other.holds_no_operator_;
    return *this;
  }
  // NOLINTEND(modernize-use-equals-default,bugprone-unhandled-self-assignment)
  // The whole of a source.
  explicit Piece(const Source& source)
      : source_(&source), end_(static_cast<std::uint32_t>(source.GetText().size())) {}

  // The characters of the piece, and where they stand in the text of the source.
  std::string_view GetText() const { return {source_->GetText().data() + begin_, end_ - begin_}; }
  std::uint32_t GetBegin() const { return begin_; }
  std::uint32_t GetEnd() const { return end_; }
  bool IsEmpty() const { return begin_ == end_; }

  // Without leading and trailing spaces. Tabs stay.
  Piece Trimmed() const {
    Piece trimmed = *this;
    trimmed.Trim();
    return trimmed;
  }
  void Trim() {
    const char* text = source_->GetText().data();
    while (begin_ < end_ && text[begin_] == ' ') ++begin_;
    while (begin_ < end_ && text[end_ - 1] == ' ') --end_;
  }
  // Without its first and last character. REQUIRES: the first is an opening bracket.
  Piece Inside() const;
  // The part before / behind a position of the text that lies inside the piece.
  Piece Before(std::uint32_t position) const;
  Piece Behind(std::uint32_t position) const;

  // Are the brackets balanced at the top level of this piece? If not, adds the one message.
  bool CheckBrackets(s_str& error) const {
    if (source_->IsPlain()) return true;
    const std::uint32_t bad = FindFrom(CharacterClass::kOpen);
    if (bad == end_) return true;
    return FailOnBracket(bad, error);
  }
  // Are its brackets balanced, and is there no operator between them?
  bool HoldsNoOperator() const {
    return holds_no_operator_ || FindFrom(CharacterClass::kOperator) == end_;
  }

  // Cuts off what stands before the next character of the class at top level, and leaves the rest
  // beginning with that character, or empty when there is none.  REQUIRES: CheckBrackets.
  void CutBefore(CharacterClass stop, Piece& cut);
  Piece CutBefore(CharacterClass stop) {
    Piece cut;
    CutBefore(stop, cut);
    return cut;
  }
  // Drops the first character. REQUIRES: not empty, and it opens no bracket.
  void DropFirst() { ++begin_; }

  // The position that closes the bracket which opens at `open`; Bracket::kOpenEnd when that lies
  // outside of the piece.
  std::uint32_t FindClose(std::uint32_t open) const;

 private:
  // The first character at top level that is a bracket which closes none or is not closed, or of a
  // class from the least one on; the end when there is none.
  std::uint32_t FindFrom(CharacterClass least) const;
  bool FailOnBracket(std::uint32_t position, s_str& error) const;
  std::uint32_t SkipBracketsBefore(std::uint32_t position) const;

  const Source* source_ = nullptr;
  std::uint32_t begin_ = 0;
  std::uint32_t end_ = 0;
  std::uint32_t bracket_ = 0;
  bool holds_no_operator_ = false;  // known from when it was cut off
};

inline void Piece::CutBefore(CharacterClass stop, Piece& cut) {
  const char* text = source_->GetText().data();
  std::uint32_t at = begin_;
  // Not by assignment, which would copy what is overwritten.
  cut.source_ = source_;
  cut.begin_ = at;
  cut.bracket_ = bracket_;
  bool operator_met = false;
  while (at < end_) {
    const CharacterClass kind = Classify(text[at]);
    if (kind == stop) break;
    operator_met |= kind == CharacterClass::kOperator;
    if (kind == CharacterClass::kOpen) {
      const Bracket& open = source_->GetBracket(bracket_);
      at = open.close;
      bracket_ = open.next;
    }
    ++at;
  }
  begin_ = cut.end_ = at;
  cut.holds_no_operator_ = !operator_met;
}

// The parts of a list between commas, one after the other; empty ones are left out, blank ones not.
//   Parts parts(inside);
//   for (Piece part; parts.Next(part);) ...
class Parts {
 public:
  Parts() = default;
  // REQUIRES: list.CheckBrackets.
  explicit Parts(const Piece& list) : rest_(list) {}
  bool Next(Piece& part);

 private:
  Piece rest_;
};

}  // namespace Quarn
