// Hash and equality for heterogeneous look-up of texts. The hash is keyed with random numbers of
// the process, so colliding names cannot be crafted. Output must not depend on it.
//   std::unordered_map<s_str, int, TextHash, TextEqual> table;
//   table.find(std::string_view("x"));
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "utils/s_str.h"
#include "utils/wide.h"

namespace Quarn {

// Multiply and fold (xor the halves of the 128-bit product) on words masked by the key: once for
// each 16 bytes, and once more to break up the runs that similar names would form.
class TextHash {
 public:
  using Key = std::array<std::uint64_t, 4>;

  TextHash() : key_(GetProcessKey()) {}
  explicit TextHash(const Key& key) : key_(key) {}

  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    if (text.size() < 4) return static_cast<std::size_t>(HashShort(text));
    const std::uint64_t hash = HashWords(text.data(), text.size());
    return static_cast<std::size_t>(Fold(hash ^ key_[2], text.size() ^ key_[3]));
  }
  std::size_t operator()(const s_str& text) const { return (*this)(text.GetView()); }

 private:
  static const Key& GetProcessKey();

  static std::uint64_t Fold(std::uint64_t a, std::uint64_t b) {
    const Wide product = Multiply(a, b);
    return product.low ^ product.high;
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

  // There are too few texts this short to need the last step.
  std::uint64_t HashShort(std::string_view text) const {
    std::uint64_t word = text.size();
    for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
    return Fold(word ^ key_[0], word ^ key_[1]);
  }

  Key key_;
};

// Equality to go with it.
struct TextEqual {
  using is_transparent = void;
  static std::string_view View(const s_str& text) { return text.GetView(); }
  static std::string_view View(std::string_view text) { return text; }
  template <class A, class B>
  bool operator()(const A& a, const B& b) const {
    return View(a) == View(b);
  }
};

}  // namespace Quarn
