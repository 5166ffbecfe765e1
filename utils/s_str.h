// s_str_t<T> is a text of characters of type T over std::basic_string<T>. Two exist: s_str_t<char>,
// the text of the whole system (short: s_str), and s_str_t<unsigned int> with 32-bit characters;
// both are compiled once, in s_str.cpp.
//   s_str line = "a=1;b=2";
//   line.Cut(";");                         // "a=1" "b=2"
//   line.Extract(0, line.Find("?"));       // the whole text: a position not found is NaN
// Positions and lengths count characters from 0. A start past the end raises std::out_of_range, as
// std::basic_string does; an end or a count that is INF or NaN runs to the end of the text.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "utils/s_bool.h"
#include "utils/s_ctnr.h"
#include "utils/s_int.h"

namespace Quarn {

template <class T>
class s_str_t {
 public:
  // The standard types behind it.
  using String = std::basic_string<T>;
  using View = std::basic_string_view<T>;
  using const_iterator = typename String::const_iterator;

  s_str_t() = default;
  // REQUIRES: a null-terminated array.
  s_str_t(const char* text) { Append(text); }
  s_str_t(String text) : text_(std::move(text)) {}
  explicit s_str_t(View text) : text_(text) {}

  // The text; valid until it is changed.
  const String& Get() const { return text_; }
  View GetView() const { return text_; }
  // The text itself, with the room it has; what stays here is empty.
  String Take() { return std::exchange(text_, String()); }
  const_iterator begin() const { return text_.begin(); }
  const_iterator end() const { return text_.end(); }

  // In characters.
  s_uint GetSize() const { return static_cast<unsigned int>(text_.size()); }
  // Makes it empty.
  void Clear() { text_.clear(); }
  // Makes it another text, in the room that it has.
  void Assign(View text) { text_.assign(text); }

  // Adds at the end, and returns the whole. A char, here and below, is widened as in a literal.
  s_str_t& Append(T character) {
    text_ += character;
    return *this;
  }
  s_str_t& Append(std::same_as<char> auto character) { return Append(Widened(character)); }
  s_str_t& Append(View text) {
    text_ += text;
    return *this;
  }
  s_str_t& Append(const char* text) {
    if constexpr (std::is_same_v<T, char>) {
      text_ += text;
    } else {
      for (; *text; ++text) text_ += Widened(*text);
    }
    return *this;
  }
  s_str_t& operator+=(T character) { return Append(character); }
  s_str_t& operator+=(std::same_as<char> auto character) { return Append(character); }
  s_str_t& operator+=(const s_str_t& text) { return Append(text.GetView()); }
  friend s_str_t operator+(s_str_t a, const s_str_t& b) {
    a += b;
    return a;
  }
  friend s_str_t operator+(s_str_t a, T b) {
    a += b;
    return a;
  }
  friend s_str_t operator+(s_str_t a, std::same_as<char> auto b) {
    a += b;
    return a;
  }

  // Character by character.
  friend s_bool operator==(const s_str_t& a, const s_str_t& b) { return a.text_ == b.text_; }
  friend s_bool operator!=(const s_str_t& a, const s_str_t& b) { return a.text_ != b.text_; }
  // By character code, a shorter prefix first: the order of maps keyed by s_str_t.
  friend s_bool operator<(const s_str_t& a, const s_str_t& b) { return a.text_ < b.text_; }

  // A text without characters is empty; if blanks are empty, so is one of blanks and tabs alone.
  s_bool IsEmpty() const { return text_.empty(); }
  s_bool IsEmpty(s_bool blanks_are_empty) const;

  // The first occurrence at or after `from`; NaN when there is none.
  s_uint Find(const s_str_t& pattern, s_uint from = 0U) const;
  s_bool Contains(const s_str_t& pattern) const { return Find(pattern).IsValid(); }
  s_bool StartsWith(const s_str_t& prefix) const { return text_.starts_with(prefix.text_); }
  s_bool EndsWith(const s_str_t& suffix) const { return text_.ends_with(suffix.text_); }

  // At most `count` characters from `start` on.
  s_str_t ExtractCount(s_uint start, s_uint count) const;
  // The characters from `start` up to, not including, `end`.
  s_str_t Extract(s_uint start, s_uint end) const;

  // Removes the first n characters, at most all; an n that is not valid clears the text.
  void EraseFromStart(s_uint n);
  // Removes the last n characters; an n that is not valid clears the text.
  // Kept on purpose: an n above the length raises std::out_of_range instead of clearing.
  void EraseFromEnd(s_uint n);

  // Removes the character from the start, then from the end, while it stands there; returns how
  // many were removed.
  s_uint Trim(T character);
  s_uint Trim(std::same_as<char> auto character) { return Trim(Widened(character)); }

  // Replaces every occurrence, never looking at what it has just put in; returns how many.
  // REQUIRES: pattern is not empty.
  s_uint Replace(const s_str_t& pattern, const s_str_t& replacement);

  // Cuts the text at every delimiter. Empty pieces are dropped, except the last, which always
  // stays: "a,,b" gives "a" "b"; "a," gives "a" "".  REQUIRES: delimiter is not empty.
  s_ctnr<s_str_t> Cut(const s_str_t& delimiter) const;

  // The text n times; empty when n is 0 or not valid.
  s_str_t Repeat(s_uint n) const;

  // By the C library's toupper and tolower; characters they do not know stay.
  void ToUpper();
  void ToLower();
  // Changes the first character alone, if there is one.
  void CapitalStart(s_bool upper);

  // Does the text begin, after white space, with a number? The rest may be anything: "12abc" is
  // one.
  s_bool IsNumber() const;
  // Is the text one of false, true, 0, 1, no, yes?
  s_bool IsBoolean() const;

 private:
  static T Widened(char character) { return static_cast<T>(static_cast<unsigned char>(character)); }

  String text_;
};

extern template class s_str_t<char>;
extern template class s_str_t<unsigned int>;

}  // namespace Quarn
