// Dispatch remembers which implementation of an operator was found for which operand types, so that
// the registries are searched by text once and not for every application. It knows types by the
// address of their fixed name (Symbol::GetFixedType); types without one are always searched for.
// Registry entries are never removed, so what it remembers stays right.
#pragma once

#include <cstddef>

#include "interpreter/priorities.h"

namespace Quarn {

template <class Body>
class Dispatch {
 public:
  // Null when nothing is remembered. `right` is null for an operator with one operand.
  const Body* Find(std::size_t op, const char* left, const char* right) const {
    for (const Entry& entry : entries_[op]) {
      if (entry.left == left && entry.right == right) return entry.body;
    }
    return nullptr;
  }

  // Forgets the oldest of the operator when all places are taken.
  void Remember(std::size_t op, const char* left, const char* right, const Body* body) {
    entries_[op][oldest_[op]++ % kPlaces] = {left, right, body};
  }

 private:
  static constexpr std::size_t kPlaces = 4;

  struct Entry {
    const char* left = nullptr;
    const char* right = nullptr;
    const Body* body = nullptr;
  };

  Entry entries_[kOperators][kPlaces];
  std::size_t oldest_[kOperators] = {};
};

}  // namespace Quarn
