#include "interpreter/symbol_table.h"

#include <algorithm>

namespace Quarn {

void SymbolTable::Set(const s_str& name, s_refptr<Symbol> value) {
  if (name.GetView() == kLastResult) return SetLastResult(std::move(value));
  const std::uint32_t hash = Hash(name.GetView());
  if (!slots_.empty()) {
    const Slot& slot = slots_[FindSlot(name.GetView(), hash)];
    if (!slot.IsFree()) {
      entries_[slot.place].value = std::move(value);
      return;
    }
  }
  Add(name, hash, std::move(value));
}

// Memory that runs out leaves the table as it was.
void SymbolTable::Add(const s_str& name, std::uint32_t hash, s_refptr<Symbol> value) {
  if ((entries_.size() + 1) * 4 > slots_.size() * 3) Grow();
  const auto place = static_cast<std::uint32_t>(entries_.size());
  entries_.push_back({name, std::move(value)});
  slots_[FindSlot(name.GetView(), hash)] = {hash, place};
}

void SymbolTable::Grow() {
  constexpr std::size_t kAtFirst = 16;
  std::vector<Slot> slots(slots_.empty() ? kAtFirst : 2 * slots_.size());
  slots_.swap(slots);
  for (const Slot& slot : slots) {
    if (slot.IsFree()) continue;
    std::size_t at = slot.hash & (slots_.size() - 1);
    while (!slots_[at].IsFree()) at = Next(at);
    slots_[at] = slot;
  }
}

// The last entry takes the place of the one that goes.
void SymbolTable::Erase(const s_str& name) {
  if (name.GetView() == kLastResult) return SetLastResult({});
  if (entries_.empty()) return;
  const std::size_t slot = FindSlot(name.GetView(), Hash(name.GetView()));
  if (slots_[slot].IsFree()) return;
  const std::uint32_t place = slots_[slot].place;
  const std::string_view last = entries_.back().name.GetView();
  slots_[FindSlot(last, Hash(last))].place = place;
  Vacate(slot);
  std::swap(entries_[place], entries_.back());
  entries_.pop_back();
}

// What stands behind moves up where it would not be found any more.
void SymbolTable::Vacate(std::size_t slot) {
  for (std::size_t at = Next(slot); !slots_[at].IsFree(); at = Next(at)) {
    const std::size_t mask = slots_.size() - 1;
    const std::size_t distance = (at - slots_[at].hash) & mask;
    if (distance < ((at - slot) & mask)) continue;
    slots_[slot] = slots_[at];
    slot = at;
  }
  slots_[slot] = {};
}

void SymbolTable::Clear() {
  entries_.clear();
  slots_.clear();
  SetLastResult({});
}

s_ctnr<s_str> SymbolTable::GetNames() const {
  std::vector<std::string_view> names;
  for (const Entry& entry : entries_) names.push_back(entry.name.GetView());
  if (last_result_) names.push_back(kLastResult);
  std::sort(names.begin(), names.end());
  s_ctnr<s_str> sorted;
  for (std::string_view name : names) sorted.PushBack(s_str(name));
  return sorted;
}

}  // namespace Quarn
