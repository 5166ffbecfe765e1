// ElementTypes holds the elements of one vector to one type, in the order in which they come. An
// element that is a reference has none of its own; when all are there, its value must be of the
// type of the others.
//   ElementTypes types;
//   types.Accept(*one, error) && types.Accept(*two, error) && types.AcceptReferences(all, error);
#pragma once

#include "interpreter/registry.h"

namespace Quarn {

class ElementTypes {
 public:
  // The next element. False, with a message added, when it is of another type than those before.
  bool Accept(const Symbol& element, s_str& error);

  // All elements, after the last of them.
  // Kept on purpose: when all elements are references there is no type to agree with, and the first
  // of them fails.
  bool AcceptReferences(const Values& elements, s_str& error);

 private:
  bool IsSame(const s_str& type, s_str& error);

  s_str type_;  // empty while there have been only references
  bool has_references_ = false;
};

}  // namespace Quarn
