// Vector is a sequence of fixed length whose elements are all of one type, "<1, 2, 3>". Its
// arithmetic goes element by element through the State's operators, so that the element type
// decides what it means. Nothing ever changes the elements: copies of a vector share them, and cost
// the same whatever its length. Numbers are kept plain until somebody asks for objects.
//   Vector::Register(state);
//   state.ProcessLine("v=<1, 2>;2*v");  // <2, 4>
#pragma once

#include "../interpreter/elements.h"
#include "../interpreter/registry.h"
#include "../utils/api.h"

namespace Quarn {

class MIRLOW_API Vector final : public Symbol {
 public:
  // The name of the type, and what adds it to a State: once, after construction.
  static constexpr char kType[] = "Vector";
  static void Register(State& state);

  // The vector of a literal between "<" and ">"; null, with a message added, when the text is none,
  // an element fails, or the elements are of different types. Elements that are references count
  // with the type of their value, but only beside one that is not a reference.
  static s_refptr<Symbol> CreateFrom(State& state, const s_str& name, const s_str& text,
                                     s_str& error);

  explicit Vector(const s_str& name) : Vector(name, s_refptr<Elements>(new Elements)) {}
  Vector(const s_str& name, const Values& elements)
      : Vector(name, s_refptr<Elements>(new Elements(elements))) {}
  // REQUIRES: elements, and nobody changes them any more.
  Vector(const s_str& name, s_refptr<Elements> elements)
      : Symbol(name, Kind::kList), elements_(std::move(elements)) {}
  ~Vector() override;

  // In order; as objects, the same ones each time.
  const Values& GetElements() const { return elements_->GetValues(); }
  const Elements& GetList() const { return *elements_; }
  s_uint GetSize() const { return static_cast<unsigned int>(elements_->GetSize()); }

  s_str ToString() const override;
  s_str GetType() const override { return kType; }
  s_str GetFullType() const override;  // "3-Vector"
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Vector(*this)); }
  void Write(TextWriter& out) const override;

 private:
  Vector(const Vector& other) : Symbol(other, Kind::kList), elements_(other.elements_) {}

  static s_refptr<Elements>& ElementsOf(Symbol& vector);
  static bool OwnsElementsAlone(const s_refptr<Symbol>& value);

  s_refptr<Elements> elements_;
};

}  // namespace Quarn
