#include "interpreter/symbol_table.h"

#include <algorithm>

namespace Quarn {
namespace {

Name* NewName(std::string_view text, std::uint32_t hash) {
  void* block = Pool::Allocate(sizeof(Name));
  try {
    Name* name = new (block) Name;
    name->text = s_str(text);
    name->hash = hash;
    return name;
  } catch (...) {
    Pool::Free(block, sizeof(Name));
    throw;
  }
}

void DeleteName(Name* name) {
  name->~Name();
  Pool::Free(name, sizeof(Name));
}

}  // namespace

SymbolTable::SymbolTable() : slots_(16), last_result_(NewName(kLastResult, 0)) {}

SymbolTable::~SymbolTable() {
  for (const Slot& slot : slots_) {
    if (slot.name) DeleteName(slot.name);
  }
  DeleteName(last_result_);
}

const s_refptr<Symbol>& SymbolTable::GetObject(Name& name) {
  if (name.IsNumber()) {
    name.object = NewNumber(s_str(GetNameOfNumber(name)), name.number);
    name.content = Name::Content::kObject;
  }
  return name.object;
}

// ---- Changes ----

void SymbolTable::SetContent(Name& name, Name::Content content) {
  size_ += (content != Name::Content::kNothing) - (name.HasValue() ? 1U : 0U);
  name.content = content;
  name.readers.Invalidate();
}

void SymbolTable::Set(std::string_view text, s_refptr<Symbol> value) {
  Name& name = FindOrAdd(text);
  name.object.Swap(value);
  SetContent(name, Name::Content::kObject);
}

void SymbolTable::SetNumber(std::string_view text, double number, bool is_named) {
  SetNumber(FindOrAdd(text), number, is_named);
}

void SymbolTable::SetNumber(Name& name, double number, bool is_named) {
  const s_refptr<Symbol> before = std::move(name.object);
  name.number = number;
  SetContent(name, is_named ? Name::Content::kNumber : Name::Content::kUnnamedNumber);
}

void SymbolTable::SetLastResult(const Operand& value, std::string_view name_of_number) {
  Name& name = *last_result_;
  const s_refptr<Symbol> before = std::move(name.object);
  if (value.IsNumber()) {
    name.number = value.GetNumber();
    name_of_last_result_.Assign(name_of_number);
    SetContent(name, Name::Content::kNumber);
  } else {
    name.object = value.GetValue();
    SetContent(name, Name::Content::kObject);
  }
}

void SymbolTable::Erase(std::string_view text) {
  Name* name = Find(text);
  if (!name) return;
  const s_refptr<Symbol> before = std::move(name->object);
  SetContent(*name, Name::Content::kNothing);
  RemoveIfUnused(*name);
}

// Removing a name moves others about, so those that go are found first.
void SymbolTable::Clear() {
  std::vector<Name*> names;
  for (const Slot& slot : slots_) {
    if (slot.name && slot.name->HasValue()) names.push_back(slot.name);
  }
  names.push_back(last_result_);
  for (Name* name : names) Erase(name->text.GetView());
  if (names_ == 0) slots_ = std::vector<Slot>(16);
}

Name* SymbolTable::Bind(std::string_view text) {
  if (text == kLastResult) return last_result_;
  Name& name = FindOrAdd(text);
  ++name.uses;
  return &name;
}

void SymbolTable::Release(Name& name) {
  if (&name == last_result_) return;
  --name.uses;
  RemoveIfUnused(name);
}

// ---- The table ----

Name& SymbolTable::FindOrAdd(std::string_view text) {
  if (text == kLastResult) return *last_result_;
  const std::uint32_t hash = Hash(text);
  const std::size_t slot = FindSlot(text, hash);
  if (slots_[slot].name) return *slots_[slot].name;
  if ((names_ + 1) * 4 > slots_.size() * 3) Grow();
  Name* name = NewName(text, hash);
  slots_[FindSlot(text, hash)] = {name, hash};
  ++names_;
  return *name;
}

void SymbolTable::Grow() {
  std::vector<Slot> slots(2 * slots_.size());
  slots_.swap(slots);
  for (const Slot& slot : slots) {
    if (!slot.name) continue;
    std::size_t at = slot.hash & (slots_.size() - 1);
    while (slots_[at].name) at = Next(at);
    slots_[at] = slot;
  }
}

void SymbolTable::RemoveIfUnused(Name& name) {
  if (name.HasValue() || name.uses > 0 || &name == last_result_) return;
  // Who read it by way of a program that is gone reads it anew.
  name.readers.Invalidate();
  Vacate(FindSlot(name.text.GetView(), name.hash));
  --names_;
  DeleteName(&name);
}

// What follows moves up where it would not be found any more.
void SymbolTable::Vacate(std::size_t slot) {
  for (std::size_t at = Next(slot); slots_[at].name; at = Next(at)) {
    const std::size_t mask = slots_.size() - 1;
    const std::size_t distance = (at - slots_[at].hash) & mask;
    if (distance < ((at - slot) & mask)) continue;
    slots_[slot] = slots_[at];
    slot = at;
  }
  slots_[slot] = {};
}

s_ctnr<s_str> SymbolTable::GetNames() const {
  std::vector<std::string_view> names;
  for (const Slot& slot : slots_) {
    if (slot.name && slot.name->HasValue()) names.push_back(slot.name->text.GetView());
  }
  if (last_result_->HasValue()) names.push_back(kLastResult);
  std::sort(names.begin(), names.end());
  s_ctnr<s_str> sorted;
  for (std::string_view name : names) sorted.PushBack(s_str(name));
  return sorted;
}

}  // namespace Quarn
