// Hashing and comparing of texts for tables that are asked with a text of any kind.
//   std::unordered_map<s_str, int, TextHash, TextEqual> table;
//   table.find(std::string_view("x"));
#pragma once

#include <cstddef>
#include <string_view>

#include "utils/s_str.h"

namespace Quarn {

// Made for short texts, such as names, which it goes through byte by byte.
struct TextHash {
  // The hash of a text of any kind.
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    std::size_t hash = 0;
    for (char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x9E3779B97F4A7C15U;
    return hash ^ (hash >> 32);
  }
  std::size_t operator()(const s_str& text) const { return (*this)(text.GetView()); }
};

// Character by character.
struct TextEqual {
  // Any kind of text, as a view.
  using is_transparent = void;
  static std::string_view View(const s_str& text) { return text.GetView(); }
  static std::string_view View(std::string_view text) { return text; }
  // Are the two the same text?
  template <class A, class B>
  bool operator()(const A& a, const B& b) const {
    return View(a) == View(b);
  }
};

}  // namespace Quarn
