// Dispatch remembers which implementation of a binary operator was found for operands of which
// types, so that the registries are searched by text once and not for every application. Only
// types that are fixed (FixedType) may be remembered; each is known by the address of its name.
// Whoever changes the registry forgets everything.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "interpreter/priorities.h"

namespace Quarn {

template <class Implementation>
class Dispatch {
 public:
  // Null when nothing is remembered; valid until the next that is. REQUIRES: the left type is not
  // null.
  const Implementation* Find(std::size_t op, const char* left, const char* right) const {
    for (const Entry& entry : entries_[op]) {
      if (entry.left == left && entry.right == right) return &entry.implementation;
    }
    return nullptr;
  }

  // Forgets the oldest of the operator when all places are taken.
  void Remember(std::size_t op, const char* left, const char* right,
                Implementation implementation) {
    entries_[op][oldest_[op]++ % kPlaces] = {left, right, implementation};
  }

 private:
  static constexpr std::size_t kPlaces = 4;

  struct Entry {
    const char* left = nullptr;
    const char* right = nullptr;
    Implementation implementation{};
  };

  Entry entries_[kOperators][kPlaces];
  std::size_t oldest_[kOperators] = {};
};

// CallDispatch remembers the same of functions: which overload was found for arguments of which
// types. It knows calls of at most two arguments.
template <class Overloads, class Body>
class CallDispatch {
 public:
  static constexpr std::size_t kArguments = 2;

  // Null types stand for the arguments that there are not.
  struct Key {
    const Overloads* overloads;
    std::array<const char*, kArguments> types;
    bool operator==(const Key&) const = default;
  };

  // Null when nothing is remembered.
  const Body* Find(const Key& key) const {
    const Entry& entry = entries_[Place(key)];
    return entry.key == key ? entry.body : nullptr;
  }
  // Forgets what was remembered in the same place.
  void Remember(const Key& key, const Body* body) { entries_[Place(key)] = {key, body}; }

 private:
  static constexpr std::size_t kPlaces = 64;

  struct Entry {
    Key key{};
    const Body* body = nullptr;
  };

  static std::size_t Place(const Key& key) {
    return (reinterpret_cast<std::uintptr_t>(key.overloads) / alignof(std::max_align_t)) % kPlaces;
  }

  std::array<Entry, kPlaces> entries_{};
};

}  // namespace Quarn
