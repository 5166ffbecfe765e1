#include "interpreter/state.h"

#include <iostream>

#include "interpreter/builtins.h"
#include "interpreter/core.h"
#include "interpreter/messages.h"
#include "interpreter/names.h"

namespace Quarn {
namespace {

s_refptr<Symbol> CreateSymbol(const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); }

// A State may be made before main, and before the object of this file that sets the streams up.
std::ostream& StandardOutput() {
  static const std::ios_base::Init streams;
  return std::cout;
}

}  // namespace

State::State() : State(StandardOutput(), std::cin) {}

State::State(std::ostream& out, std::istream& in) : core_(new Core(*this, out, in)) {
  AddType({Symbol::kType, CreateSymbol});
  RegisterBuiltins(*this);
  core_->commands.ForgetLastResult();
}

State::~State() = default;

// ---- Lines ----

void State::ProcessLine(const s_str& line) { core_->commands.ProcessLine(line.GetView()); }
const Result& State::GetFailure() const { return core_->commands.GetFailure(); }

void State::Flush() { core_->commands.Flush(); }
void State::PrintHelp() { core_->commands.PrintHelp(); }

s_bool State::CheckName(std::string_view name, s_str& error) {
  if (IsAlphanumeric(name)) return true;
  AddError(error, name == SymbolTable::kLastResult ? messages::LastResultNotAssignable()
                                                   : messages::OnlyAlphanumericNames(name));
  return false;
}

// ---- Expressions ----

s_refptr<Symbol> State::ParseSymbol(const s_str& name, s_str expression, s_str& error,
                                    s_bool allow_new_symbol) {
  Evaluated result;
  Diagnosis diagnosis;
  const bool allows_new = allow_new_symbol ? true : false;
  if (!core_->machine.Evaluate(expression.GetView(), name, allows_new, result, error, diagnosis)) {
    return {};
  }
  if (!result.value.IsNumber()) return result.value.GetValue();
  return NewNumber(result.is_named ? name : Symbol::NoName(), result.value.GetNumber());
}

s_refptr<Symbol> State::ApplyBinaryOperator(std::string_view op, s_refptr<Symbol> left,
                                            s_refptr<Symbol> right, s_str& error) {
  return core_->machine.ApplyBinary(op, std::move(left), std::move(right), error);
}

s_refptr<Symbol> State::ApplyRightUnaryOperator(std::string_view op, s_refptr<Symbol> operand,
                                                s_str& error) {
  return core_->machine.ApplyUnary(Code::kRightUnary, op, std::move(operand), error);
}

s_refptr<Symbol> State::ApplyLeftUnaryOperator(std::string_view op, s_refptr<Symbol> operand,
                                               s_str& error) {
  return core_->machine.ApplyUnary(Code::kLeftUnary, op, std::move(operand), error);
}

// ---- For a host program ----

Expression State::Prepare(std::string_view text) { return {*core_, text}; }
Variable State::GetVariable(std::string_view name) { return {*core_, name}; }

Result State::Compute(std::string_view expression) {
  s_str error;
  Evaluated result;
  Diagnosis diagnosis;
  if (!core_->machine.Evaluate(expression, Symbol::NoName(), false, result, error, diagnosis)) {
    return {{}, error.Take(), diagnosis.place, diagnosis.failure};
  }
  return {result.value.Take(), {}};
}

s_refptr<Symbol> State::GetSymbol(std::string_view name) const {
  Name* symbol = core_->symbols.Find(name);
  return symbol ? core_->symbols.GetObject(*symbol) : s_refptr<Symbol>();
}

Result State::SetSymbol(std::string_view name, const s_refptr<Symbol>& value) {
  s_str error;
  if (!CheckName(name, error)) return {{}, error.Take(), {}, Failure::kForm};
  if (!core_->registries.IsWithinReach(name)) {
    return {{}, messages::NameOutOfReach(name).Take(), {}, Failure::kForm};
  }
  if (!value) return {{}, messages::NoValueToSet(name).Take(), {}, Failure::kValue};
  s_refptr<Symbol> symbol = value->Clone();
  symbol->SetName(s_str(name));
  core_->symbols.Set(name, symbol);
  return {std::move(symbol), {}};
}

Result State::SetReference(std::string_view name, std::string_view expression) {
  return SetSymbol(name, core_->machine.NewReference(Symbol::NoName(), expression));
}

bool State::EraseSymbol(std::string_view name) {
  if (name == SymbolTable::kLastResult || !core_->symbols.Contains(name)) return false;
  core_->symbols.Erase(name);
  return true;
}

void State::SetLimits(const Limits& limits) { core_->machine.GetBudget().SetLimits(limits); }
const Limits& State::GetLimits() const { return core_->machine.GetBudget().GetLimits(); }
void State::Interrupt() { core_->machine.GetBudget().Interrupt(); }
bool State::Spend(std::uint64_t steps) {
  return core_->machine.IsIdle() || core_->machine.Spend(steps);
}

// ---- Registration ----

void State::AddType(const TypeRow& row) { core_->registries.AddType(row); }

void State::AddBinary(std::initializer_list<BinaryRow> rows) {
  for (const BinaryRow& row : rows) core_->registries.AddBinary(row);
}

void State::AddRightUnary(std::initializer_list<UnaryRow> rows) {
  for (const UnaryRow& row : rows) core_->registries.AddRightUnary(row);
}

void State::AddLeftUnary(std::initializer_list<UnaryRow> rows) {
  for (const UnaryRow& row : rows) core_->registries.AddLeftUnary(row);
}

void State::AddFunctions(std::initializer_list<FunctionRow> rows) {
  for (const FunctionRow& row : rows) core_->registries.AddFunction(row);
}

void State::AddFunction(const s_str& name, const s_ctnr<s_str>& argument_types, Function body) {
  core_->registries.AddFunction({name, argument_types, std::move(body)});
}

// ---- What it holds ----

s_ctnr<s_str> State::GetSymbolNames() const { return core_->symbols.GetNames(); }
const Registry<TypeRow>& State::GetTypes() const { return core_->registries.GetTypes(); }
const BinaryRegistry& State::GetBinaryOperators() const {
  return core_->registries.GetBinaryOperators();
}
const UnaryRegistry& State::GetLeftUnaryOperators() const {
  return core_->registries.GetLeftUnaryOperators();
}
const UnaryRegistry& State::GetRightUnaryOperators() const {
  return core_->registries.GetRightUnaryOperators();
}
const FunctionRegistry& State::GetFunctions() const { return core_->registries.GetFunctions(); }

void State::SetLastResult(s_refptr<Symbol> value) {
  if (!value) return core_->commands.ForgetLastResult();
  Operand result;
  result.SetObject(std::move(value));
  core_->symbols.SetLastResult(result);
}

}  // namespace Quarn
