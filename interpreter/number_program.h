// NumberProgram is a Program of plain arithmetic, bound to the places of its numbers: what most
// expressions are that are evaluated a million times. It is good as long as the Program is.
//   NumberProgram numbers(program, registries);
//   double result;
//   if (!numbers.Run(result)) ...;  // something in it is no number
#pragma once

#include <vector>

#include "interpreter/program.h"
#include "interpreter/registries.h"

namespace Quarn {

class NumberProgram {
 public:
  NumberProgram() = default;  // never runs
  // The program must outlive it. One that does anything else than to compute with numbers, or that
  // is long, is not bound, and never runs.
  NumberProgram(const Program& program, const Registries& registries);

  // False when a symbol holds no number now; then nothing has been done.
  bool Run(double& result) const;

 private:
  // What is computed is at the top; other numbers wait below it. The four of each group are in the
  // order of the arithmetic.
  enum class Code : std::uint8_t {
    kPush,
    kPushSum,  // of two numbers from their places
    kPushDifference,
    kPushProduct,
    kPushQuotient,
    kAdd,  // a number from its place to the top
    kSubtract,
    kMultiply,
    kDivide,
    kAddTop,  // the top to the one that waits
    kSubtractTop,
    kMultiplyTop,
    kDivideTop,
    kCallNone,
    kCallOne,
    kCallTwo,
    kEnd
  };
  struct Step {
    Code code;
    union {
      const double* operand;
      double (*of_none)();
      UnaryOnNumbers of_one;
      BinaryOnNumbers of_two;
    };
    const double* second = nullptr;
  };

  bool Bind(const Instruction& instruction, const Registries& registries);
  void BindOperand(const Instruction& instruction);
  bool BindBinary(const Instruction& instruction, BinaryOnNumbers body);
  bool BindUnary(UnaryOnNumbers body);
  bool BindCall(const Instruction& instruction, const Registries& registries);
  const double* GetOperand(const Instruction& instruction);

  std::vector<Step> steps_;
  std::vector<const Name*> names_;
  std::size_t waiting_ = 0;
};

}  // namespace Quarn
