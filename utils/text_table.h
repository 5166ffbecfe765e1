// TextTable finds entries by their texts. It owns none of them: it is an array of pointers, with
// the hash beside each, so that looking for a text seldom touches an entry of another one.
//   TextTable<Name> names;  // Name has GetText()
//   const std::uint32_t hash = names.Hash("x");
//   names.MakeRoom();
//   if (!names.Find("x", hash)) names.Add(name, hash);
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "utils/pool_allocator.h"
#include "utils/text_hash.h"

namespace Quarn {

template <class Entry>
class TextTable {
 public:
  std::uint32_t Hash(std::string_view text) const {
    return static_cast<std::uint32_t>(hash_(text));
  }
  std::size_t GetSize() const { return size_; }

  // Null when there is none. The hash is that of the text, by whatever rule the entries have it.
  Entry* Find(std::string_view text, std::uint32_t hash) const {
    std::size_t at = hash & (slots_.size() - 1);
    while (slots_[at].entry && !(slots_[at].hash == hash && slots_[at].entry->GetText() == text)) {
      at = Next(at);
    }
    return slots_[at].entry;
  }
  // Before one is added.
  void MakeRoom() {
    if ((size_ + 1) * 4 > slots_.size() * 3) Grow();
  }
  // REQUIRES: there is room, and none with this text.
  void Add(Entry& entry, std::uint32_t hash) noexcept {
    Put({&entry, hash});
    ++size_;
  }
  // REQUIRES: it is there.
  void Remove(const Entry& entry, std::uint32_t hash) {
    std::size_t at = hash & (slots_.size() - 1);
    while (slots_[at].entry != &entry) at = Next(at);
    Vacate(at);
    --size_;
  }
  // In no order that may be seen. Nothing may be added or removed meanwhile.
  template <class Visit>
  void ForEach(const Visit& visit) const {
    for (const Slot& slot : slots_) {
      if (slot.entry) visit(*slot.entry);
    }
  }
  // Gives storage back if nothing is left.
  void ShrinkIfEmpty() {
    if (size_ == 0) slots_ = Slots(kFewest);
  }

 private:
  static constexpr std::size_t kFewest = 16;

  // An entry is in the first free slot at or after that of its hash.
  struct Slot {
    Entry* entry = nullptr;
    std::uint32_t hash = 0;
  };
  using Slots = std::vector<Slot, PoolAllocator<Slot>>;

  std::size_t Next(std::size_t slot) const { return (slot + 1) & (slots_.size() - 1); }

  void Put(const Slot& slot) {
    std::size_t at = slot.hash & (slots_.size() - 1);
    while (slots_[at].entry) at = Next(at);
    slots_[at] = slot;
  }

  void Grow() {
    Slots slots(2 * slots_.size());
    slots_.swap(slots);
    for (const Slot& slot : slots) {
      if (slot.entry) Put(slot);
    }
  }

  // What follows moves up where it would not be found any more.
  void Vacate(std::size_t slot) {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = Next(slot); slots_[at].entry; at = Next(at)) {
      const std::size_t distance = (at - slots_[at].hash) & mask;
      if (distance < ((at - slot) & mask)) continue;
      slots_[slot] = slots_[at];
      slot = at;
    }
    slots_[slot] = {};
  }

  TextHash hash_;
  Slots slots_ = Slots(kFewest);  // a power of two, a quarter of them free
  std::size_t size_ = 0;
};

}  // namespace Quarn
