#include <cstddef>
#include <string>
#include <vector>

#include "tests/model/model.h"
#include "tests/model/model_frame.h"
#include "tests/model/model_text.h"

namespace Quarn::model {
namespace {

ValuePtr Fail(std::string& error, const std::string& message) {
  AddError(error, message);
  return nullptr;
}

bool Begins(const std::string& text, char c) { return !text.empty() && text.front() == c; }

bool IsWrapped(const std::string& text, char first, char last) {
  return Begins(text, first) && text.back() == last;
}

std::string Inside(const std::string& text) { return text.substr(1, text.size() - 2); }

std::string MixingMessage(const std::string& first, const std::string& second) {
  return "\tError : Non-homogeneous Vectors are not allowed.\n\t        Trying to mix " + first +
         " with " + second;
}

std::string FullType(const ValuePtr& value) {
  const std::string type = OwnType(value->kind);
  if (value->kind != Kind::kVector) return type;
  return std::to_string(value->elements.size()) + "-" + type;
}

}  // namespace

ValuePtr Model::Evaluate(const std::string& name, const std::string& expression, std::string& error,
                         bool allow_new_symbol) {
  const Frame frame(*this, expression);
  const std::string text = Trim(expression);
  if (text.empty()) return Fail(error, "\tError : Empty symbol");
  std::vector<std::string> pieces;
  if (!CutTopLevel(text, Separator::kOperator, pieces, error)) return nullptr;
  // An operator alone is no operand, even "[]", which looks like an indexing.
  if (pieces.size() == 1 && PriorityOf(text) == 0) {
    return EvaluateLeaf(name, text, error, allow_new_symbol);
  }
  return EvaluateOperator(name, pieces, error);
}

// The order of the questions decides: "(", a literal, a symbol, a call, an indexing.
ValuePtr Model::EvaluateLeaf(const std::string& name, const std::string& text, std::string& error,
                             bool allow_new_symbol) {
  if (IsWrapped(text, '(', ')')) return Evaluate(name, Inside(text), error, false);
  if (Begins(text, '&')) return NewReference(name, Trim(text.substr(1)));
  if (IsNumber(text)) return NewScalar(name, ReadNumber(text));
  if (IsWrapped(text, '<', '>')) return EvaluateVector(name, Inside(text), error);
  const auto symbol = symbols_.find(text);
  if (symbol != symbols_.end()) return EvaluateKnown(name, symbol->second, error);
  if (IsAlphanumeric(text)) {
    if (name.empty() && allow_new_symbol) return NewSymbol(text);
    return Fail(error, "\tError : Unknown symbol '" + text + "'");
  }
  if (text.find('(') != std::string::npos) return EvaluateCall(text, error);
  if (HasIndexing(text)) return EvaluateIndexing(name, text, error);
  return Fail(error, "\tError : Unable to parse expression '" + text + "', no operator found");
}

ValuePtr Model::EvaluateKnown(const std::string& name, const ValuePtr& symbol, std::string& error) {
  // Asking the type evaluates a reference, so nobody asks when the answer does not matter.
  if (!name.empty() && TypeOf(symbol) == "Symbol") {
    AddError(error, "\tWarning : 'Symbol=Symbol' does nothing");
  }
  return Renamed(symbol, name);
}

// What stands behind the second bracket is not looked at.
ValuePtr Model::EvaluateIndexing(const std::string& name, const std::string& text,
                                 std::string& error) {
  const std::size_t open = text.find('[');
  const std::size_t close = text.find(']');
  if (close == open + 1) {
    return Fail(error, "\tError : Illegal use of '[.]' with empty argument");
  }
  if (open == 0) return Fail(error, "\tError : Illegal use of '[.]' on empty object");
  const ValuePtr object = Evaluate("", text.substr(0, open), error, false);
  if (!object) return nullptr;
  const ValuePtr index = Evaluate("", text.substr(open + 1, close - open - 1), error, false);
  if (!index) return nullptr;
  const ValuePtr element = ApplyBinary("[]", object, index, error);
  return element ? Renamed(element, name) : nullptr;
}

ValuePtr Model::EvaluateOperator(const std::string& name, const std::vector<std::string>& pieces,
                                 std::string& error) {
  const std::size_t chosen = ChosenOperator(pieces);
  const std::string& op = pieces[chosen];
  const std::string left_text = Glue(pieces, 0, chosen);
  const std::string right_text = Glue(pieces, chosen + 1, pieces.size());
  if (left_text.empty() && right_text.empty()) {
    return Fail(error, "\tError : Operator '" + op + "' is missing its operands");
  }
  ValuePtr left;
  ValuePtr right;
  if (!left_text.empty()) {
    left = Evaluate("", left_text, error, false);
    if (!left) return nullptr;
  }
  if (!right_text.empty()) {
    right = Evaluate("", right_text, error, false);
    if (!right) return nullptr;
  }
  ValuePtr result;
  if (!left) {
    result = ApplyRightUnary(op, right, error);
  } else if (!right) {
    result = ApplyLeftUnary(op, left, error);
  } else {
    result = ApplyBinary(op, left, right, error);
  }
  return result ? Renamed(result, name) : nullptr;
}

ValuePtr Model::EvaluateVector(const std::string& name, const std::string& text,
                               std::string& error) {
  std::vector<std::string> parts;
  if (!CutTopLevel(text, Separator::kComma, parts, error)) return nullptr;
  std::vector<ValuePtr> elements;
  std::string type;
  for (const std::string& part : parts) {
    const ValuePtr element = Evaluate("", Trim(part), error, false);
    if (!element) return nullptr;
    elements.push_back(element);
    if (IsReference(element)) continue;
    if (type.empty()) type = FullType(element);
    if (type != FullType(element)) return Fail(error, MixingMessage(type, FullType(element)));
  }
  if (!CheckReferences(elements, type, error)) return nullptr;
  return NewVector(name, elements);
}

// References are compared by the type of what they yield now, and only when all elements are
// there. A vector yields "Vector", which is never the type of a vector with its length.
bool Model::CheckReferences(const std::vector<ValuePtr>& elements, const std::string& type,
                            std::string& error) {
  for (const ValuePtr& element : elements) {
    if (!IsReference(element)) continue;
    const std::string current = TypeOf(element);
    if (current == type) continue;
    AddError(error, MixingMessage(type, current));
    return false;
  }
  return true;
}

}  // namespace Quarn::model
