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
