// Vectors from literals.
#include <memory>

#include "interpreter/builtins.h"
#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "types/vector.h"

namespace Quarn {
namespace {

// The elements of a literal, evaluated one after the other and held to one type. An element that is
// a reference has none until all are known.
class LiteralElements {
 public:
  LiteralElements(State& state, const Piece& inside, s_str& error)
      : state_(state), parts_(inside), part_(inside), error_(error), elements_(new Values) {}

  // Null when an element fails, or is of another type than those before it.
  s_refptr<Values> Evaluate() {
    while (parts_.Next(part_)) {
      if (!Add(state_.Evaluate(part_, Symbol::NoName(), error_))) return {};
    }
    if (!AcceptReferences()) return {};
    return elements_;
  }

 private:
  static bool IsReferenceType(const s_str& type) { return type.GetView() == kReferenceType; }

  [[gnu::noinline]] bool Add(s_refptr<Symbol> element) {
    if (!element) return false;
    const s_str type = element->GetFullType();
    elements_->PushBack(std::move(element));
    if (IsReferenceType(type)) return has_references_ = true;
    if (type_.IsEmpty()) type_ = type;
    return IsSame(type);
  }

  // Kept on purpose: when all elements are references there is no type to agree with, and the first
  // of them fails.
  [[gnu::noinline]] bool AcceptReferences() {
    if (!has_references_) return true;
    for (const s_refptr<Symbol>& element : *elements_) {
      if (!IsReferenceType(element->GetFullType())) continue;
      if (!IsSame(element->GetType())) return false;
    }
    return true;
  }

  bool IsSame(const s_str& type) {
    if (type == type_) return true;
    AddError(error_, messages::NonHomogeneous(type_, type));
    return false;
  }

  State& state_;
  Parts parts_;
  Piece part_;
  s_str& error_;
  s_refptr<Values> elements_;
  s_str type_;
  bool has_references_ = false;
};

[[gnu::noinline]] s_refptr<Symbol> NewVector(const s_str& name, s_refptr<Values> elements) {
  return elements ? s_refptr<Symbol>(new Vector(name, std::move(elements))) : s_refptr<Symbol>();
}

}  // namespace

s_refptr<Symbol> Vector::CreateFrom(State& state, const s_str& name, const s_str& text,
                                    s_str& error) {
  BracketRoom room;
  const Source source(text.GetView(), room);
  return CreateFromPiece(state, name, Piece(source), error);
}

s_refptr<Symbol> Vector::CreateFromPiece(State& state, const s_str& name, const Piece& literal,
                                         s_str& error) {
  if (!IsLiteral(literal.GetText())) {
    AddError(error, messages::NoOperatorFound(literal.GetText()));
    return {};
  }
  const Piece inside = literal.Inside();
  if (!inside.CheckBrackets(error)) return {};
  // On the heap, because elements may be vectors, and so on down the stack.
  const auto elements = std::make_unique<LiteralElements>(state, inside, error);
  return NewVector(name, elements->Evaluate());
}

}  // namespace Quarn
