#include "interpreter/expression.h"

#include <algorithm>
#include <utility>

#include "interpreter/core.h"
#include "interpreter/messages.h"
#include "interpreter/names.h"
#include "interpreter/number_program.h"

namespace Quarn {

namespace {

// What a reference stands for; itself, if for nothing.
Operand Follow(const Symbol& reference) {
  const CellPtr cell = GetCell(reference);
  const Answer answer = cell ? cell->Follow() : Answer();
  return answer.outcome == Outcome::kValue ? answer.value : Operand::CopyOf(reference);
}

// Why it stands for nothing.
Result Explain(Machine& machine, const Symbol& reference) {
  const CellPtr cell = GetCell(reference);
  if (cell) return machine.Evaluate(*cell);
  return {{}, messages::EmptySymbol().Take(), {}, Failure::kForm};
}

// May a symbol bear the name, and an expression ask for it?
bool IsNameOfSymbol(const Registries& registries, std::string_view name) {
  return IsAlphanumeric(name) && registries.IsWithinReach(name);
}

}  // namespace

// ---- Expressions ----

struct Expression::Body {
  Body(Core& owner, std::string_view expression) : core(owner), text(expression) { Read(); }
  ~Body() { program.Release(core.symbols); }
  Body(const Body&) = delete;
  Body& operator=(const Body&) = delete;

  void Read();
  bool RunOnNumbers(double& number) const;
  bool Evaluate(Operand& value, Result& failure);

  Core& core;
  const std::string text;
  Program program;
  NumberProgram on_numbers;
  unsigned int version = 0;
  Result mistake;
};

void Expression::Body::Read() {
  program.Release(core.symbols);
  core.machine.Read(text, program);
  on_numbers = NumberProgram(program, core.registries);
  version = core.registries.GetVersion();
  mistake = {};
  const Instruction& last = program.code.back();
  if (last.code != Code::kFail) return;
  const Program::Extra& extra = *program.extra;
  mistake = {{}, extra.message.Get(), extra.place, extra.failure};
}

// As many steps as in the machine, which tells what happens when there are too few.
bool Expression::Body::RunOnNumbers(double& number) const {
  if (version != core.registries.GetVersion()) return false;
  Budget& budget = core.machine.GetBudget();
  if (!budget.HasSteps()) return on_numbers.Run(number);
  const std::size_t steps = program.code.size();
  if (!budget.Fits(steps) || !on_numbers.Run(number)) return false;
  budget.Take(steps);
  return true;
}

bool Expression::Body::Evaluate(Operand& value, Result& failure) {
  double number = 0;
  if (RunOnNumbers(number)) {
    value = Operand(number);
    return true;
  }
  if (version != core.registries.GetVersion()) Read();
  return core.machine.Evaluate(program, text, value, failure);
}

Expression::Expression(Core& core, std::string_view text) : body_(new Body(core, text)) {}
Expression::Expression(Expression&&) noexcept = default;
Expression& Expression::operator=(Expression&&) noexcept = default;
Expression::~Expression() = default;

const Result& Expression::GetMistake() const { return body_->mistake; }
bool Expression::IsWellFormed() const { return body_->mistake.failure == Failure::kNone; }
const std::string& Expression::GetText() const { return body_->text; }

std::vector<std::string> Expression::GetNames() const {
  std::vector<std::string> names;
  for (const Instruction& instruction : body_->program.code) {
    if (instruction.code != Code::kName && instruction.code != Code::kBinaryName) continue;
    const std::string& name = instruction.name->text.Get();
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  return names;
}

Result Expression::Evaluate() {
  Operand value;
  Result failure;
  if (!body_->Evaluate(value, failure)) return failure;
  return {value.Take(), {}};
}

std::optional<double> Expression::EvaluateNumber() {
  double number = 0;
  if (body_->RunOnNumbers(number)) return number;
  Result otherwise;
  return EvaluateNumber(otherwise);
}

std::optional<double> Expression::EvaluateNumber(Result& otherwise) {
  double number = 0;
  if (body_->RunOnNumbers(number)) return number;
  Operand value;
  if (!body_->Evaluate(value, otherwise)) return {};
  if (value.IsReference()) value = Follow(*value.GetValue());
  if (value.IsNumber()) return value.GetNumber();
  otherwise = value.IsReference() ? Explain(body_->core.machine, *value.GetValue())
                                  : Result{value.Take(), {}};
  return {};
}

// ---- Variables ----

Variable::Variable(Core& core, std::string_view name)
    : core_(&core),
      name_(IsNameOfSymbol(core.registries, name) ? core.symbols.Bind(name) : nullptr) {}

Variable::Variable(Variable&& other) noexcept
    : core_(other.core_), name_(std::exchange(other.name_, nullptr)) {}

Variable& Variable::operator=(Variable&& other) noexcept {
  std::swap(core_, other.core_);
  std::swap(name_, other.name_);
  return *this;
}

Variable::~Variable() {
  if (name_) core_->symbols.Release(*name_);
}

void Variable::Set(double number) {
  if (name_) core_->symbols.SetNumber(*name_, number);
}

std::optional<double> Variable::Get() const {
  if (!name_) return {};
  if (name_->IsNumber()) return name_->number;
  const s_refptr<Symbol>& object = name_->object;
  if (!object || object->GetKind() != Symbol::Kind::kNumber) return {};
  return Operand::CopyOf(*object).GetNumber();
}

}  // namespace Quarn
