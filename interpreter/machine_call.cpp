// Function calls: the arguments are resolved, each once and in order, and the overload is found by
// their types.
#include "interpreter/machine_entry.h"
#include "interpreter/messages.h"
#include "interpreter/state.h"

namespace Quarn {

// False when the arguments are not plain numbers, or no overload takes those.
bool Machine::CallOnNumbers(const Instruction& instruction, Frame& frame) {
  const Registries::NamedFunction& function = registries_.GetFunction(instruction.part.id);
  const std::size_t count = instruction.part.length;
  const FunctionOnNumbers& body = function.on_numbers;
  if (count == 2 && body.of_two) {
    const Operand& second = operands_[0];
    Operand& first = operands_[1];
    if (!first.IsNumber() || !second.IsNumber()) return false;
    first.SetNumber(body.of_two(first.GetNumber(), second.GetNumber()));
    operands_.Drop(1);
  } else if (count == 1 && body.of_one) {
    Operand& argument = operands_[0];
    if (!argument.IsNumber()) return false;
    argument.SetNumber(body.of_one(argument.GetNumber()));
  } else if (count == 0 && body.of_none) {
    operands_.Push(body.of_none());
  } else {
    return false;
  }
  if (function.purity_on_numbers[count] == Purity::kImpure) frame.is_impure = true;
  return true;
}

Machine::Step Machine::Call(const Instruction& instruction) {
  if (!ResolveArguments(instruction.part.length)) return Stop();
  return CallOverload(registries_.GetFunction(instruction.part.id), instruction.part.length);
}

bool Machine::ResolveArguments(std::size_t count) {
  for (; Top().stage < count; ++Top().stage) {
    const std::size_t place = count - 1 - Top().stage;
    Operand value;
    Resolved kind;
    if (!Resolve(Operand(operands_[place]), value, kind)) return false;
    if (kind != Resolved::kNothing) operands_[place] = std::move(value);
  }
  return true;
}

Machine::Step Machine::CallOverload(const Registries::NamedFunction& function, std::size_t count) {
  s_str signature = "(";
  Values arguments;
  Values results;
  for (std::size_t i = count; i-- > 0;) {
    arguments.PushBack(operands_[i].Box());
    signature.Append(operands_[i].GetType().GetView());
    if (i > 0) signature.Append(", ");
  }
  signature += ')';
  const auto overload = function.overloads->find(signature);
  if (overload == function.overloads->end()) {
    s_ctnr<s_str> candidates;
    for (const auto& [candidate, body] : *function.overloads) candidates.PushBack(candidate);
    return Fail(Failure::kNoMatch,
                messages::NoMatchingFunction(*function.name, signature, candidates));
  }
  if (overload->second.purity == Purity::kImpure) Top().is_impure = true;
  // It may register another in its own place while it runs.
  const Function body = overload->second.body;
  operands_.Drop(count);
  const bool is_done = body(state_, arguments, results, GetError()) ? true : false;
  if (!is_done || abort_ != Failure::kNone) return Step::kFailed;
  if (results.GetSize() != s_uint(1U)) return Fail(Failure::kValue, messages::NotOneReturnValue());
  if (!*results.begin()) return Step::kFailed;
  operands_.Push(std::move(*results.begin()));
  return Step::kNext;
}

}  // namespace Quarn
