// Every short text of a few characters, and a slow second opinion on how brackets cut it.
#pragma once

#include <string>
#include <string_view>

#include "tests/support/sanitizers.h"

namespace Quarn {

// Calls `visit` with every text of up to `longest` of the characters.
template <class Visit>
void ForEachText(std::string_view characters, std::size_t longest, Visit visit,
                 const std::string& begin = "") {
  visit(begin);
  if (begin.size() == longest) return;
  for (char c : characters) ForEachText(characters, longest, visit, begin + c);
}

inline constexpr std::string_view kBracketWorld = "()<>[]+,a";
inline constexpr std::size_t kLongestInWorld = kSanitized ? 4 : 6;

// Reads every prefix of the text again from its start, and so keeps nothing in mind but the one
// kind of bracket that is open and how often.
class SlowBrackets {
 public:
  explicit SlowBrackets(std::string_view text) : text_(text) {}

  // "|a|+|b" cut at a character that is kept; "|a|b" at one that is dropped; the error otherwise.
  std::string Cut(char separator, bool keep) const {
    std::string cut, piece;
    const auto finish = [&] {
      if (!piece.empty()) cut += "|" + piece;
      piece.clear();
    };
    for (std::size_t i = 0; i < text_.size(); ++i) {
      const bool is_outside = ReadTo(i) == ' ';
      if (is_outside && IsOneOf(text_[i], ")>]")) {
        return std::string("\tError : Too many closing '") + text_[i] + "'";
      }
      if (!is_outside || text_[i] != separator) {
        piece += text_[i];
        continue;
      }
      finish();
      if (keep) cut += std::string("|") + separator;
    }
    const char open = ReadTo(text_.size());
    if (open != ' ') return std::string("\tError : Unterminated '") + open + "'";
    finish();
    return cut;
  }

 private:
  static bool IsOneOf(char c, std::string_view characters) {
    return characters.find(c) != std::string_view::npos;
  }
  static char ClosingOf(char open) { return open == '(' ? ')' : open == '<' ? '>' : ']'; }

  // The bracket that is open before a position; a blank when there is none.
  char ReadTo(std::size_t position) const {
    char open = ' ';
    int count = 0;
    for (char c : text_.substr(0, position)) {
      if (open == ' ') {
        if (!IsOneOf(c, "(<[")) continue;
        open = c;
        count = 1;
      } else {
        count += (c == open) - (c == ClosingOf(open));
        if (count == 0) open = ' ';
      }
    }
    return open;
  }

  std::string_view text_;
};

// "|a|+|b" without its marks: what was cut.
inline std::string JoinPieces(std::string cut) {
  std::erase(cut, '|');
  return cut;
}

}  // namespace Quarn
