// s_refptr<T> shares one heap object among owners; the last owner to go deletes it. The counts live
// apart from the object, so T needs no base class. For one thread only.
//   s_refptr<Symbol> a(new Symbol("x"));  // strong count 1
//   s_refptr<Symbol> b = a;               // strong count 2, same object
// The weak count is kept for holders that only want to see whether the object is still there: while
// it is above 0, the counts outlive the object.
#pragma once

#include <type_traits>
#include <utility>

#include "utils/pool.h"
#include "utils/s_bool.h"
#include "utils/s_int.h"

namespace Quarn {

template <class T>
class s_refptr {
 public:
  constexpr s_refptr() = default;

  // Takes ownership of a new object; strong count 1, weak count 0. Null gives a null pointer. If
  // there is no memory for the counts, the object is deleted and std::bad_alloc passes through.
  explicit s_refptr(T* object) : object_(object) {
    if (!object) return;
    try {
      strong_ = static_cast<unsigned int*>(Pool::Allocate(kCounts));
    } catch (...) {
      delete object;
      throw;
    }
    weak_ = strong_ + 1;
    *strong_ = 1;
    *weak_ = 0;
  }

  // One more owner, or the same one in another place.
  s_refptr(const s_refptr& other)
      : object_(other.object_), strong_(other.strong_), weak_(other.weak_) {
    if (strong_) ++*strong_;
  }
  s_refptr(s_refptr&& other) noexcept
      : object_(std::exchange(other.object_, nullptr)),
        strong_(std::exchange(other.strong_, nullptr)),
        weak_(std::exchange(other.weak_, nullptr)) {}
  // A pointer to the base shares the same object and counts.
  template <class Derived>
  requires std::is_convertible_v<Derived*, T*> s_refptr(s_refptr<Derived> other)
  noexcept
      : object_(std::exchange(other.object_, nullptr)),
        strong_(std::exchange(other.strong_, nullptr)),
        weak_(std::exchange(other.weak_, nullptr)) {}

  // Safe when `other` lives inside the object that is released: the new object is held first.
  s_refptr& operator=(const s_refptr& other) {
    if (this != &other) s_refptr(other).Swap(*this);
    return *this;
  }
  s_refptr& operator=(s_refptr&& other) noexcept {
    s_refptr(std::move(other)).Swap(*this);
    return *this;
  }

  ~s_refptr() { Release(); }

  // The object, which stays shared. REQUIRES, but for Get: not null.
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  T* Get() const { return object_; }

  // Is there no object?
  s_bool IsNull() const { return object_ == nullptr; }
  // Is there one?
  explicit operator bool() const { return object_ != nullptr; }

  // The number of owners; 0 for null.
  s_uint GetCount() const { return strong_ ? *strong_ : 0U; }

  // Exchanges what the two point to; the counts stay.
  void Swap(s_refptr& other) noexcept {
    std::swap(object_, other.object_);
    std::swap(strong_, other.strong_);
    std::swap(weak_, other.weak_);
  }

 private:
  template <class U>
  friend class s_refptr;

  static constexpr std::size_t kCounts = 2 * sizeof(unsigned int);

  void Release() {
    if (strong_ && --*strong_ == 0) Drop();
  }

  [[gnu::noinline]] void Drop() {
    // The counts go first: the object's destructor may be long, and needs them no more.
    T* object = std::exchange(object_, nullptr);
    if (*weak_ == 0) {
      Pool::Free(strong_, kCounts);
      strong_ = weak_ = nullptr;
    }
    delete object;  // GCOVR_EXCL_BR_LINE: never null, though `delete` asks
  }

  T* object_ = nullptr;
  unsigned int* strong_ = nullptr;
  unsigned int* weak_ = nullptr;
};

}  // namespace Quarn
