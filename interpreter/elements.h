// Elements are what a list holds, in order: plain numbers while all of them are numbers, objects
// otherwise. They become objects for good when somebody asks for those.
//   Elements elements;
//   elements.Add(Operand(1.5));
//   elements[0].GetNumber();  // 1.5
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "operand.h"
#include "registry.h"

namespace Quarn {

class Elements {
 public:
  Elements() = default;
  explicit Elements(std::vector<double> numbers) : numbers_(std::move(numbers)) {}
  explicit Elements(const Values& values) : objects_(values.begin(), values.end()) {}

  std::size_t GetSize() const { return numbers_.size() + objects_.size(); }
  // Are all elements numbers? Also true of an empty list.
  bool AreNumbers() const { return objects_.empty(); }

  // REQUIRES: AreNumbers.
  const std::vector<double>& GetNumbers() const { return numbers_; }
  // REQUIRES: not AreNumbers.
  const std::vector<s_refptr<Symbol>>& GetObjects() const { return objects_; }
  std::vector<s_refptr<Symbol>>& GetObjects() { return objects_; }

  // Shares the object of an element that is one. REQUIRES: index < GetSize().
  Operand operator[](std::size_t index) const {
    return AreNumbers() ? Operand(numbers_[index]) : Operand(objects_[index]);
  }

  // REQUIRES, for both: nobody else looks at the elements yet.
  void Add(double number) {
    if (AreNumbers()) return numbers_.push_back(number);
    objects_.push_back(NewNumber(Symbol::NoName(), number));
  }
  void Add(Operand element) {
    if (element.IsNumber()) return Add(element.GetNumber());
    if (AreNumbers()) Box();
    objects_.push_back(element.Take());
  }

  // All as objects, the same ones each time.
  const Values& GetValues() const {
    if (!values_) {
      if (AreNumbers()) Box();
      values_ = std::make_unique<Values>();
      for (const s_refptr<Symbol>& object : objects_) values_->PushBack(object);
    }
    return *values_;
  }
  // Drops what GetValues made, so that the objects have one owner less.
  void ForgetValues() { values_.reset(); }

 private:
  void Box() const {
    std::vector<s_refptr<Symbol>> objects;
    objects.reserve(numbers_.size() + 1);
    for (double number : numbers_) objects.push_back(NewNumber(Symbol::NoName(), number));
    objects_ = std::move(objects);
    numbers_ = {};
  }

  // One of the two is empty.
  mutable std::vector<double> numbers_;
  mutable std::vector<s_refptr<Symbol>> objects_;
  mutable std::unique_ptr<Values> values_;  // made when asked for
};

}  // namespace Quarn
