// SymbolTable holds the values that the user named, and the last result under "_". Looked up far
// more often than walked, it is a hash table; Names sorts when asked.
#pragma once

#include <string_view>
#include <unordered_map>

#include "interpreter/symbol.h"
#include "utils/s_ctnr.h"

namespace Quarn {

class SymbolTable {
 public:
  // The value of a name; null when there is none. Valid until the name is erased.
  const s_refptr<Symbol>* Find(std::string_view name) const {
    const auto found = symbols_.find(name);
    return found == symbols_.end() ? nullptr : &found->second;
  }
  bool Contains(std::string_view name) const { return Find(name) != nullptr; }

  // Gives the name a value, in place of any that it had.
  void Set(const s_str& name, s_refptr<Symbol> value) {
    symbols_.insert_or_assign(name, std::move(value));
  }
  // Does nothing when the name has no value.
  void Erase(const s_str& name) { symbols_.erase(name); }
  void Clear() { symbols_.clear(); }

  s_uint GetSize() const { return static_cast<unsigned int>(symbols_.size()); }
  // All names, in ascending order.
  s_ctnr<s_str> GetNames() const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
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
};

}  // namespace Quarn
