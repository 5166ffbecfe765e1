// Hashing and comparing of texts for tables that are asked with a text of any kind. The hash is
// keyed with random numbers that each process draws for itself, so nobody can make up names that
// fall together. Nothing that is printed may depend on it.
//   std::unordered_map<s_str, int, TextHash, TextEqual> table;
//   table.find(std::string_view("x"));
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "utils/s_str.h"

namespace Quarn {

// Multiplies words that the key masks, and folds the product: one product for each 16 bytes, and a
// last one that scatters what similar texts leave close together.
class TextHash {
 public:
  using Key = std::array<std::uint64_t, 4>;

  // With the key of the process, or with one of the caller's.
  TextHash() : key_(GetProcessKey()) {}
  explicit TextHash(const Key& key) : key_(key) {}

  // The hash of a text of any kind.
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    if (text.size() < 4) return HashShort(text);
    return Fold(HashWords(text.data(), text.size()) ^ key_[2], text.size() ^ key_[3]);
  }
  std::size_t operator()(const s_str& text) const { return (*this)(text.GetView()); }

 private:
  __extension__ using Product = unsigned __int128;

  static const Key& GetProcessKey();

  static std::uint64_t Fold(std::uint64_t a, std::uint64_t b) {
    const Product product = Product{a} * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
  }

  template <class Word>
  static std::uint64_t Read(const char* at) {
    Word word;
    std::memcpy(&word, at, sizeof word);
    return word;
  }

  std::uint64_t HashWords(const char* at, std::size_t size) const {
    if (size < 8) return FoldEnds<std::uint32_t>(at, size, key_[0]);
    if (size <= 16) return FoldEnds<std::uint64_t>(at, size, key_[0]);
    const char* last = at + size - 16;
    std::uint64_t state = key_[0];
    for (; at < last; at += 16) state = FoldEnds<std::uint64_t>(at, 16, state);
    return FoldEnds<std::uint64_t>(last, 16, state);
  }

  // The first word and the last, which may overlap.
  template <class Word>
  std::uint64_t FoldEnds(const char* at, std::size_t size, std::uint64_t state) const {
    return Fold(Read<Word>(at) ^ state, Read<Word>(at + size - sizeof(Word)) ^ key_[1]);
  }

  // There are too few texts of less than 4 bytes to be worth the last product.
  std::uint64_t HashShort(std::string_view text) const {
    std::uint64_t word = text.size();
    for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
    return Fold(word ^ key_[0], word ^ key_[1]);
  }

  Key key_;
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
