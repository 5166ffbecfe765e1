// s_ctnr<T> is a sequence over std::deque<T>; copying it copies its elements. It may be destroyed
// through its base s_ctnr_t<T, C>.
//   s_ctnr<s_str> words;
//   words.PushBack("a");
//   for (const s_str& word : words) ...
#pragma once

#include <concepts>
#include <cstddef>
#include <deque>
#include <initializer_list>
#include <utility>

#include "s_int.h"

namespace Quarn {

// As the standard containers count. NaN and INF are past the end.
constexpr std::size_t ToPlace(s_uint index) {
  return index.IsValid() ? index.Get() : static_cast<std::size_t>(-1);
}

template <class T, class C>
class s_ctnr_t {
 public:
  s_ctnr_t() = default;
  s_ctnr_t(std::initializer_list<T> elements) : elements_(elements) {}
  s_ctnr_t(const s_ctnr_t&) = default;
  s_ctnr_t(s_ctnr_t&&) = default;
  s_ctnr_t& operator=(const s_ctnr_t&) = default;
  s_ctnr_t& operator=(s_ctnr_t&&) = default;
  virtual ~s_ctnr_t() = default;

  void PushBack(T element) { elements_.push_back(std::move(element)); }
  void PopBack() { elements_.pop_back(); }  // REQUIRES: not empty
  void Clear() { elements_.clear(); }
  // An index past the end removes nothing.
  void Erase(s_uint index) {
    if (index < GetSize()) elements_.erase(elements_.begin() + index.Get());
  }

  s_uint GetSize() const { return static_cast<unsigned int>(elements_.size()); }
  s_bool IsEmpty() const { return elements_.empty(); }

  // An index past the end raises std::out_of_range.
  T& operator[](s_uint index) { return elements_.at(ToPlace(index)); }
  const T& operator[](s_uint index) const { return elements_.at(ToPlace(index)); }
  template <std::integral Index>
  T& operator[](Index index) {
    return elements_.at(static_cast<std::size_t>(index));
  }
  template <std::integral Index>
  const T& operator[](Index index) const {
    return elements_.at(static_cast<std::size_t>(index));
  }

  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

 private:
  C elements_;
};

template <class T>
class s_ctnr : public s_ctnr_t<T, std::deque<T>> {
 public:
  using s_ctnr_t<T, std::deque<T>>::s_ctnr_t;
};

}  // namespace Quarn
