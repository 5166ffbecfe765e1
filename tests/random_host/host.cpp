#include "tests/random_host/host.h"

#include <utility>

#include "interpreter/messages.h"
#include "tests/random_host/host_values.h"
#include "types/reference.h"
#include "types/value.h"
#include "types/vector.h"

namespace Quarn::random_host {
namespace {

Host* the_host = nullptr;

template <std::size_t Type>
TypeRow RowOfType() {
  TypeRow row;
  row.create = [](const s_str& name) { return the_host->CreateEmpty(Type, name); };
  row.is_literal = [](std::string_view text) -> s_bool {
    return the_host->IsLiteral(Type, s_str(text));
  };
  row.create_from = [](State&, const s_str& name, const s_str& text, s_str& error) {
    return the_host->CreateFrom(Type, name, text, error);
  };
  // Its calls are counted.
  row.purity = Purity::kImpure;
  return row;
}

TypeRow RowOfType(std::size_t type) {
  static const auto kRows = []<std::size_t... Types>(std::index_sequence<Types...>) {
    return std::array{&RowOfType<Types>...};
  }
  (std::make_index_sequence<kTypes>());
  return kRows[type]();
}

s_ctnr<s_str> TypeList(const std::vector<std::string>& types) {
  s_ctnr<s_str> list;
  for (const std::string& type : types) list.PushBack(type);
  // Empty parentheses are registered as one argument without a type.
  if (types.empty()) list.PushBack("");
  return list;
}

s_refptr<Symbol> LastOf(const Values& values) { return values[values.GetSize() - s_uint(1U)]; }

// A number is given on as a new one: whether it is the same object is nobody's business.
s_refptr<Symbol> GiveOn(const s_refptr<Symbol>& operand) {
  if (operand->GetType() != "Scalar") return operand;
  const s_refptr<Symbol> copy = operand->Clone();
  copy->SetName("");
  return copy;
}

}  // namespace

Host::Host(State& state, const Description& description)
    : state_(state), types_(description.types) {
  the_host = this;
  Add(description);
}

Host::~Host() { the_host = nullptr; }

void Host::Add(const Description& more) {
  for (const LiteralRow& row : more.literals) Add(row);
  for (const OperatorRow& row : more.operators) Add(row);
  for (const FunctionRow& row : more.functions) Add(row);
}

void Host::Add(const LiteralRow& row) {
  LiteralRow& own = literals_[row.type];
  own = row;
  TypeRow type = RowOfType(row.type);
  type.name = types_[row.type].name;
  type.literal_starts = own.texts.starts.c_str();
  if (row.texts.form == LiteralTexts::Form::kNone) type.is_literal = nullptr;
  state_.AddType(type);
}

void Host::Add(const OperatorRow& row) {
  const auto unary = [this, body = row.body](s_refptr<Symbol> operand, s_str& error) {
    return Carry(body, {std::move(operand)}, error);
  };
  switch (row.position) {
    case Position::kBefore:
      return state_.AddRightUnary({
          {row.op, row.left, unary, nullptr, Purity::kImpure}
      });
    case Position::kBehind:
      return state_.AddLeftUnary({
          {row.op, row.left, unary, nullptr, Purity::kImpure}
      });
    case Position::kBinary:
      break;
  }
  const auto binary = [this, body = row.body](s_refptr<Symbol> left, s_refptr<Symbol> right,
                                              s_str& error) {
    return Carry(body, {std::move(left), std::move(right)}, error);
  };
  state_.AddBinary({
      {row.left, row.op, row.right, binary, nullptr, nullptr, Purity::kImpure}
  });
}

void Host::Add(const FunctionRow& row) {
  state_.AddFunction(row.name, TypeList(row.arguments),
                     [this, body = row.body](State&, const Values& arguments, Values& results,
                                             s_str& error) -> s_bool {
                       return Call(body, arguments, results, error);
                     });
}

void Host::Begin() {
  calls_.clear();
  kept_.clear();
}

s_refptr<Symbol> Host::CreateEmpty(std::size_t type, const s_str& name) {
  return NewOfHost(types_[type].name, name, 0);
}

bool Host::IsLiteral(std::size_t type, const s_str& text) const {
  return literals_[type].texts.Accept(text.Get());
}

s_refptr<Symbol> Host::CreateFrom(std::size_t type, const s_str& name, const s_str& text,
                                  s_str& error) {
  const Body body = literals_[type].body;
  const std::string call = Note(body, {text.Get()}, error);
  const s_str own_name = body.name;
  return Do(SelectOutcome(body, call), body, call, own_name.IsEmpty() ? name : own_name, {}, error);
}

std::string Host::Note(const Body& body, const std::vector<std::string>& operands,
                       const s_str& error) {
  const std::string call = CallText(body, operands);
  calls_ += CallLine(call, !error.IsEmpty());
  return call;
}

std::string Host::Note(const Body& body, const Values& operands, const s_str& error) {
  std::vector<std::string> texts;
  for (const s_refptr<Symbol>& operand : operands) texts.push_back(operand->ToString().Get());
  return Note(body, texts, error);
}

s_refptr<Symbol> Host::Carry(const Body& body, const Values& operands, s_str& error) {
  const std::string call = Note(body, operands, error);
  return Do(SelectOutcome(body, call), body, call, body.name, operands, error);
}

bool Host::Call(const Body& body, const Values& arguments, Values& results, s_str& error) {
  const std::string call = Note(body, arguments, error);
  const Outcome outcome = SelectOutcome(body, call);
  if (outcome == Outcome::kNone) return true;
  const s_refptr<Symbol> result = Do(outcome, body, call, body.name, arguments, error);
  if (!result && outcome != Outcome::kNull) return false;
  results.PushBack(result);
  if (outcome == Outcome::kTwo) results.PushBack(result);
  return outcome != Outcome::kTakenBack;
}

s_refptr<Symbol> Host::Do(Outcome outcome, const Body& body, const std::string& call,
                          const s_str& name, const Values& operands, s_str& error) {
  switch (outcome) {
    case Outcome::kFirst:
      if (!operands.IsEmpty()) return GiveOn(operands[0U]);
      break;
    case Outcome::kLast:
      if (!operands.IsEmpty()) return GiveOn(LastOf(operands));
      break;
    case Outcome::kKept:
      if (!kept_[body.label]) kept_[body.label] = New(body, call, body.name, operands);
      return kept_[body.label];
    case Outcome::kReference:
      return s_refptr<Symbol>(new Reference(state_, name, body.reference));
    case Outcome::kEvaluate:
      if (is_evaluating_) break;
      return Alone([&] { return state_.ParseSymbol(name, body.expression, error, false); });
    case Outcome::kApply:
      if (is_evaluating_ || operands.IsEmpty()) break;
      return Alone([&] { return Apply(body, operands, error); });
    case Outcome::kFailure:
      AddError(error, FailureOf(body));
      return {};
    case Outcome::kSilence:
    case Outcome::kNull:
      return {};
    case Outcome::kWarning:
      AddError(error, WarningOf(body));
      break;
    case Outcome::kValue:
    case Outcome::kNone:
    case Outcome::kTwo:
    case Outcome::kTakenBack:
      break;
  }
  return New(body, call, name, operands);
}

s_refptr<Symbol> Host::New(const Body& body, const std::string& call, const s_str& name,
                           const Values& operands) const {
  const std::uint32_t number = NumberOfCall(call);
  if (body.type == "Scalar") return s_refptr<Symbol>(new Scalar(name, double(number)));
  if (body.type == "Vector") {
    return s_refptr<Symbol>(new Vector(name, operands));
  }
  if (body.type != "Symbol") return NewOfHost(body.type, name, number);
  s_refptr<Symbol> symbol(new Symbol("n" + std::to_string(number)));
  symbol->SetName(name);
  return symbol;
}

s_refptr<Symbol> Host::NewOfHost(const std::string& type_name, const s_str& name,
                                 std::uint32_t number) const {
  std::size_t type = 0;
  while (types_[type].name != type_name) ++type;
  const std::string payload = types_[type].mark + std::to_string(number);
  switch (types_[type].value_class) {
    case ValueClass::kHeld:
      return s_refptr<Symbol>(new Held(name, payload));
    case ValueClass::kHeir:
      return s_refptr<Symbol>(new Heir(types_[type], name, payload));
    case ValueClass::kPlain:
    case ValueClass::kChanging:
      break;
  }
  return s_refptr<Symbol>(new Plain(types_[type], name, payload));
}

s_refptr<Symbol> Host::Apply(const Body& body, const Values& operands, s_str& error) {
  if (operands.GetSize() > s_uint(1U)) {
    return state_.ApplyBinaryOperator(body.op, operands[0U], LastOf(operands), error);
  }
  return body.op == "!" ? state_.ApplyLeftUnaryOperator(body.op, operands[0U], error)
                        : state_.ApplyRightUnaryOperator(body.op, operands[0U], error);
}

}  // namespace Quarn::random_host
