// What every State has registered, and what Vector registers.
#include <cmath>

#include "tests/model/model_text.h"
#include "tests/random_host/evaluator.h"

namespace Quarn::random_host {
namespace {

double Factorial(double x, int factors) {
  if (std::abs(x - 1) < 0.1) return 1;
  if (factors == 0) throw Endless("a factorial");
  return std::round(x) * Factorial(x - 1, factors - 1);
}

ValuePtr SelectElement(const ValuePtr& vector, double index, std::string& error) {
  if (vector->elements.empty()) return Fail(error, "\tError : Cannot index an empty Vector");
  if (std::isinf(index)) throw Endless("an index");
  const double length = static_cast<double>(vector->elements.size());
  double place = std::isnan(index) ? 0 : std::fmod(std::round(index), length);
  if (place < 0) place += length;
  return Copied(vector->elements[static_cast<std::size_t>(place)], "");
}

std::string FullType(const ValuePtr& value, const std::string& type) {
  if (value->kind == Kind::kVector) return std::to_string(value->elements.size()) + "-Vector";
  return value->kind == Kind::kHost ? FullTypeOf(*value->type, value->text) : type;
}

}  // namespace

void Evaluator::AddLiterals() {
  literals_["Scalar"] = {model::IsNumber,
                         [](const std::string& name, const std::string& text, std::string&) {
                           return NewScalar(name, model::ReadNumber(text));
                         }};
  literals_["Reference"] = {[](const std::string& text) { return text.starts_with('&'); },
                            [](const std::string& name, const std::string& text, std::string&) {
                              return NewReference(name, model::Trim(text.substr(1)));
                            }};
  literals_["Vector"] = {
      [](const std::string& text) { return text.starts_with('<') && text.ends_with('>'); },
      [this](const std::string& name, const std::string& text, std::string& error) {
        return EvaluateVector(name, text.substr(1, text.size() - 2), error);
      }};
}

ValuePtr Evaluator::EvaluateVector(const std::string& name, const std::string& text,
                                   std::string& error) {
  const auto mixing = [&](const std::string& first, const std::string& second) {
    return Fail(error,
                "\tError : Non-homogeneous Vectors are not allowed.\n"
                "\t        Trying to mix " +
                    first + " with " + second);
  };
  std::vector<std::string> parts;
  if (!model::CutTopLevel(text, model::Separator::kComma, parts, error)) return nullptr;
  Values elements;
  std::string type;
  for (const std::string& part : parts) {
    const ValuePtr element = Evaluate("", part, error, false);
    if (!element) return nullptr;
    elements.push_back(element);
    if (element->kind == Kind::kReference) continue;
    const std::string full_type = FullType(element, TypeOf(element));
    if (type.empty()) type = full_type;
    if (type != full_type) return mixing(type, full_type);
  }
  for (const ValuePtr& element : elements) {
    if (element->kind != Kind::kReference) continue;
    const std::string current = TypeOf(element);
    if (current != type) return mixing(type, current);
  }
  return NewVector(name, elements);
}

void Evaluator::AddArithmetic() {
  const auto lift = [](auto f) -> Operator {
    return [f](const Values& operands, std::string&) {
      return NewScalar("", f(operands.front()->number, operands.back()->number));
    };
  };
  binary_["*"]["Scalar"]["Scalar"] = lift([](double a, double b) { return a * b; });
  binary_["/"]["Scalar"]["Scalar"] = lift([](double a, double b) { return a / b; });
  binary_["+"]["Scalar"]["Scalar"] = lift([](double a, double b) { return a + b; });
  binary_["-"]["Scalar"]["Scalar"] = lift([](double a, double b) { return a - b; });
  auto& before = unary_[Position::kBefore];
  before["-"]["Scalar"] = lift([](double a, double) { return -a; });
  before["!"]["Scalar"] = lift([](double a, double) { return Factorial(a, 200); });
  before["+"]["Scalar"] = before["+"]["Vector"] = [](const Values& operands, std::string&) {
    return Copied(operands.front(), operands.front()->name);
  };
}

void Evaluator::AddVectorOperators() {
  binary_["*"]["Scalar"]["Vector"] = [this](const Values& operands, std::string& error) {
    return MapElements(operands[1], error, [&](const Values& element, std::string&) {
      return ApplyBinary("*", operands[0], element[0], error);
    });
  };
  binary_["*"]["Vector"]["Scalar"] = [this](const Values& operands, std::string& error) {
    return MapElements(operands[0], error, [&](const Values& element, std::string&) {
      return ApplyBinary("*", element[0], operands[1], error);
    });
  };
  unary_[Position::kBefore]["-"]["Vector"] = [this](const Values& operands, std::string& error) {
    return MapElements(operands[0], error, [&](const Values& element, std::string&) {
      return ApplyUnary(Position::kBefore, "-", element[0], error);
    });
  };
  for (const std::string op : {"+", "-"}) {
    binary_[op]["Vector"]["Vector"] = [this, op](const Values& operands, std::string& error) {
      return Pairwise(op, operands, error);
    };
  }
  binary_["^"]["Vector"]["Vector"] = [this](const Values& operands, std::string& error) {
    return Cross(operands, error);
  };
  binary_["[]"]["Vector"]["Scalar"] = [](const Values& operands, std::string& error) {
    return SelectElement(operands[0], operands[1]->number, error);
  };
}

ValuePtr Evaluator::MapElements(const ValuePtr& vector, std::string& error, const Operator& f) {
  Values elements;
  for (const ValuePtr& element : vector->elements) {
    elements.push_back(f({element}, error));
    if (!elements.back()) return nullptr;
  }
  return NewVector("", elements);
}

ValuePtr Evaluator::Pairwise(const std::string& op, const Values& operands, std::string& error) {
  const Values& right = operands[1]->elements;
  const std::size_t length = operands[0]->elements.size();
  if (length != right.size()) {
    return Fail(error, "\tError : Cannot " + std::string(op == "+" ? "add" : "substract") +
                           " two Vectors of different length (" + std::to_string(length) + " and " +
                           std::to_string(right.size()) + ")");
  }
  auto other = right.begin();
  return MapElements(operands[0], error, [&](const Values& element, std::string&) {
    return ApplyBinary(op, element[0], *other++, error);
  });
}

ValuePtr Evaluator::Cross(const Values& operands, std::string& error) {
  const Values& a = operands[0]->elements;
  const Values& b = operands[1]->elements;
  if (a.size() != 3 || b.size() != 3) {
    return Fail(error, "\tError : The cross product '^' is only available for 3-Vectors");
  }
  Values components;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t j = (i + 1) % 3;
    const std::size_t k = (i + 2) % 3;
    const ValuePtr first = ApplyBinary("*", a[j], b[k], error);
    if (!first) return nullptr;
    const ValuePtr second = ApplyBinary("*", a[k], b[j], error);
    if (!second) return nullptr;
    components.push_back(ApplyBinary("-", first, second, error));
    if (!components.back()) return nullptr;
  }
  return NewVector("", components);
}

void Evaluator::AddFunctions() {
  const auto lift = [](auto f) -> Function {
    return [f](const Values& arguments, Values& results, std::string&) {
      results.push_back(NewScalar("", f(arguments.front()->number, arguments.back()->number)));
      return true;
    };
  };
  functions_["min"]["(Scalar, Scalar)"] = lift([](double a, double b) { return a >= b ? b : a; });
  functions_["max"]["(Scalar, Scalar)"] = lift([](double a, double b) { return b >= a ? b : a; });
  functions_["round"]["(Scalar)"] = lift([](double a, double) { return std::round(a); });
}

}  // namespace Quarn::random_host
