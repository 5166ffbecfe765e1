// Prepared expressions and variables in C.
#include <optional>
#include <string>
#include <vector>

#include "c/handles.h"

using Quarn::Bound;
using Quarn::Expression;
using Quarn::Guarded;
using Quarn::HandOut;
using Quarn::Result;
using Quarn::Variable;

// An expression, and the name that it was asked for last.
struct mirlow_expression final : Bound {
  mirlow_expression(mirlow_state& owner, Expression&& prepared)
      : Bound(owner), expression(std::move(prepared)) {}
  void Drop() override { expression.reset(); }

  std::optional<Expression> expression;
  std::string name;
};

struct mirlow_variable final : Bound {
  mirlow_variable(mirlow_state& owner, Variable&& of_symbol)
      : Bound(owner), variable(std::move(of_symbol)) {}
  void Drop() override { variable.reset(); }

  std::optional<Variable> variable;
};

namespace Quarn {

Bound::Bound(mirlow_state& state) : state_(&state), next_(state.bound) {
  state.bound = this;
  if (next_) next_->previous_ = this;
}

Bound::~Bound() {
  if (!state_) return;
  (previous_ ? previous_->next_ : state_->bound) = next_;
  if (next_) next_->previous_ = previous_;
}

void Bound::CutOff() {
  state_->bound = next_;
  if (next_) next_->previous_ = nullptr;
  state_ = nullptr;
  Drop();
}

}  // namespace Quarn

// ---- Expressions ----

mirlow_status mirlow_prepare(mirlow_state* state, const char* text,
                             mirlow_expression** expression) {
  if (!state || !text || !expression) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    Expression prepared = state->state.Prepare(text);
    if (!prepared.IsWellFormed()) return state->Fail(prepared.GetMistake());
    *expression = new mirlow_expression(*state, std::move(prepared));
    return MIRLOW_OK;
  });
}

void mirlow_free_expression(mirlow_expression* expression) { delete expression; }

mirlow_status mirlow_evaluate_prepared(mirlow_expression* expression, mirlow_value** value) {
  if (!expression || !expression->GetState() || !value) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    Result result = expression->expression->Evaluate();
    return result ? HandOut(std::move(result.value), value)
                  : expression->GetState()->Fail(std::move(result));
  });
}

mirlow_status mirlow_evaluate_number(mirlow_expression* expression, double* number) {
  if (!expression || !expression->GetState() || !number) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    Result otherwise;
    if (const std::optional<double> read = expression->expression->EvaluateNumber(otherwise)) {
      *number = *read;
      return MIRLOW_OK;
    }
    return otherwise ? MIRLOW_WRONG_TYPE : expression->GetState()->Fail(std::move(otherwise));
  });
}

mirlow_status mirlow_get_name_read(mirlow_expression* expression, size_t index, const char** name) {
  if (!expression || !expression->GetState() || !name) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    std::vector<std::string> names = expression->expression->GetNames();
    if (index >= names.size()) return MIRLOW_NOT_FOUND;
    expression->name = std::move(names[index]);
    *name = expression->name.c_str();
    return MIRLOW_OK;
  });
}

// ---- Variables ----

mirlow_status mirlow_get_variable(mirlow_state* state, const char* name,
                                  mirlow_variable** variable) {
  if (!state || !name || !variable) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    Variable found = state->state.GetVariable(name);
    // Nothing is set by this: it only says what is wrong with the name.
    if (!found) return state->Fail(state->state.SetSymbol(name, {}));
    *variable = new mirlow_variable(*state, std::move(found));
    return MIRLOW_OK;
  });
}

void mirlow_free_variable(mirlow_variable* variable) { delete variable; }

mirlow_status mirlow_set_variable(mirlow_variable* variable, double number) {
  if (!variable || !variable->GetState()) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    variable->variable->Set(number);
    return MIRLOW_OK;
  });
}

mirlow_status mirlow_get_variable_number(const mirlow_variable* variable, double* number) {
  if (!variable || !variable->GetState() || !number) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    const std::optional<double> read = variable->variable->Get();
    if (read) *number = *read;
    return read ? MIRLOW_OK : MIRLOW_NOT_FOUND;
  });
}
