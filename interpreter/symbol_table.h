// SymbolTable holds the values that the user named, and the last result under "_". Looked up far
// more often than walked, it is a hash table; GetNames sorts when asked. Names and values stand in
// the order in which they came, and a small index leads to them: it is all that a look-up searches
// and all that growth moves. The last result changes with every command and stands apart.
#pragma once

#include <cstdint>
#include <deque>
#include <string_view>
#include <vector>

#include "interpreter/symbol.h"
#include "utils/s_ctnr.h"
#include "utils/text_hash.h"

namespace Quarn {

class SymbolTable {
 public:
  // The name of the last result.
  static constexpr std::string_view kLastResult = "_";

  // The value of a name; null when there is none. Valid until a name is erased or all are.
  const s_refptr<Symbol>* Find(std::string_view name) const {
    if (name == kLastResult) return last_result_ ? &last_result_ : nullptr;
    if (entries_.empty()) return nullptr;
    const Slot& slot = slots_[FindSlot(name, Hash(name))];
    return slot.IsFree() ? nullptr : &entries_[slot.place].value;
  }
  bool Contains(std::string_view name) const { return Find(name) != nullptr; }

  // Gives the name a value, in place of any that it had. REQUIRES: the value is not null.
  void Set(const s_str& name, s_refptr<Symbol> value);
  void SetLastResult(s_refptr<Symbol> value) { last_result_ = std::move(value); }

  // Does nothing when the name has no value.
  void Erase(const s_str& name);
  void Clear();

  // How many names have a value, the last result included.
  s_uint GetSize() const {
    return static_cast<unsigned int>(entries_.size() + (last_result_ ? 1 : 0));
  }
  // All names, in ascending order.
  s_ctnr<s_str> GetNames() const;

 private:
  struct Entry {
    s_str name;
    s_refptr<Symbol> value;
  };

  // A place in the index: an entry stands in the first free one at or behind that of its hash.
  struct Slot {
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;

    bool IsFree() const { return place == kFree; }

    std::uint32_t hash = 0;
    std::uint32_t place = kFree;  // among the entries
  };

  std::uint32_t Hash(std::string_view name) const {
    return static_cast<std::uint32_t>(hash_(name));
  }
  std::size_t Next(std::size_t slot) const { return (slot + 1) & (slots_.size() - 1); }
  // The slot of the name, or the free one where it would stand. REQUIRES: there is a free one.
  std::size_t FindSlot(std::string_view name, std::uint32_t hash) const {
    std::size_t at = hash & (slots_.size() - 1);
    while (!slots_[at].IsFree() && !Holds(slots_[at], name, hash)) at = Next(at);
    return at;
  }
  bool Holds(const Slot& slot, std::string_view name, std::uint32_t hash) const {
    return slot.hash == hash && entries_[slot.place].name.GetView() == name;
  }
  void Add(const s_str& name, std::uint32_t hash, s_refptr<Symbol> value);
  void Grow();
  void Vacate(std::size_t slot);

  TextHash hash_;
  std::deque<Entry> entries_;
  std::vector<Slot> slots_;  // a power of two, a quarter of them free at least
  s_refptr<Symbol> last_result_;
};

}  // namespace Quarn
