// BracketIndex finds the partner of every bracket of a text in one pass.
//
// A bracket of one kind hides the other kinds: inside "(" only "(" and ")" count until the
// parenthesis is closed. So which character closes an opening bracket depends on the characters of
// its own kind that follow, and on nothing before it: it can be found for every opening bracket at
// once, one stack per kind, and holds for every stretch of the text that reaches to the closing
// one.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "interpreter/character_class.h"

namespace Quarn {

// A pair of brackets, by their positions in the text.
struct Bracket {
  // The position of a bracket that does not exist.
  static constexpr std::uint32_t kOpenEnd = 0xFFFFFFFF;

  std::uint32_t open;
  std::uint32_t close;  // kOpenEnd: never closed
  std::uint32_t next;   // the first opening bracket after the closing one, by its place
};

class BracketIndex {
 public:
  // Makes the index of a text. Indexes may share storage when they are destroyed in reverse order
  // of construction.  REQUIRES: fewer than 2^32 - 1 characters.
  BracketIndex(std::string_view text, std::vector<Bracket>& storage)
      : storage_(storage), base_(storage.size()) {
    const std::size_t first = FindAny(text);
    plain_ = first == text.size();
    if (!plain_) Match(text, first);
  }
  ~BracketIndex() {
    if (size_ > 0) storage_.resize(base_);
  }
  BracketIndex(const BracketIndex&) = delete;
  BracketIndex& operator=(const BracketIndex&) = delete;

  // Does the text hold no bracket at all?
  bool IsPlain() const { return plain_; }
  // Does each bracket close the one that was opened last, whatever its kind? Then so it is between
  // any two partners.
  bool IsWellNested() const { return well_nested_; }
  const Bracket& operator[](std::uint32_t place) const { return storage_[base_ + place]; }
  std::uint32_t GetSize() const { return size_; }
  // The place of the first bracket that opens at or after a position.
  std::uint32_t FindFirst(std::uint32_t position) const;

 private:
  static std::size_t FindAny(std::string_view text) {
    constexpr std::size_t kLong = 256;
    if (text.size() >= kLong && IsSurelyPlain(text)) return text.size();
    std::size_t at = 0;
    while (at < text.size() && Classify(text[at]) < CharacterClass::kOpen) ++at;
    return at;
  }
  static bool IsSurelyPlain(std::string_view text);
  void Match(std::string_view text, std::size_t begin);

  std::vector<Bracket>& storage_;
  const std::size_t base_;
  std::uint32_t size_ = 0;
  bool plain_ = true;
  bool well_nested_ = true;
};

}  // namespace Quarn
