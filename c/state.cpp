// States and their symbols in C.
#include <iterator>

#include "c/handles.h"
#include "interpreter/version.h"
#include "types/value.h"
#include "types/vector.h"

using Quarn::Failure;
using Quarn::Guarded;
using Quarn::HandOut;
using Quarn::Limits;
using Quarn::Result;

// The kinds are the same ones in C.
static_assert(static_cast<int>(Failure::kNone) == MIRLOW_NO_FAILURE);
static_assert(static_cast<int>(Failure::kForm) == MIRLOW_FORM);
static_assert(static_cast<int>(Failure::kUnknownName) == MIRLOW_UNKNOWN_NAME);
static_assert(static_cast<int>(Failure::kNoMatch) == MIRLOW_NO_MATCH);
static_assert(static_cast<int>(Failure::kValue) == MIRLOW_VALUE);
static_assert(static_cast<int>(Failure::kRing) == MIRLOW_RING);
static_assert(static_cast<int>(Failure::kMemory) == MIRLOW_MEMORY);
static_assert(static_cast<int>(Failure::kNesting) == MIRLOW_NESTING);
static_assert(static_cast<int>(Failure::kSteps) == MIRLOW_STEPS);
static_assert(static_cast<int>(Failure::kOutput) == MIRLOW_OUTPUT);
static_assert(static_cast<int>(Failure::kInterrupted) == MIRLOW_INTERRUPTED);

namespace {

constexpr mirlow_error kNoError = {MIRLOW_NO_FAILURE, "", 0, 0};

// With a text that outlives what is returned.
mirlow_error Describe(const Result& result, const std::string& text) {
  return {static_cast<mirlow_failure>(result.failure), text.c_str(), result.place.position,
          result.place.length};
}

// The key of a registry, by its index. It stays where it is.
template <class Registry>
mirlow_status GetKey(const Registry& registry, size_t index, const char** name) {
  if (index >= registry.size()) return MIRLOW_NOT_FOUND;
  *name = std::next(registry.begin(), static_cast<std::ptrdiff_t>(index))->first.Get().c_str();
  return MIRLOW_OK;
}

}  // namespace

mirlow_state::mirlow_state() { Quarn::Vector::Register(state); }

mirlow_state::~mirlow_state() {
  while (bound) bound->CutOff();
}

mirlow_status mirlow_state::Fail(Result result) {
  error_text = std::move(result.error);
  error = Describe(result, error_text);
  return MIRLOW_FAILED;
}

const char* mirlow_version(void) { return Quarn::GetVersion(); }

mirlow_state* mirlow_new(void) {
  mirlow_state* state = nullptr;
  Guarded([&] {
    state = new mirlow_state;
    return MIRLOW_OK;
  });
  return state;
}

void mirlow_free(mirlow_state* state) { delete state; }

const mirlow_error* mirlow_last_error(const mirlow_state* state) {
  return state ? &state->error : &kNoError;
}

mirlow_status mirlow_evaluate(mirlow_state* state, const char* expression, mirlow_value** value) {
  if (!state || !expression || !value) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    Result result = state->state.Compute(expression);
    return result ? HandOut(std::move(result.value), value) : state->Fail(std::move(result));
  });
}

mirlow_status mirlow_set_limits(mirlow_state* state, const mirlow_limits* limits) {
  if (!state || !limits) return MIRLOW_BAD_ARGUMENT;
  const auto limit = [](unsigned long long most) { return most ? most : Limits::kNone; };
  Limits set;
  set.steps = limit(limits->steps);
  set.memory = limit(limits->memory);
  set.output = limit(limits->output);
  set.nesting = limit(limits->nesting);
  set.ends_the_endless = limits->ends_the_endless != 0;
  state->state.SetLimits(set);
  return MIRLOW_OK;
}

void mirlow_interrupt(mirlow_state* state) {
  if (state) state->state.Interrupt();
}

mirlow_status mirlow_set_output(mirlow_state* state, mirlow_write write, void* user) {
  if (!state) return MIRLOW_BAD_ARGUMENT;
  state->buffer.SetTarget(write, user);
  return MIRLOW_OK;
}

mirlow_status mirlow_set_input(mirlow_state* state, mirlow_read read, void* user) {
  if (!state) return MIRLOW_BAD_ARGUMENT;
  state->buffer.SetSource(read, user);
  return MIRLOW_OK;
}

mirlow_status mirlow_process_line(mirlow_state* state, const char* line) {
  if (!state || !line) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    state->in.clear();
    state->out.clear();  // of what a host threw while it was written to
    state->state.ProcessLine(line);
    return MIRLOW_OK;
  });
}

const mirlow_error* mirlow_line_error(mirlow_state* state) {
  if (!state) return &kNoError;
  const Result& failure = state->state.GetFailure();
  state->error_of_line = Describe(failure, failure.error);
  return &state->error_of_line;
}

// ---- Symbols ----

mirlow_status mirlow_set(mirlow_state* state, const char* name, const mirlow_value* value) {
  if (!state || !name || !value) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    Result result = state->state.SetSymbol(name, value->value);
    return result ? MIRLOW_OK : state->Fail(std::move(result));
  });
}

mirlow_status mirlow_set_number(mirlow_state* state, const char* name, double number) {
  if (!state || !name) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    Result result = state->state.SetSymbol(name, Quarn::FromNumber(number));
    return result ? MIRLOW_OK : state->Fail(std::move(result));
  });
}

mirlow_status mirlow_set_reference(mirlow_state* state, const char* name, const char* expression) {
  if (!state || !name || !expression) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    Result result = state->state.SetReference(name, expression);
    return result ? MIRLOW_OK : state->Fail(std::move(result));
  });
}

mirlow_status mirlow_get(mirlow_state* state, const char* name, mirlow_value** value) {
  if (!state || !name || !value) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    const Quarn::s_refptr<Quarn::Symbol> symbol = state->state.GetSymbol(name);
    return symbol ? HandOut(symbol->Clone(), value) : MIRLOW_NOT_FOUND;
  });
}

mirlow_status mirlow_erase(mirlow_state* state, const char* name) {
  if (!state || !name) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] { return state->state.EraseSymbol(name) ? MIRLOW_OK : MIRLOW_NOT_FOUND; });
}

// A list of its own: each index would cost as much as all of them.
mirlow_status mirlow_get_name(mirlow_state* state, size_t index, const char** name) {
  if (!state || !name) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    if (index == 0 || !state->names) {
      state->names = std::make_unique<mirlow_state::Names>(state->state.GetSymbolNames());
    }
    if (index >= state->names->GetSize().Get()) return MIRLOW_NOT_FOUND;
    *name = (*state->names)[static_cast<unsigned int>(index)].Get().c_str();
    return MIRLOW_OK;
  });
}

mirlow_status mirlow_get_type_name(mirlow_state* state, size_t index, const char** name) {
  if (!state || !name) return MIRLOW_BAD_ARGUMENT;
  return GetKey(state->state.GetTypes(), index, name);
}

mirlow_status mirlow_get_function_name(mirlow_state* state, size_t index, const char** name) {
  if (!state || !name) return MIRLOW_BAD_ARGUMENT;
  return GetKey(state->state.GetFunctions(), index, name);
}
