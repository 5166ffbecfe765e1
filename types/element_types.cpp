#include "types/element_types.h"

#include "interpreter/builtins.h"
#include "interpreter/messages.h"

namespace Quarn {
namespace {

bool IsReferenceType(const s_str& type) { return type.GetView() == kReferenceType; }

}  // namespace

bool ElementTypes::Accept(const Symbol& element, s_str& error) {
  const s_str type = element.GetFullType();
  if (IsReferenceType(type)) return has_references_ = true;
  if (type_.IsEmpty()) type_ = type;
  return IsSame(type, error);
}

bool ElementTypes::AcceptReferences(const Values& elements, s_str& error) {
  if (!has_references_) return true;
  for (const s_refptr<Symbol>& element : elements) {
    if (!IsReferenceType(element->GetFullType())) continue;
    if (!IsSame(element->GetType(), error)) return false;
  }
  return true;
}

bool ElementTypes::IsSame(const s_str& type, s_str& error) {
  if (type == type_) return true;
  AddError(error, messages::NonHomogeneous(type_, type));
  return false;
}

}  // namespace Quarn
