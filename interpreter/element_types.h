// ElementTypes holds the elements of one list to one type, in the order in which they come. An
// element that is a reference has none of its own; when all are there, its value must be of the
// type of the others.
#pragma once

#include "interpreter/builtins.h"
#include "interpreter/messages.h"

namespace Quarn {

class ElementTypes {
 public:
  // The next element, by its full type. False, with a message added, when it is of another type
  // than those before.
  bool Accept(const s_str& type, s_str& error) {
    if (type.GetView() == kReferenceType) return has_references_ = true;
    if (type_.IsEmpty()) type_ = type;
    return AcceptReference(type, error);
  }
  bool HasReferences() const { return has_references_; }

  // An element that is a reference, by the type of its value, when all elements are there.
  // Kept on purpose: when all elements are references there is no type to agree with, and the first
  // of them fails.
  bool AcceptReference(const s_str& type, s_str& error) const {
    if (type == type_) return true;
    AddError(error, messages::NonHomogeneous(type_, type));
    return false;
  }

 private:
  s_str type_;  // empty while there have been only references
  bool has_references_ = false;
};

}  // namespace Quarn
