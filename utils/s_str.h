// s_str_t<T> is a text over std::basic_string<T>. Two are instantiated, in s_str.cpp:
// s_str_t<char>, the text of the whole system (s_str), and s_str_t<unsigned int> with 32-bit
// characters (s_ustr).
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

#include "api.h"
#include "s_bool.h"
#include "s_ctnr.h"
#include "s_int.h"

namespace Quarn {

template <class T>
class s_str_t {
 public:
  using String = std::basic_string<T>;
  using View = std::basic_string_view<T>;
  using const_iterator = typename String::const_iterator;

  s_str_t() = default;
  // REQUIRES: a null-terminated array.
  s_str_t(const char* text) { Append(text); }
  s_str_t(String text) : text_(std::move(text)) {}
  explicit s_str_t(View text) : text_(text) {}

  const String& Get() const { return text_; }
  View GetView() const { return text_; }
  // Moves the text out, with its capacity.
  String Take() { return std::exchange(text_, String()); }
  const_iterator begin() const { return text_.begin(); }
  const_iterator end() const { return text_.end(); }

  s_uint GetSize() const { return static_cast<unsigned int>(text_.size()); }
  void Clear() { text_.clear(); }
  // Makes it another text, in the room that it has.
  void Assign(View text) { text_.assign(text); }

  // Here and below, a char is widened as in a literal.
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
  // Appends what is written into room for so many characters, and returns its end.
  //   text.AppendInPlace(2, [](char* at) { *at = 'x'; return at + 1; });
  template <class Write>
  s_str_t& AppendInPlace(std::size_t room, const Write& write) {
    const std::size_t size = text_.size();
    text_.resize(size + room);
    const T* end = write(text_.data() + size);
    text_.resize(static_cast<std::size_t>(end - text_.data()));
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

  friend s_bool operator==(const s_str_t& a, const s_str_t& b) { return a.text_ == b.text_; }
  friend s_bool operator!=(const s_str_t& a, const s_str_t& b) { return a.text_ != b.text_; }
  // Lexicographic by unsigned character code: the order of maps keyed by s_str_t.
  friend s_bool operator<(const s_str_t& a, const s_str_t& b) { return a.text_ < b.text_; }

  s_bool IsEmpty() const { return text_.empty(); }
  // If blanks are empty, so is a text of blanks and tabs.
  s_bool IsEmpty(s_bool blanks_are_empty) const;

  // The first occurrence at or after `from`; NaN when there is none.
  s_uint Find(const s_str_t& pattern, s_uint from = 0U) const;
  s_bool Contains(const s_str_t& pattern) const { return Find(pattern).IsValid(); }
  s_bool StartsWith(const s_str_t& prefix) const { return text_.starts_with(prefix.text_); }
  s_bool EndsWith(const s_str_t& suffix) const { return text_.ends_with(suffix.text_); }

  s_str_t ExtractCount(s_uint start, s_uint count) const;  // at most `count` characters
  // Up to, not including, `end`.
  s_str_t Extract(s_uint start, s_uint end) const;

  // Removes the first n characters, at most all; an n that is not valid clears the text.
  void EraseFromStart(s_uint n);
  // Removes the last n characters; an n that is not valid clears the text.
  // Kept on purpose: an n above the length raises std::out_of_range instead of clearing.
  void EraseFromEnd(s_uint n);

  // Removes the character from both ends; returns how many were removed.
  s_uint Trim(T character);
  s_uint Trim(std::same_as<char> auto character) { return Trim(Widened(character)); }

  // Replaces every occurrence, without searching the replacements; returns how many.
  // REQUIRES: pattern is not empty.
  s_uint Replace(const s_str_t& pattern, const s_str_t& replacement);

  // Splits at every delimiter. Empty pieces are dropped except the last: "a,,b" gives "a" "b";
  // "a," gives "a" "".  REQUIRES: delimiter is not empty.
  s_ctnr<s_str_t> Cut(const s_str_t& delimiter) const;

  // Empty when n is not valid.
  s_str_t Repeat(s_uint n) const;

  // By the C library's toupper and tolower; characters above 0xFF stay.
  void ToUpper();
  void ToLower();
  void CapitalStart(s_bool upper);  // changes the first character alone

  // Does the text begin, after white space, with a number? "12abc" does.
  s_bool IsNumber() const;
  // Is the text one of false, true, 0, 1, no, yes?
  s_bool IsBoolean() const;

 private:
  static T Widened(char character) { return static_cast<T>(static_cast<unsigned char>(character)); }

  String text_;
};

extern template class MIRLOW_API s_str_t<char>;
extern template class MIRLOW_API s_str_t<unsigned int>;

}  // namespace Quarn
