// SymbolTable holds the values that the user named, and the last result under "_". Looked up far
// more often than walked, it is a hash table; GetNames sorts when asked. The last result changes
// with every command and stands apart.
#pragma once

#include <string_view>
#include <unordered_map>

#include "interpreter/symbol.h"
#include "utils/s_ctnr.h"

namespace Quarn {

class SymbolTable {
 public:
  // The name of the last result.
  static constexpr std::string_view kLastResult = "_";

  // The value of a name; null when there is none. Valid until the name is erased or all are.
  const s_refptr<Symbol>* Find(std::string_view name) const {
    if (name == kLastResult) return last_result_ ? &last_result_ : nullptr;
    const auto found = symbols_.find(name);
    return found == symbols_.end() ? nullptr : &found->second;
  }
  bool Contains(std::string_view name) const { return Find(name) != nullptr; }

  // Gives the name a value, in place of any that it had. REQUIRES: the value is not null.
  void Set(const s_str& name, s_refptr<Symbol> value) {
    if (name.GetView() == kLastResult) return SetLastResult(std::move(value));
    symbols_.insert_or_assign(name, std::move(value));
  }
  void SetLastResult(s_refptr<Symbol> value) { last_result_ = std::move(value); }

  // Does nothing when the name has no value.
  void Erase(const s_str& name) {
    if (name.GetView() == kLastResult) return SetLastResult({});
    symbols_.erase(name);
  }
  void Clear() {
    symbols_.clear();
    SetLastResult({});
  }

  // How many names have a value, the last result included.
  s_uint GetSize() const {
    return static_cast<unsigned int>(symbols_.size() + (last_result_ ? 1 : 0));
  }
  // All names, in ascending order.
  s_ctnr<s_str> GetNames() const;

 private:
  struct Hash {
    using is_transparent = void;
    // Names are short: byte by byte is quicker than the general hash.
    std::size_t operator()(std::string_view text) const {
      std::size_t hash = 0;
      for (char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x9E3779B97F4A7C15U;
      }
      return hash ^ (hash >> 32);
    }
    std::size_t operator()(const s_str& text) const { return (*this)(text.GetView()); }
  };
  struct Equal {
    using is_transparent = void;
    bool operator()(const s_str& a, const s_str& b) const { return a.GetView() == b.GetView(); }
    bool operator()(const s_str& a, std::string_view b) const { return a.GetView() == b; }
    bool operator()(std::string_view a, const s_str& b) const { return a == b.GetView(); }
  };

  std::unordered_map<s_str, s_refptr<Symbol>, Hash, Equal> symbols_;
  s_refptr<Symbol> last_result_;
};

}  // namespace Quarn
