#include "interpreter/number_program.h"

#include <algorithm>

#include "interpreter/arithmetic.h"
#include "interpreter/symbol_table.h"

namespace Quarn {
namespace {

// The most numbers that wait, and the most steps without a check for interruptions.
constexpr std::size_t kMostWaiting = 32;
constexpr std::size_t kMostSteps = 1000;

// The place of a body among those of plain arithmetic.
constexpr BinaryOnNumbers kArithmetic[] = {Add, Subtract, Multiply, Divide};
std::ptrdiff_t FindArithmetic(BinaryOnNumbers body) {
  return std::find(std::begin(kArithmetic), std::end(kArithmetic), body) - kArithmetic;
}

// That of a group of four.
template <class Code>
Code Select(Code first, std::ptrdiff_t arithmetic) {
  return static_cast<Code>(static_cast<int>(first) + static_cast<int>(arithmetic));
}

}  // namespace

NumberProgram::NumberProgram(const Program& program, const Registries& registries) {
  if (program.code.size() > kMostSteps) return;
  for (const Instruction& instruction : program.code) {
    if (Bind(instruction, registries) && waiting_ <= kMostWaiting) continue;
    steps_.clear();
    return;
  }
}

bool NumberProgram::Bind(const Instruction& instruction, const Registries& registries) {
  switch (instruction.code) {
    case Quarn::Code::kNumber:
    case Quarn::Code::kName:
      BindOperand(instruction);
      return true;
    case Quarn::Code::kBinary:
    case Quarn::Code::kBinaryNumber:
    case Quarn::Code::kBinaryName:
      return BindBinary(instruction, registries.GetOnNumbers(instruction.op));
    case Quarn::Code::kLeftUnary:
      return BindUnary(registries.GetLeftUnary().on_numbers[instruction.op]);
    case Quarn::Code::kRightUnary:
      return BindUnary(registries.GetRightUnary().on_numbers[instruction.op]);
    case Quarn::Code::kCall:
      return BindCall(instruction, registries);
    case Quarn::Code::kEnd:
      steps_.push_back({Code::kEnd, {}});
      return true;
    default:
      return false;
  }
}

const double* NumberProgram::GetOperand(const Instruction& instruction) {
  const bool is_name =
      instruction.code == Quarn::Code::kName || instruction.code == Quarn::Code::kBinaryName;
  if (!is_name) return &instruction.number;
  const Name* name = instruction.name;
  if (std::find(names_.begin(), names_.end(), name) == names_.end()) names_.push_back(name);
  return &name->number;
}

void NumberProgram::BindOperand(const Instruction& instruction) {
  steps_.push_back({Code::kPush, {GetOperand(instruction)}});
  ++waiting_;
}

bool NumberProgram::BindBinary(const Instruction& instruction, BinaryOnNumbers body) {
  if (!body) return false;
  const bool is_on_top = instruction.code == Quarn::Code::kBinary;
  const std::ptrdiff_t arithmetic = FindArithmetic(body);
  if (arithmetic == std::ssize(kArithmetic)) {
    if (!is_on_top) BindOperand(instruction);
    steps_.push_back({.code = Code::kCallTwo, .of_two = body});
    --waiting_;
  } else if (is_on_top) {
    steps_.push_back({Select(Code::kAddTop, arithmetic), {}});
    --waiting_;
  } else if (steps_.back().code == Code::kPush) {
    steps_.back().code = Select(Code::kPushSum, arithmetic);
    steps_.back().second = GetOperand(instruction);
  } else {
    steps_.push_back({Select(Code::kAdd, arithmetic), {GetOperand(instruction)}});
  }
  return true;
}

bool NumberProgram::BindUnary(UnaryOnNumbers body) {
  if (!body) return false;
  steps_.push_back({.code = Code::kCallOne, .of_one = body});
  return true;
}

bool NumberProgram::BindCall(const Instruction& instruction, const Registries& registries) {
  const FunctionOnNumbers& body = registries.GetFunction(instruction.part.id).on_numbers;
  switch (instruction.part.length) {
    case 0:
      if (!body.of_none) return false;
      steps_.push_back({.code = Code::kCallNone, .of_none = body.of_none});
      ++waiting_;
      return true;
    case 1:
      return BindUnary(body.of_one);
    case 2:
      if (!body.of_two) return false;
      steps_.push_back({.code = Code::kCallTwo, .of_two = body.of_two});
      --waiting_;
      return true;
    default:
      return false;
  }
}

bool NumberProgram::Run(double& result) const {
  if (steps_.empty()) return false;
  for (const Name* name : names_) {
    if (!name->IsNumber()) return false;
  }
  double waiting[kMostWaiting + 1];  // and the operand of a function that takes it at once
  double* below = waiting;
  // NOLINTBEGIN(clang-analyzer-core.*): it does not see that as many were pushed as are popped
  double top = 0;
  for (const Step* step = steps_.data();; ++step) {
    switch (step->code) {
      case Code::kPush:
        *below++ = top;
        top = *step->operand;
        break;
      case Code::kPushSum:
        *below++ = top;
        top = *step->operand + *step->second;
        break;
      case Code::kPushDifference:
        *below++ = top;
        top = *step->operand - *step->second;
        break;
      case Code::kPushProduct:
        *below++ = top;
        top = *step->operand * *step->second;
        break;
      case Code::kPushQuotient:
        *below++ = top;
        top = *step->operand / *step->second;
        break;
      case Code::kAdd:
        top += *step->operand;
        break;
      case Code::kSubtract:
        top -= *step->operand;
        break;
      case Code::kMultiply:
        top *= *step->operand;
        break;
      case Code::kDivide:
        top /= *step->operand;
        break;
      case Code::kAddTop:
        top = *--below + top;
        break;
      case Code::kSubtractTop:
        top = *--below - top;
        break;
      case Code::kMultiplyTop:
        top = *--below * top;
        break;
      case Code::kDivideTop:
        top = *--below / top;
        break;
      case Code::kCallNone:
        *below++ = top;
        top = step->of_none();
        break;
      case Code::kCallOne:
        top = step->of_one(top);
        break;
      case Code::kCallTwo:
        top = step->of_two(*--below, top);
        break;
      default:  // kEnd
        result = top;
        return true;
    }
  }
  // NOLINTEND(clang-analyzer-core.*)
}

}  // namespace Quarn
