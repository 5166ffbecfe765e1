// s_refptr<T> shares one heap object among owners; the last one to go deletes it. The counts are
// separate from the object, so T needs no base class. Not thread-safe.
//   s_refptr<Symbol> a(new Symbol("x"));  // strong count 1
//   s_refptr<Symbol> b = a;               // strong count 2, same object
// While the weak count is above 0, the counts outlive the object, so that a weak holder could see
// that it is gone.
#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "pool.h"
#include "s_bool.h"
#include "s_int.h"

namespace Quarn {

// How many pointers share an object, and how many only watch it.
struct OwnerCounts {
  unsigned int strong = 1;
  unsigned int weak = 0;
};

template <class T>
class s_refptr {
 public:
  constexpr s_refptr() = default;

  // Takes ownership. If there is no memory for the counts, the object is deleted before
  // std::bad_alloc is thrown.
  explicit s_refptr(T* object) : object_(object) {
    if (!object) return;
    try {
      counts_ = new (Pool::Allocate(sizeof(OwnerCounts))) OwnerCounts;
    } catch (...) {
      delete object;
      throw;
    }
  }

  s_refptr(const s_refptr& other) : object_(other.object_), counts_(other.counts_) {
    if (counts_) ++counts_->strong;
  }
  s_refptr(s_refptr&& other) noexcept
      : object_(std::exchange(other.object_, nullptr)),
        counts_(std::exchange(other.counts_, nullptr)) {}
  // Shares the object and the counts, as a pointer to the base.
  template <class Derived>
  requires std::is_convertible_v<Derived*, T*> s_refptr(s_refptr<Derived> other)
  noexcept
      : object_(std::exchange(other.object_, nullptr)),
        counts_(std::exchange(other.counts_, nullptr)) {}

  // Safe when `other` is a member of the object being released: the new object is held first.
  s_refptr& operator=(const s_refptr& other) {
    if (this != &other) s_refptr(other).Swap(*this);
    return *this;
  }
  s_refptr& operator=(s_refptr&& other) noexcept {
    s_refptr(std::move(other)).Swap(*this);
    return *this;
  }

  ~s_refptr() { Release(); }

  T* operator->() const { return object_; }  // REQUIRES: not null
  T& operator*() const { return *object_; }  // REQUIRES: not null
  T* Get() const { return object_; }

  s_bool IsNull() const { return object_ == nullptr; }
  explicit operator bool() const { return object_ != nullptr; }

  // The number of owners; 0 for null.
  s_uint GetCount() const { return counts_ ? counts_->strong : 0U; }

  void Swap(s_refptr& other) noexcept {
    std::swap(object_, other.object_);
    std::swap(counts_, other.counts_);
  }

 private:
  template <class U>
  friend class s_refptr;

  void Release() {
    if (counts_ && --counts_->strong == 0) Drop();
  }

  void Drop() {
    // Counts first, so that pointers made by the object's destructor can reuse their block.
    T* object = std::exchange(object_, nullptr);
    if (counts_->weak == 0) Pool::Free(std::exchange(counts_, nullptr), sizeof(OwnerCounts));
    delete object;  // GCOVR_EXCL_BR_LINE: never null, though `delete` asks
  }

  T* object_ = nullptr;
  OwnerCounts* counts_ = nullptr;
};

}  // namespace Quarn
