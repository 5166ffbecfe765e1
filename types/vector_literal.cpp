// Vectors from literals.
#include <memory>

#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "types/element_types.h"
#include "types/vector.h"

namespace Quarn {
namespace {

// The elements of a literal, evaluated one after the other and held to one type.
class LiteralElements {
 public:
  LiteralElements(State& state, const Piece& inside, s_str& error)
      : state_(state), parts_(inside), part_(inside), error_(error), elements_(new Values) {}

  // Null when an element fails, or is of another type than those before it.
  s_refptr<Values> Evaluate() {
    while (parts_.Next(part_)) {
      if (!Add(state_.Evaluate(part_, Symbol::NoName(), error_))) return {};
    }
    return types_.AcceptReferences(*elements_, error_) ? elements_ : s_refptr<Values>();
  }

 private:
  [[gnu::noinline]] bool Add(s_refptr<Symbol> element) {
    if (!element) return false;
    elements_->PushBack(element);
    return types_.Accept(*element, error_);
  }

  State& state_;
  Parts parts_;
  Piece part_;
  s_str& error_;
  s_refptr<Values> elements_;
  ElementTypes types_;
};

[[gnu::noinline]] s_refptr<Symbol> NewVector(const s_str& name, s_refptr<Values> elements) {
  return elements ? s_refptr<Symbol>(new Vector(name, std::move(elements))) : s_refptr<Symbol>();
}

}  // namespace

s_refptr<Symbol> Vector::CreateFrom(State& state, const s_str& name, const s_str& text,
                                    s_str& error) {
  if (text.GetView().size() > Source::kLongest) {
    AddError(error, messages::TooLong());
    return {};
  }
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
