// SymbolTable holds the values that the user named, and the last result under "_". Looked up far
// more often than walked, it is a hash table; GetNames sorts when asked. A number is kept without
// an object until somebody asks for one, and so is a reference that was typed. The cells that read
// a name are told of its changes, also while it has no value: a Name exists as long as it has a
// value or a program uses it.
#pragma once

#include <cstdint>
#include <string_view>

#include "interpreter/cell.h"
#include "utils/s_ctnr.h"
#include "utils/text_table.h"

namespace Quarn {

// A name and its value. It stays at its place while it exists.
struct Name {
  enum class Content : std::uint8_t {
    kNothing,
    kNumber,         // which bears the name, as an object would
    kUnnamedNumber,  // the result of a function keeps the name it has, which is none
    kReference,      // which bears the name too
    kObject
  };

  Name() = default;
  ~Name() {
    if (IsReference()) CellPtr::Attach(cell);
  }
  Name(const Name&) = delete;
  Name& operator=(const Name&) = delete;

  std::string_view GetText() const { return text.GetView(); }
  bool HasValue() const { return content != Content::kNothing; }
  bool IsNumber() const {
    return content == Content::kNumber || content == Content::kUnnamedNumber;
  }
  bool IsReference() const { return content == Content::kReference; }

  s_str text;
  union {
    double number = 0;  // kNumber, kUnnamedNumber
    Cell* cell;         // kReference: one share of it; null for a null reference
  };
  s_refptr<Symbol> object;  // kObject
  Readers readers;
  std::uint32_t hash = 0;
  std::uint32_t uses = 0;  // by programs
  Content content = Content::kNothing;
};

class SymbolTable {
 public:
  // The name of the last result.
  static constexpr std::string_view kLastResult = "_";

  SymbolTable();
  ~SymbolTable();
  SymbolTable(const SymbolTable&) = delete;
  SymbolTable& operator=(const SymbolTable&) = delete;

  // A name that has a value; null when it has none.
  Name* Find(std::string_view name) {
    if (name == kLastResult) return last_result_->HasValue() ? last_result_ : nullptr;
    Name* found = names_.Find(name, names_.Hash(name));
    return found && found->HasValue() ? found : nullptr;
  }
  // Before other work, when the name is to be looked up after that.
  void Prefetch(std::string_view name) const { names_.Prefetch(names_.Hash(name)); }
  bool Contains(std::string_view name) { return Find(name) != nullptr; }

  // The value as an object, the same one each time. REQUIRES: there is one.
  const s_refptr<Symbol>& GetObject(Name& name) const;
  // The name that the value bears. REQUIRES: it is no object.
  std::string_view GetNameOfValue(const Name& name) const {
    if (name.content == Name::Content::kUnnamedNumber) return {};
    return (&name == last_result_ ? name_of_last_result_ : name.text).GetView();
  }

  // Gives the name a value, in place of any that it had. REQUIRES: the value is not null.
  void Set(std::string_view text, s_refptr<Symbol> value) { Replace(text, std::move(value)); }
  // The same; these return what it had, or null.
  s_refptr<Symbol> Replace(std::string_view text, s_refptr<Symbol> value);
  s_refptr<Symbol> ReplaceByReference(std::string_view text, CellPtr cell);
  // A number that bears the name, or none.
  void SetNumber(std::string_view text, double number, bool is_named);
  // The same for a name that is known.
  void SetNumber(Name& name, double number) {
    if (name.content == Name::Content::kNumber) {
      name.number = number;
      return name.readers.Invalidate();
    }
    SetNumber(name, number, true);
  }
  // A number or a reference may bear the name of the symbol that was given it.
  void SetLastResult(const Operand& value, std::string_view name_of_number = {});
  void SetLastReference(CellPtr cell, std::string_view name = {});

  // Does nothing when the name has no value.
  void Erase(std::string_view text);
  void Clear();

  // A name for a program, until it releases it.
  Name* Bind(std::string_view text);
  void Release(Name& name);

  // How many names have a value, the last result included.
  s_uint GetSize() const { return size_; }
  // All names that have one, in ascending order.
  s_ctnr<s_str> GetNames() const;

 private:
  // What a name held before it is given something else, which nothing may prevent then.
  struct Former {
    explicit Former(Name& name)
        : object(std::move(name.object)),
          cell(CellPtr::Attach(name.IsReference() ? name.cell : nullptr)) {}

    s_refptr<Symbol> object;
    CellPtr cell;
  };

  Name& FindOrAdd(std::string_view text);
  void SetNumber(Name& name, double number, bool is_named);
  void SetReference(Name& name, CellPtr cell);
  void SetContent(Name& name, Name::Content content);
  void RemoveIfUnused(Name& name);

  TextTable<Name> names_;  // but for the last result
  unsigned int size_ = 0;  // how many have a value
  Name* last_result_;
  s_str name_of_last_result_;
};

}  // namespace Quarn
