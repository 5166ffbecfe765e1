// Functions of the host's in C.
#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include "c/handles.h"
#include "interpreter/names.h"
#include "types/value.h"

using Quarn::Guarded;
using Quarn::s_bool;
using Quarn::s_ctnr;
using Quarn::s_refptr;
using Quarn::s_str;
using Quarn::State;
using Quarn::Symbol;
using Quarn::Values;

namespace {

// What the host gave along with a function; dropped with the last copy of the function, once it has
// been added.
class User {
 public:
  User(void* user, void (*drop)(void*)) : user_(user), drop_(drop) {}
  User(const User&) = delete;
  User& operator=(const User&) = delete;
  ~User() {
    if (is_added_ && drop_) drop_(user_);
  }

  void* Get() const { return user_; }
  void SetAdded() { is_added_ = true; }

 private:
  void* user_;
  void (*drop_)(void*);
  bool is_added_ = false;
};
using UserPtr = std::shared_ptr<User>;

// Letters, digits and "_": nobody could call a function of another name.
bool IsFunctionName(std::string_view name) {
  if (name.empty()) return false;
  for (std::size_t part = 0; part != std::string_view::npos;) {
    const std::size_t end = name.find('_', part);
    if (!Quarn::IsAlphanumeric(name.substr(part, end - part))) return false;
    part = end == std::string_view::npos ? end : end + 1;
  }
  return true;
}

mirlow_status Add(mirlow_state* state, const char* name, const s_ctnr<s_str>& types,
                  mirlow_purity purity, const UserPtr& user, Quarn::Function body) {
  const Quarn::Purity of_row =
      purity == MIRLOW_PURE ? Quarn::Purity::kPure : Quarn::Purity::kImpure;
  state->state.AddFunctions({
      {name, types, std::move(body), {}, of_row}
  });
  user->SetAdded();
  return MIRLOW_OK;
}

s_bool CallOnValues(mirlow_function function, void* user, const Values& arguments, Values& results,
                    s_str& error) {
  std::vector<mirlow_value> values;
  values.reserve(arguments.GetSize().Get());
  for (const s_refptr<Symbol>& argument : arguments) values.push_back({argument, {}, {}});
  std::vector<const mirlow_value*> handles;
  handles.reserve(values.size());
  for (const mirlow_value& value : values) handles.push_back(&value);

  mirlow_call call{error};
  const std::unique_ptr<mirlow_value> result(function(user, handles.data(), handles.size(), &call));
  if (!result) return false;
  // A copy, since the host may have kept the object under a name.
  s_refptr<Symbol> value = result->value->Clone();
  value->SetName(Symbol::NoName());
  results.PushBack(std::move(value));
  return true;
}

s_bool CallOnNumbers(mirlow_number_function function, void* user, const Values& arguments,
                     Values& results) {
  std::vector<double> numbers;
  for (const s_refptr<Symbol>& argument : arguments) {
    numbers.push_back(Quarn::ToNumber(argument).value());
  }
  results.PushBack(Quarn::FromNumber(function(user, numbers.data(), numbers.size())));
  return true;
}

}  // namespace

void mirlow_fail(mirlow_call* call, const char* message) {
  if (!call || !message) return;
  // Without memory for the words, the call fails without any.
  Guarded([&] {
    call->error = s_str(message);
    return MIRLOW_OK;
  });
}

mirlow_status mirlow_add_function(mirlow_state* state, const char* name, const char* const* types,
                                  size_t count, mirlow_function function, mirlow_purity purity,
                                  void* user, void (*drop)(void* user)) {
  if (!state || !name || !function || (!types && count)) return MIRLOW_BAD_ARGUMENT;
  if (!IsFunctionName(name)) return MIRLOW_BAD_ARGUMENT;
  if (std::find(types, types + count, nullptr) != types + count) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    s_ctnr<s_str> names;
    for (size_t i = 0; i < count; ++i) names.PushBack(types[i]);
    if (count == 0) names.PushBack("");
    const auto shared = std::make_shared<User>(user, drop);
    return Add(state, name, names, purity, shared,
               [function, shared](State&, const Values& arguments, Values& results, s_str& error) {
                 return CallOnValues(function, shared->Get(), arguments, results, error);
               });
  });
}

mirlow_status mirlow_add_number_function(mirlow_state* state, const char* name, size_t count,
                                         mirlow_number_function function, mirlow_purity purity,
                                         void* user, void (*drop)(void* user)) {
  if (!state || !name || !function || !IsFunctionName(name)) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    s_ctnr<s_str> names;
    for (size_t i = 0; i < count; ++i) names.PushBack("Scalar");
    if (count == 0) names.PushBack("");
    const auto shared = std::make_shared<User>(user, drop);
    return Add(state, name, names, purity, shared,
               [function, shared](State&, const Values& arguments, Values& results, s_str&) {
                 return CallOnNumbers(function, shared->Get(), arguments, results);
               });
  });
}
