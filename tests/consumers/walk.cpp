// Lists by name all that a State holds.
#include <mirlow/state.h>
#include <mirlow/value.h>
#include <mirlow/vector.h>

#include <iostream>

namespace {

void Print(const char* kind, const Quarn::s_str& name) {
  std::cout << kind << ' ' << name.GetView() << '\n';
}

}  // namespace

int main() {
  Quarn::State state;
  Quarn::Vector::Register(state);
  state.SetSymbol("x", Quarn::FromNumber(1));
  for (const Quarn::s_str& name : state.GetSymbolNames()) Print("symbol", name);
  for (const auto& [type, row] : state.GetTypes()) Print("type", type);
  for (const auto& [name, overloads] : state.GetFunctions()) {
    for (const auto& [signature, body] : overloads) Print("function", name + signature);
  }
  for (const auto& [op, by_left] : state.GetBinaryOperators()) {
    for (const auto& [left, by_right] : by_left) {
      for (const auto& [right, body] : by_right) Print("operator", left + op + right);
    }
  }
  for (const auto& [op, by_operand] : state.GetRightUnaryOperators()) {
    for (const auto& [operand, body] : by_operand) Print("operator", op + operand);
  }
  return 0;
}
