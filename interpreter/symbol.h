// Symbol is the base of every value, and a type of its own: the abstract "Symbol", a name without a
// value. Values are held through s_refptr<Symbol> and shared; only Clone copies one. A temporary
// value has an empty name.
//   s_refptr<Symbol> ab(new Symbol("ab"));  // displays as "ab"
// A type derives from Symbol and overrides ToString, GetType and Clone; the rest has defaults.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

#include "../utils/api.h"
#include "../utils/s_refptr.h"
#include "../utils/s_str.h"

namespace Quarn {

class TextWriter;

class MIRLOW_API Symbol {
 public:
  // The name of the abstract type.
  static constexpr char kType[] = "Symbol";

  // What the interpreter may look into without knowing the class: numbers travel unboxed, lists are
  // written element by element, references are evaluated. Every other class is kOther.
  enum class Kind : std::uint8_t { kOther, kNumber, kList, kReference };

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
  // A new object of the same class with the same name and payload.
  virtual s_refptr<Symbol> Clone() const { return s_refptr<Symbol>(new Symbol(*this)); }

  // Writes what ToString returns. A type whose values hold other values overrides it, so that
  // however deeply they are nested, writing them does not recurse; see text_writer.h.
  virtual void Write(TextWriter& out) const;

  // The name of temporaries.
  static const s_str& NoName();
  const s_str& GetName() const { return name_; }
  // Renames, and leaves the value text.
  void SetName(const s_str& name) { name_ = name; }
  // The name at first, which is all the value that an abstract symbol has.
  const s_str& GetValueText() const { return value_text_; }

  Kind GetKind() const { return kind_; }

  // Values come from the pool, whatever their class, unless they ask for more alignment than it
  // has.
  static void* operator new(std::size_t size) { return Pool::Allocate(size); }
  static void operator delete(void* block, std::size_t size) noexcept { Pool::Free(block, size); }
  static void* operator new(std::size_t size, std::align_val_t alignment) {
    return ::operator new(size, alignment);
  }
  static void operator delete(void* block, std::size_t, std::align_val_t alignment) noexcept {
    ::operator delete(block, alignment);
  }

 protected:
  explicit Symbol(Kind kind) : kind_(kind) {}  // a temporary
  Symbol(const s_str& name, Kind kind) : name_(name), value_text_(name), kind_(kind) {}
  // A copy has the names alone: it may be part of a class of another kind.
  Symbol(const Symbol& other) : Symbol(other, Kind::kOther) {}
  Symbol(const Symbol& other, Kind kind)
      : name_(other.name_), value_text_(other.value_text_), kind_(kind) {}

 private:
  s_str name_;
  s_str value_text_;
  Kind kind_ = Kind::kOther;
};

}  // namespace Quarn
