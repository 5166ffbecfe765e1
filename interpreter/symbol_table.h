// SymbolTable holds the values that the user named, and the last result under "_". Looked up far
// more often than walked, it is a hash table; GetNames sorts when asked. A number is kept without
// an object until somebody asks for one. The cells that read a name are told of its changes, also
// while it has no value: a Name exists as long as it has a value or a program uses it.
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
    kObject
  };

  std::string_view GetText() const { return text.GetView(); }
  bool HasValue() const { return content != Content::kNothing; }
  bool IsNumber() const {
    return content == Content::kNumber || content == Content::kUnnamedNumber;
  }

  s_str text;
  double number = 0;
  s_refptr<Symbol> object;
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
  bool Contains(std::string_view name) { return Find(name) != nullptr; }

  // The value as an object, the same one each time. REQUIRES: there is one.
  const s_refptr<Symbol>& GetObject(Name& name) const;
  // The name that a number bears. REQUIRES: the value is a number.
  std::string_view GetNameOfNumber(const Name& name) const {
    if (name.content == Name::Content::kUnnamedNumber) return {};
    return (&name == last_result_ ? name_of_last_result_ : name.text).GetView();
  }

  // Gives the name a value, in place of any that it had. REQUIRES: the value is not null.
  void Set(std::string_view text, s_refptr<Symbol> value);
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
  // A number may bear the name of the symbol that was given it.
  void SetLastResult(const Operand& value, std::string_view name_of_number = {});

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
  Name& FindOrAdd(std::string_view text);
  void SetNumber(Name& name, double number, bool is_named);
  void SetContent(Name& name, Name::Content content);
  void RemoveIfUnused(Name& name);

  TextTable<Name> names_;  // but for the last result
  unsigned int size_ = 0;  // how many have a value
  Name* last_result_;
  s_str name_of_last_result_;
};

}  // namespace Quarn
