// The host's rows and bodies, and the values.
#include "tests/model/model_text.h"
#include "tests/random_host/evaluator.h"

namespace Quarn::random_host {

Evaluator::Evaluator(const Description& description) : types_(description.types) {
  AddLiterals();
  AddArithmetic();
  AddVectorOperators();
  AddFunctions();
  Add(description);
}

void Evaluator::Add(const Description& more) {
  for (const LiteralRow& row : more.literals) Add(row);
  for (const OperatorRow& row : more.operators) Add(row);
  for (const FunctionRow& row : more.functions) Add(row);
}

void Evaluator::Add(const LiteralRow& row) {
  literals_[types_[row.type].name] = {
      [texts = row.texts](const std::string& text) {
        return texts.MayBegin(text) && texts.Accept(text);
      },
      [this, body = row.body](const std::string& name, const std::string& text,
                              std::string& error) { return CreateFrom(body, name, text, error); }};
}

void Evaluator::Add(const OperatorRow& row) {
  const Operator carry = [this, body = row.body](const Values& operands, std::string& error) {
    return Carry(body, operands, error);
  };
  if (row.position == Position::kBinary) {
    binary_[row.op][row.left][row.right] = carry;
  } else {
    unary_[row.position][row.op][row.left] = carry;
  }
}

void Evaluator::Add(const FunctionRow& row) {
  std::string types;
  for (const std::string& type : row.arguments) types += (types.empty() ? "" : ", ") + type;
  functions_[row.name]["(" + types + ")"] =
      [this, body = row.body](const Values& arguments, Values& results, std::string& error) {
        return CallBody(body, arguments, results, error);
      };
}

void Evaluator::Begin() {
  calls_.clear();
  kept_.clear();
  levels_ = 0;
  is_evaluating_ = false;
}

void Evaluator::SetSymbol(const std::string& name, const ValuePtr& value) {
  symbols_[name] = Copied(value, name);
}

void Evaluator::SetReference(const std::string& name, const std::string& expression) {
  symbols_[name] = NewReference(name, expression);
}

std::string Evaluator::Note(const Body& body, const std::vector<std::string>& operands,
                            const std::string& error) {
  const std::string call = CallText(body, operands);
  calls_ += CallLine(call, !error.empty());
  return call;
}

std::string Evaluator::Note(const Body& body, const Values& operands, const std::string& error) {
  std::vector<std::string> texts;
  for (const ValuePtr& operand : operands) texts.push_back(TextOf(operand));
  return Note(body, texts, error);
}

ValuePtr Evaluator::CreateFrom(const Body& body, const std::string& name, const std::string& text,
                               std::string& error) {
  const std::string call = Note(body, std::vector<std::string>{text}, error);
  return Do(SelectOutcome(body, call), body, call, body.name.empty() ? name : body.name, {}, error);
}

ValuePtr Evaluator::Carry(const Body& body, const Values& operands, std::string& error) {
  const std::string call = Note(body, operands, error);
  return Do(SelectOutcome(body, call), body, call, body.name, operands, error);
}

bool Evaluator::CallBody(const Body& body, const Values& arguments, Values& results,
                         std::string& error) {
  const std::string call = Note(body, arguments, error);
  const Outcome outcome = SelectOutcome(body, call);
  if (outcome == Outcome::kNone) return true;
  const ValuePtr result = Do(outcome, body, call, body.name, arguments, error);
  if (!result && outcome != Outcome::kNull) return false;
  results.assign(outcome == Outcome::kTwo ? 2 : 1, result);
  return outcome != Outcome::kTakenBack;
}

ValuePtr Evaluator::Do(Outcome outcome, const Body& body, const std::string& call,
                       const std::string& name, const Values& operands, std::string& error) {
  const bool has_operand = !operands.empty();
  const bool is_first = outcome == Outcome::kFirst;
  if (has_operand && (is_first || outcome == Outcome::kLast)) {
    const ValuePtr operand = is_first ? operands.front() : operands.back();
    return operand->kind == Kind::kScalar ? Copied(operand, "") : operand;
  }
  if (outcome == Outcome::kKept) {
    if (!kept_[body.label]) kept_[body.label] = New(body, call, body.name, operands);
    return kept_[body.label];
  }
  if (outcome == Outcome::kReference) return NewReference(name, body.reference);
  const bool applies = outcome == Outcome::kApply && has_operand;
  if ((outcome == Outcome::kEvaluate || applies) && !is_evaluating_) {
    is_evaluating_ = true;
    const ValuePtr value =
        applies ? Apply(body.op, operands, error) : Evaluate(name, body.expression, error, false);
    is_evaluating_ = false;
    return value;
  }
  if (outcome == Outcome::kFailure) return Fail(error, FailureOf(body));
  if (outcome == Outcome::kSilence || outcome == Outcome::kNull) return nullptr;
  if (outcome == Outcome::kWarning) Fail(error, WarningOf(body));
  return New(body, call, name, operands);
}

ValuePtr Evaluator::Apply(const std::string& op, const Values& operands, std::string& error) {
  if (operands.size() > 1) return ApplyBinary(op, operands.front(), operands.back(), error);
  const Position position = op == "!" ? Position::kBehind : Position::kBefore;
  return ApplyUnary(position, op, operands.front(), error);
}

ValuePtr Evaluator::New(const Body& body, const std::string& call, const std::string& name,
                        const Values& operands) const {
  const std::uint32_t number = NumberOfCall(call);
  if (body.type == "Scalar") return NewScalar(name, number);
  if (body.type == "Vector") return NewVector(name, operands);
  if (body.type == "Symbol") return NewSymbol(name, "n" + std::to_string(number));
  std::size_t type = 0;
  while (types_[type].name != body.type) ++type;
  const ValuePtr value = NewSymbol(name, types_[type].mark + std::to_string(number));
  value->kind = Kind::kHost;
  value->type = &types_[type];
  return value;
}

ValuePtr NewSymbol(const std::string& name, const std::string& text) {
  const auto value = std::make_shared<Value>();
  value->name = name;
  value->text = text;
  return value;
}

ValuePtr NewScalar(const std::string& name, double number) {
  const ValuePtr value = NewSymbol(name, "");
  value->kind = Kind::kScalar;
  value->number = number;
  return value;
}

ValuePtr NewVector(const std::string& name, const std::vector<ValuePtr>& elements) {
  const ValuePtr value = NewSymbol(name, "");
  value->kind = Kind::kVector;
  value->elements = elements;
  return value;
}

ValuePtr NewReference(const std::string& name, const std::string& expression) {
  const ValuePtr value = NewSymbol(name, expression);
  value->kind = Kind::kReference;
  return value;
}

ValuePtr Renamed(const ValuePtr& value, const std::string& name) {
  if (value) value->name = name;
  return value;
}

ValuePtr Copied(const ValuePtr& value, const std::string& name) {
  return Renamed(std::make_shared<Value>(*value), name);
}

ValuePtr Fail(std::string& error, const std::string& message) {
  model::AddError(error, message);
  return nullptr;
}

}  // namespace Quarn::random_host
