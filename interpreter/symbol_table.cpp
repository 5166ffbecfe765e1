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

SymbolTable::SymbolTable() : last_result_(NewName(kLastResult, 0)) {}

SymbolTable::~SymbolTable() {
  names_.ForEach([](Name& name) { DeleteName(&name); });
  DeleteName(last_result_);
}

const s_refptr<Symbol>& SymbolTable::GetObject(Name& name) const {
  if (name.IsNumber()) {
    name.object = NewNumber(s_str(GetNameOfValue(name)), name.number);
    name.content = Name::Content::kObject;
  } else if (name.IsReference()) {
    name.object = NewReference(s_str(GetNameOfValue(name)), CellPtr(name.cell));
    CellPtr::Attach(name.cell);
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

s_refptr<Symbol> SymbolTable::Replace(std::string_view text, s_refptr<Symbol> value) {
  Name& name = FindOrAdd(text);
  s_refptr<Symbol> before = GetObject(name);
  name.object = std::move(value);
  SetContent(name, Name::Content::kObject);
  return before;
}

s_refptr<Symbol> SymbolTable::ReplaceByReference(std::string_view text, CellPtr cell) {
  Name& name = FindOrAdd(text);
  s_refptr<Symbol> before = GetObject(name);
  SetReference(name, std::move(cell));
  return before;
}

void SymbolTable::SetReference(Name& name, CellPtr cell) {
  const Former before(name);
  name.cell = cell.Detach();
  SetContent(name, Name::Content::kReference);
}

void SymbolTable::SetNumber(std::string_view text, double number, bool is_named) {
  SetNumber(FindOrAdd(text), number, is_named);
}

void SymbolTable::SetNumber(Name& name, double number, bool is_named) {
  const Former before(name);
  name.number = number;
  SetContent(name, is_named ? Name::Content::kNumber : Name::Content::kUnnamedNumber);
}

void SymbolTable::SetLastResult(const Operand& value, std::string_view name_of_number) {
  Name& name = *last_result_;
  if (value.IsNumber()) name_of_last_result_.Assign(name_of_number);
  const Former before(name);
  if (value.IsNumber()) {
    name.number = value.GetNumber();
    SetContent(name, Name::Content::kNumber);
  } else {
    name.object = value.GetValue();
    SetContent(name, Name::Content::kObject);
  }
}

void SymbolTable::SetLastReference(CellPtr cell, std::string_view name) {
  name_of_last_result_.Assign(name);
  SetReference(*last_result_, std::move(cell));
}

void SymbolTable::Erase(std::string_view text) {
  Name* name = Find(text);
  if (!name) return;
  const Former before(*name);
  SetContent(*name, Name::Content::kNothing);
  RemoveIfUnused(*name);
}

// Removing a name moves others about, so those that go are found first.
void SymbolTable::Clear() {
  std::vector<Name*> names;
  names_.ForEach([&](Name& name) {
    if (name.HasValue()) names.push_back(&name);
  });
  names.push_back(last_result_);
  for (Name* name : names) Erase(name->text.GetView());
  names_.ShrinkIfEmpty();
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
  const std::uint32_t hash = names_.Hash(text);
  if (Name* known = names_.Find(text, hash)) return *known;
  names_.MakeRoom();
  Name* name = NewName(text, hash);
  names_.Add(*name, hash);
  return *name;
}

void SymbolTable::RemoveIfUnused(Name& name) {
  if (name.HasValue() || name.uses > 0 || &name == last_result_) return;
  // Who read it by way of a program that is gone reads it anew.
  name.readers.Invalidate();
  names_.Remove(name, name.hash);
  DeleteName(&name);
}

s_ctnr<s_str> SymbolTable::GetNames() const {
  std::vector<std::string_view> names;
  names_.ForEach([&](const Name& name) {
    if (name.HasValue()) names.push_back(name.GetText());
  });
  if (last_result_->HasValue()) names.push_back(kLastResult);
  std::sort(names.begin(), names.end());
  s_ctnr<s_str> sorted;
  for (std::string_view name : names) sorted.PushBack(s_str(name));
  return sorted;
}

}  // namespace Quarn
