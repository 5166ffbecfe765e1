// Expressions: cut, choose, recurse; the leaves, in the order in which they are tried.
#include "tests/random_host/evaluator.h"

#include "tests/model/model_text.h"

namespace Quarn::random_host {
namespace {

using model::ChosenOperator;
using model::CutTopLevel;
using model::Glue;
using model::HasIndexing;
using model::IsAlphanumeric;
using model::PriorityOf;
using model::Separator;
using model::Trim;

// More than any expression here nests, unless it leads back to itself.
constexpr int kMostLevels = 300;

// Where the list behind a "(" ends: at the last parenthesis that closes one of those behind it.
std::size_t EndOfList(const std::string& text, std::size_t open) {
  std::size_t close = text.size();
  int depth = 1;
  for (std::size_t i = open + 1; i < text.size() && depth > 0; ++i) {
    if (text[i] == '(') ++depth;
    if (text[i] != ')') continue;
    --depth;
    close = i;
  }
  return close;
}

}  // namespace

Evaluator::Level::Level(Evaluator& evaluator) : evaluator_(evaluator) {
  if (evaluator.levels_ == kMostLevels) throw Endless("too many levels");
  ++evaluator.levels_;
}

ValuePtr Evaluator::Evaluate(const std::string& name, const std::string& expression,
                             std::string& error, bool allow_new_symbol) {
  const Level level(*this);
  const std::string text = Trim(expression);
  if (text.empty()) return Fail(error, "\tError : Empty symbol");
  std::vector<std::string> pieces;
  if (!CutTopLevel(text, Separator::kOperator, pieces, error)) return nullptr;
  // An operator alone is no operand, even "[]", which looks like an indexing.
  if (pieces.size() > 1 || PriorityOf(text) != 0) return EvaluateOperator(name, pieces, error);
  if (text.front() == '(' && text.back() == ')') {
    return Evaluate(name, text.substr(1, text.size() - 2), error, false);
  }
  return EvaluateLeaf(name, text, error, allow_new_symbol);
}

ValuePtr Evaluator::EvaluateOperator(const std::string& name,
                                     const std::vector<std::string>& pieces, std::string& error) {
  const std::size_t chosen = ChosenOperator(pieces);
  const std::string& op = pieces[chosen];
  const std::string left_text = Glue(pieces, 0, chosen);
  const std::string right_text = Glue(pieces, chosen + 1, pieces.size());
  if (left_text.empty() && right_text.empty()) {
    return Fail(error, "\tError : Operator '" + op + "' is missing its operands");
  }
  ValuePtr left;
  if (!left_text.empty()) {
    left = Evaluate("", left_text, error, false);
    if (!left) return nullptr;
  }
  ValuePtr right;
  if (!right_text.empty()) {
    right = Evaluate("", right_text, error, false);
    if (!right) return nullptr;
  }
  if (!left) return Renamed(ApplyUnary(Position::kBefore, op, right, error), name);
  if (!right) return Renamed(ApplyUnary(Position::kBehind, op, left, error), name);
  return Renamed(ApplyBinary(op, left, right, error), name);
}

ValuePtr Evaluator::EvaluateLeaf(const std::string& name, const std::string& text,
                                 std::string& error, bool allow_new_symbol) {
  ValuePtr value;
  if (EvaluateLiteral(name, text, error, value)) return value;
  if (symbols_.count(text) > 0 || IsAlphanumeric(text)) {
    return EvaluateSymbol(name, text, error, allow_new_symbol);
  }
  if (text.find('(') != std::string::npos) return EvaluateCall(text, error);
  if (HasIndexing(text)) return EvaluateIndexing(name, text, error);
  return Fail(error, "\tError : Unable to parse expression '" + text + "', no operator found");
}

// False when the text is no literal.
bool Evaluator::EvaluateLiteral(const std::string& name, const std::string& text,
                                std::string& error, ValuePtr& value) {
  std::string candidates;
  std::vector<const Constructor*> constructors;
  for (const auto& [type, literal] : literals_) {
    if (!literal.accept(text)) continue;
    candidates += (constructors.empty() ? "" : ", ") + type;
    constructors.push_back(&literal.create);
  }
  if (constructors.empty()) return false;
  if (constructors.size() == 1) {
    const Constructor create = *constructors.front();
    value = create(name, text, error);
  } else {
    value = Fail(error, "\tError : Ambiguous constructor : '" + text +
                            "'.\n\t        Possible candidates : " + candidates);
  }
  return true;
}

ValuePtr Evaluator::EvaluateSymbol(const std::string& name, const std::string& text,
                                   std::string& error, bool allow_new_symbol) {
  const auto symbol = symbols_.find(text);
  if (symbol != symbols_.end()) {
    const ValuePtr copy = Copied(symbol->second, name);
    // Asking the type evaluates a reference, so nobody asks when the answer does not matter.
    if (!name.empty() && TypeOf(copy) == "Symbol") {
      Fail(error, "\tWarning : 'Symbol=Symbol' does nothing");
    }
    return copy;
  }
  if (name.empty() && allow_new_symbol) return NewSymbol(text, text);
  return Fail(error, "\tError : Unknown symbol '" + text + "'");
}

ValuePtr Evaluator::EvaluateCall(const std::string& text, std::string& error) {
  const std::size_t open = text.find('(');
  const std::string function = Trim(text.substr(0, open));
  if (functions_.count(function) == 0) {
    return Fail(error, "\tError : Undefined function '" + function + "'");
  }
  // What stands behind the list is not looked at.
  const std::string list = text.substr(open + 1, EndOfList(text, open) - open - 1);
  std::vector<std::string> parts;
  if (!CutTopLevel(list, Separator::kComma, parts, error)) return nullptr;
  Values arguments;
  for (const std::string& part : parts) {
    arguments.push_back(Evaluate("", part, error, false));
    if (!arguments.back()) return nullptr;
  }
  return Call(function, arguments, error);
}

// References are resolved once each; one to nothing stays what it is.
ValuePtr Evaluator::Call(const std::string& function, Values arguments, std::string& error) {
  std::string types;
  for (ValuePtr& argument : arguments) {
    const ValuePtr resolved = Resolve(argument);
    if (&argument != &arguments.front()) types += ", ";
    types += resolved ? TypeOf(resolved) : "Reference";
    if (resolved) argument = resolved;
  }
  const std::string signature = "(" + types + ")";
  const auto& overloads = functions_[function];
  const auto overload = overloads.find(signature);
  if (overload == overloads.end()) {
    std::string message = "\tError : No matching function call to :\n\t\t  " + function +
                          signature + "\n\t\tPossible candidates :";
    for (const auto& [candidate, body] : overloads) message += "\n\t\t  " + function + candidate;
    return Fail(error, message);
  }
  Values results;
  const Function body = overload->second;
  if (!body(arguments, results, error)) return nullptr;
  if (results.size() == 1) return results.front();
  return Fail(error, "\tError : Multiple return values for function is not yet supported");
}

// What stands behind the second bracket is not looked at.
ValuePtr Evaluator::EvaluateIndexing(const std::string& name, const std::string& text,
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
  return Renamed(ApplyBinary("[]", object, index, error), name);
}

}  // namespace Quarn::random_host
