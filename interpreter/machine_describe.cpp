// What an operator does that has no implementation for its operands: it describes them, in a
// message or in the expression of a reference to the whole operation.
#include "interpreter/machine_entry.h"
#include "interpreter/messages.h"

namespace Quarn {

Machine::Step Machine::Describe(std::size_t op, Code kind, bool is_deferral) {
  if (!Top().description) {
    auto description = std::make_unique<Description>();
    description->op = GetOp(op);
    description->kind = kind;
    description->is_deferral = is_deferral;
    const std::size_t count = kind == Code::kBinary ? 2 : 1;
    for (std::size_t i = count; i-- > 0;) description->operands.push_back(operands_[i]);
    Top().description = std::move(description);
  }
  Description& description = *Top().description;
  if (!DescribeOperands(description)) return Stop();
  const std::unique_ptr<Description> done = std::move(Top().description);
  return description.is_deferral ? Defer(description) : FailToMatch(description);
}

// Types first, then texts, from left to right. False when an answer is still to come.
bool Machine::DescribeOperands(Description& description) {
  const std::size_t count = description.operands.size();
  if (description.stage == 0 && description.is_deferral) description.stage = count;
  for (; description.stage < 2 * count; ++description.stage) {
    const Operand& operand = description.operands[description.stage % count];
    if (description.stage < count) {
      if (!GetType(operand, description.types[description.stage])) return false;
    } else if (!DescribeText(description, operand, description.texts[description.stage - count])) {
      return false;
    }
  }
  return true;
}

// Only a temporary shows its value.
bool Machine::DescribeText(Description& description, const Operand& operand, s_str& text) {
  std::optional<TextWriter>& writer = description.writer;
  if (!writer) {
    if (!operand.IsNumber() && !operand.GetValue()->GetName().IsEmpty()) return true;
    writer.emplace(text, this).AppendOperand(operand);
  }
  while (!writer->Proceed()) {
    const Answer* answer = Ask(*writer->GetAwaited());
    if (!answer) return false;
    writer->Continue(*answer);
  }
  if (writer->IsCutOff()) return false;
  writer.reset();
  return true;
}

Machine::Step Machine::FailToMatch(const Description& description) {
  const auto& [op, kind, is_deferral, operands, stage, types, texts, writer] = description;
  if (kind == Code::kBinary) {
    return Fail(Failure::kNoMatch,
                messages::NoBinaryMatch(op, types[0], types[1], texts[0], texts[1]));
  }
  return Fail(Failure::kNoMatch,
              (kind == Code::kLeftUnary ? messages::NoLeftUnaryMatch : messages::NoRightUnaryMatch)(
                  op, types[0], texts[0]));
}

Machine::Step Machine::Defer(const Description& description) {
  s_str expression = "(";
  expression += description.texts[0];
  expression.Append(")").Append(description.op).Append("(");
  expression += description.texts[1];
  expression += ')';
  operands_.Drop(2);
  operands_.Push(NewReference(Symbol::NoName(), expression.GetView()));
  return Step::kNext;
}

}  // namespace Quarn
