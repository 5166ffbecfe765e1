// Symbol is the base of every value, and a type of its own: the abstract "Symbol", a name without a
// value. Values are held through s_refptr<Symbol> and shared; only Clone copies one. A temporary
// value has an empty name.
//   s_refptr<Symbol> ab(new Symbol("ab"));  // displays as "ab"
// A type derives from Symbol and overrides ToString, GetType and Clone; the rest has defaults.
#pragma once

#include <cstddef>
#include <new>

#include "utils/s_refptr.h"
#include "utils/s_str.h"

namespace Quarn {

class Reference;

// The name of a type by whose address look-ups may go, since every value that gives it is of that
// type. Only final classes of the library can make one: a class from outside might be derived from,
// and another type be given to what is derived.
class FixedType {
 public:
  constexpr FixedType() = default;  // none: ask GetType
  constexpr const char* Get() const { return name_; }
  explicit constexpr operator bool() const { return name_ != nullptr; }

 private:
  friend class Scalar;
  friend class Vector;
  explicit constexpr FixedType(const char* name) : name_(name) {}

  const char* name_ = nullptr;
};

class Symbol {
 public:
  // The name of the abstract type.
  static constexpr char kType[] = "Symbol";

  // The value text is the name, and stays it when the name is changed.
  explicit Symbol(const s_str& name) : name_(name), value_text_(name) {}
  virtual ~Symbol() = default;
  Symbol& operator=(const Symbol&) = delete;

  // The value as a user sees it; a value with a name usually begins with "name = ".
  virtual s_str ToString() const { return value_text_; }
  // The type under which operators and functions are looked up. It may cost an evaluation.
  virtual s_str GetType() const { return kType; }
  // The type as declared: that of a reference is always "Reference".
  virtual s_str GetDeclaredType() const { return GetType(); }
  // The type as shown in messages about mixed elements: "3-Vector".
  virtual s_str GetFullType() const { return GetType(); }
  // The name of temporaries.
  static const s_str& NoName() {
    static const s_str no_name;
    return no_name;
  }

  // A new object of the same class with the same name and payload.
  virtual s_refptr<Symbol> Clone() const { return s_refptr<Symbol>(new Symbol(*this)); }

  // Appends what ToString returns. A type with long texts overrides it to save the copy.
  virtual void AppendTo(s_str& text) const { text += ToString(); }
  // Saves look-ups the text that GetType returns.
  FixedType GetFixedType() const { return fixed_type_; }
  // The value as a Reference; null for every other class, whatever type it declares.
  virtual const Reference* AsReference() const { return nullptr; }

  // The name of the symbol that the value is of; empty for a temporary.
  const s_str& GetName() const { return name_; }
  // Renames, and leaves the value text.
  void SetName(const s_str& name) { name_ = name; }
  // The name at first, which is all the value that an abstract symbol has.
  const s_str& GetValueText() const { return value_text_; }

  // Values come from the pool, whatever their class.
  static void* operator new(std::size_t size) { return Pool::Allocate(size); }
  static void operator delete(void* block, std::size_t size) noexcept { Pool::Free(block, size); }
  // Those of a class that asks for more than the default alignment do not.
  static void* operator new(std::size_t size, std::align_val_t alignment) {
    return ::operator new(size, alignment);
  }
  static void operator delete(void* block, std::size_t, std::align_val_t alignment) noexcept {
    ::operator delete(block, alignment);
  }

 protected:
  Symbol() = default;  // a temporary
  // Of a class with a fixed type.
  explicit Symbol(FixedType type) : fixed_type_(type) {}
  Symbol(const s_str& name, FixedType type) : fixed_type_(type), name_(name), value_text_(name) {}
  Symbol(const Symbol& other, FixedType type)
      : fixed_type_(type), name_(other.name_), value_text_(other.value_text_) {}
  // Makes a temporary of a named value.
  void ClearNames() {
    name_.Clear();
    value_text_.Clear();
  }
  // A copy has the names alone: it may be part of a class of another type.
  Symbol(const Symbol& other) : Symbol(other, FixedType()) {}

 private:
  const FixedType fixed_type_ = {};
  s_str name_;
  s_str value_text_;
};

}  // namespace Quarn
