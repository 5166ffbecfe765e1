#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "tests/model/model.h"
#include "tests/model/model_frame.h"
#include "tests/model/model_text.h"

namespace Quarn::model {
namespace {

double FactorialOf(double x, int factors) {
  if (std::abs(x - 1) < 0.1) return 1;
  if (factors == 0) throw Outside("a factorial without end");
  return std::round(x) * FactorialOf(x - 1, factors - 1);
}

}  // namespace

ValuePtr Model::Multiply(const ValuePtr& left, const ValuePtr& right, std::string&) {
  return NewScalar("", left->number * right->number);
}

ValuePtr Model::Divide(const ValuePtr& left, const ValuePtr& right, std::string&) {
  return NewScalar("", left->number / right->number);
}

ValuePtr Model::Add(const ValuePtr& left, const ValuePtr& right, std::string&) {
  return NewScalar("", left->number + right->number);
}

ValuePtr Model::Subtract(const ValuePtr& left, const ValuePtr& right, std::string&) {
  return NewScalar("", left->number - right->number);
}

ValuePtr Model::ScaleFromLeft(const ValuePtr& left, const ValuePtr& right, std::string& error) {
  std::vector<ValuePtr> elements;
  for (const ValuePtr& element : right->elements) {
    elements.push_back(ApplyBinary("*", left, element, error));
    if (!elements.back()) return nullptr;
  }
  return NewVector("", elements);
}

ValuePtr Model::ScaleFromRight(const ValuePtr& left, const ValuePtr& right, std::string& error) {
  std::vector<ValuePtr> elements;
  for (const ValuePtr& element : left->elements) {
    elements.push_back(ApplyBinary("*", element, right, error));
    if (!elements.back()) return nullptr;
  }
  return NewVector("", elements);
}

ValuePtr Model::AddVectors(const ValuePtr& left, const ValuePtr& right, std::string& error) {
  return Pairwise("+", left, right, error);
}

ValuePtr Model::SubtractVectors(const ValuePtr& left, const ValuePtr& right, std::string& error) {
  return Pairwise("-", left, right, error);
}

ValuePtr Model::Pairwise(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                         std::string& error) {
  const std::size_t length = left->elements.size();
  if (length != right->elements.size()) {
    const std::string verb = op == "+" ? "add" : "substract";
    AddError(error, "\tError : Cannot " + verb + " two Vectors of different length (" +
                        std::to_string(length) + " and " + std::to_string(right->elements.size()) +
                        ")");
    return nullptr;
  }
  std::vector<ValuePtr> elements;
  for (std::size_t i = 0; i < length; ++i) {
    elements.push_back(ApplyBinary(op, left->elements[i], right->elements[i], error));
    if (!elements.back()) return nullptr;
  }
  return NewVector("", elements);
}

ValuePtr Model::Cross(const ValuePtr& left, const ValuePtr& right, std::string& error) {
  if (left->elements.size() != 3 || right->elements.size() != 3) {
    AddError(error, "\tError : The cross product '^' is only available for 3-Vectors");
    return nullptr;
  }
  std::vector<ValuePtr> elements;
  for (std::size_t i = 0; i < 3; ++i) {
    elements.push_back(CrossComponent(left, right, (i + 1) % 3, (i + 2) % 3, error));
    if (!elements.back()) return nullptr;
  }
  return NewVector("", elements);
}

// a[i] * b[j] - a[j] * b[i]
ValuePtr Model::CrossComponent(const ValuePtr& a, const ValuePtr& b, std::size_t i, std::size_t j,
                               std::string& error) {
  const ValuePtr first = ApplyBinary("*", a->elements[i], b->elements[j], error);
  if (!first) return nullptr;
  const ValuePtr second = ApplyBinary("*", a->elements[j], b->elements[i], error);
  if (!second) return nullptr;
  return ApplyBinary("-", first, second, error);
}

ValuePtr Model::Index(const ValuePtr& left, const ValuePtr& right, std::string& error) {
  if (left->elements.empty()) {
    AddError(error, "\tError : Cannot index an empty Vector");
    return nullptr;
  }
  if (std::isinf(right->number)) throw Outside("an index without end");
  double index = 0;
  if (!std::isnan(right->number)) {
    const double length = static_cast<double>(left->elements.size());
    index = std::fmod(std::round(right->number), length);
    if (index < 0) index += length;
  }
  return Renamed(left->elements[static_cast<std::size_t>(index)], "");
}

ValuePtr Model::Copy(const ValuePtr& operand, std::string&) { return operand; }

ValuePtr Model::Negate(const ValuePtr& operand, std::string&) {
  return NewScalar("", -operand->number);
}

ValuePtr Model::NegateVector(const ValuePtr& operand, std::string& error) {
  std::vector<ValuePtr> elements;
  for (const ValuePtr& element : operand->elements) {
    elements.push_back(ApplyRightUnary("-", element, error));
    if (!elements.back()) return nullptr;
  }
  return NewVector("", elements);
}

ValuePtr Model::Factorial(const ValuePtr& operand, std::string&) {
  return NewScalar("", FactorialOf(operand->number, kMostFactors));
}

}  // namespace Quarn::model
