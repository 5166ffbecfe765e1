// TextTable finds entries by their texts. It owns none of them: it is an array of pointers, and one
// of their hashes, so that looking for a text touches little else.
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

  // Fetches what Find will look at. With many entries that takes as long as a hundred instructions,
  // which others can use.
  void Prefetch(std::uint32_t hash) const { __builtin_prefetch(&hashes_[GetFirst(hash)]); }
  // Null when there is none. The hash is that of the text, by whatever rule the entries have it.
  Entry* Find(std::string_view text, std::uint32_t hash) const {
    const std::uint32_t* hashes = hashes_.data();
    const std::uint32_t wanted = hash | kTaken;
    for (std::size_t at = GetFirst(hash); hashes[at] != kFree; at = GetNext(at)) {
      if (hashes[at] == wanted && entries_[at]->GetText() == text) return entries_[at];
    }
    return nullptr;
  }
  // Before one is added.
  void MakeRoom() {
    if ((size_ + 1) * 4 > hashes_.size() * 3) Grow();
  }
  // REQUIRES: there is room, and none with this text.
  void Add(Entry& entry, std::uint32_t hash) noexcept {
    Put(&entry, hash);
    ++size_;
  }
  // REQUIRES: it is there.
  void Remove(const Entry& entry, std::uint32_t hash) {
    std::size_t at = GetFirst(hash);
    while (entries_[at] != &entry) at = GetNext(at);
    Vacate(at);
    --size_;
  }
  // In no order that may be seen. Nothing may be added or removed meanwhile.
  template <class Visit>
  void ForEach(const Visit& visit) const {
    for (Entry* entry : entries_) {
      if (entry) visit(*entry);
    }
  }
  // Gives storage back if nothing is left.
  void ShrinkIfEmpty() {
    if (size_ > 0) return;
    hashes_ = Hashes(kFewest);
    entries_ = Entries(kFewest);
  }

 private:
  static constexpr std::size_t kFewest = 16;

  // An entry is in the first free slot at or after that of its hash.
  using Hashes = std::vector<std::uint32_t, PoolAllocator<std::uint32_t>>;
  using Entries = std::vector<Entry*, PoolAllocator<Entry*>>;
  static constexpr std::uint32_t kFree = 0;
  static constexpr std::uint32_t kTaken = 1U << 31;  // with each hash

  std::size_t GetFirst(std::uint32_t hash) const { return hash & (hashes_.size() - 1); }
  std::size_t GetNext(std::size_t slot) const { return (slot + 1) & (hashes_.size() - 1); }

  void Put(Entry* entry, std::uint32_t hash) {
    std::uint32_t* hashes = hashes_.data();
    std::size_t at = GetFirst(hash);
    while (hashes[at] != kFree) at = GetNext(at);
    hashes[at] = hash | kTaken;
    entries_.data()[at] = entry;
  }

  void Grow() {
    Hashes hashes(2 * hashes_.size());
    Entries entries(2 * hashes_.size());
    hashes_.swap(hashes);
    entries_.swap(entries);
    const std::uint32_t* hash = hashes.data();
    for (Entry* entry : entries) {
      if (entry) Put(entry, *hash);
      ++hash;
    }
  }

  // What follows moves up where it would not be found any more.
  void Vacate(std::size_t slot) {
    const std::size_t mask = hashes_.size() - 1;
    for (std::size_t at = GetNext(slot); hashes_[at] != kFree; at = GetNext(at)) {
      const std::size_t distance = (at - hashes_[at]) & mask;
      if (distance < ((at - slot) & mask)) continue;
      hashes_[slot] = hashes_[at];
      entries_[slot] = entries_[at];
      slot = at;
    }
    hashes_[slot] = kFree;
    entries_[slot] = nullptr;
  }

  TextHash hash_;
  Hashes hashes_ = Hashes(kFewest);     // a power of two, a quarter of them free
  Entries entries_ = Entries(kFewest);  // of the same slots
  std::size_t size_ = 0;
};

}  // namespace Quarn
