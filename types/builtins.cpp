// The types that every State registers for itself.
#include "interpreter/builtins.h"

#include "types/reference.h"
#include "types/scalar.h"

namespace Quarn {

static_assert(std::string_view(Scalar::kType) == kNumberType);

void RegisterBuiltins(State& state) {
  Reference::Register(state);
  Scalar::Register(state);
}

s_refptr<Symbol> NewNumber(const s_str& name, double number) {
  return name.IsEmpty() ? s_refptr<Symbol>(new Scalar(number))
                        : s_refptr<Symbol>(new Scalar(name, number));
}

s_refptr<Symbol> NewReference(const s_str& name, CellPtr cell) {
  return s_refptr<Symbol>(new Reference(name, std::move(cell)));
}

const CellPtr& GetCell(const Symbol& reference) {
  return static_cast<const Reference&>(reference).GetCell();
}

}  // namespace Quarn
