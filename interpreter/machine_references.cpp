// How the machine evaluates references.
#include "interpreter/machine_entry.h"

namespace Quarn {

const Answer* Machine::Ask(Cell& cell) {
  Frame& frame = Top();
  if (frame.has_answer) {
    frame.has_answer = false;
    return &answer_;
  }
  if (cell.state >= Cell::State::kUnderWay) {
    abort_ = Failure::kRing;
    ring_ = CellPtr(&cell);
    ring_is_known_ = ring_is_nested_ = false;
    return nullptr;
  }
  if (cell.state == Cell::State::kStale || cell.version != registries_.GetVersion()) {
    if (FitsLimits()) PushCell(cell);
    return nullptr;
  }
  if (frame.reader) cell.readers.Add(*frame.reader);
  if (cell.answer.outcome != Outcome::kRing) return &cell.answer;
  abort_ = Failure::kRing;
  ring_ = CellPtr(&cell);
  ring_is_known_ = true;
  ring_is_nested_ = false;
  return nullptr;
}

// False when that is a step too many.
bool Machine::PushCell(Cell& cell) {
  CellPtr shared(&cell);
  if (!cell.is_read || cell.version != registries_.GetVersion()) Read(cell);
  cell.Unlink();
  // Under way only with a frame, for which there may be no memory.
  Frame& frame = PushFrame(cell.program, cell.GetSharedText().GetWhole(), Symbol::NoName());
  cell.state = Cell::State::kUnderWay;
  frame.cell = std::move(shared);
  frame.reader = &cell;
  return Spend(cell.program.code.size());
}

// References in the expression keep their cells, so that they need be read only once.
void Machine::Read(Cell& cell) {
  cell.program.Release(symbols_);
  cell.is_read = false;
  scratch_.Release(symbols_);
  const SharedText& text = cell.GetSharedText();
  ReadOptions options{
      .is_leaf = cell.is_leaf, .names = &symbols_, .nesting = budget_.GetLimits().nesting};
  if (cell.GetText().size() < text.GetWhole().size()) {
    options.brackets = &text.GetBrackets();
    options.begin = text.GetBegin();
    options.end = text.GetEnd();
  }
  Reader(registries_, reader_storage_, text.GetWhole(), options).Read(scratch_, kChunk);
  for (Instruction& instruction : scratch_.code) {
    if (instruction.code != Code::kReference || instruction.part.length == 0) continue;
    instruction.code = Code::kCell;
    instruction.cell = cells_.GetPart(cell, instruction.position, instruction.part.length).Detach();
  }
  cell.program.code.assign(scratch_.code.begin(), scratch_.code.end());
  cell.program.extra = std::move(scratch_.extra);
  scratch_.Clear();
  cell.is_read = true;
  cell.version = registries_.GetVersion();
}

// ---- The end of an expression ----

Machine::Step Machine::FinishCell(Outcome outcome) {
  if (outcome == Outcome::kFailed) return Deliver({Outcome::kFailed});
  Operand value = operands_.Pop();
  if (!value.IsReference() || !Quarn::GetCell(*value.GetValue())) {
    return Deliver({Outcome::kValue, std::move(value)});
  }
  Top().value = std::move(value);
  Top().is_following = true;
  return FollowOn();
}

// A reference to a reference stands for the value of that.
Machine::Step Machine::FollowOn() {
  const Operand reference = Top().value;
  const Answer* next = Ask(*Quarn::GetCell(*reference.GetValue()));
  if (!next) return Stop();
  Answer answer = *next;
  if (answer.outcome == Outcome::kFailed && answer.value.IsNumber()) answer.value = reference;
  const s_str& name = reference.GetValue()->GetName();
  if (!name.IsEmpty()) {
    answer.label =
        std::make_shared<const s_str>(name + " = " + (answer.label ? *answer.label : s_str()));
  }
  return Deliver(std::move(answer));
}

// Passes the answer to the frame that asked. It is kept unless something impure was called, or what
// was read has changed meanwhile.
Machine::Step Machine::Deliver(Answer answer) {
  const CellPtr cell = std::move(Top().cell);
  const bool is_impure = Top().is_impure;
  PopFrame();
  Cell* reader = frames_.IsEmpty() ? nullptr : Top().reader;
  if (is_impure || !keeps_values_ || cell->state != Cell::State::kUnderWay) {
    cell->Unlink();
    cell->state = Cell::State::kStale;
    MarkImpure();
  } else {
    cell->answer = answer;
    cell->state = Cell::State::kFresh;
    if (reader) cell->readers.Add(*reader);
  }
  answer_ = std::move(answer);
  return Step::kNext;
}

// ---- Operands ----

// Is the value of a reference known, and a number? Null stands for no reference.
bool Machine::IsFreshNumber(const Cell* cell) const {
  return cell && cell->state == Cell::State::kFresh && cell->version == registries_.GetVersion() &&
         cell->answer.outcome == Outcome::kValue && cell->answer.value.IsNumber();
}

bool Machine::Resolve(const Operand& operand, Operand& value, Resolved& kind) {
  kind = Resolved::kValue;
  if (!operand.IsReference()) {
    value = operand;
    return true;
  }
  const CellPtr& cell = Quarn::GetCell(*operand.GetValue());
  if (!cell) {
    kind = Resolved::kNothing;
    return true;
  }
  const Answer* answer = Ask(*cell);
  if (!answer) return false;
  if (answer->outcome == Outcome::kValue) {
    value = answer->value;
    if (value.IsReference()) kind = Resolved::kNoValue;
  } else {
    value = Operand(Quarn::NewReference(Symbol::NoName(), {}));
    kind = Resolved::kNoValue;
  }
  return true;
}

// The type that an operand answers.
bool Machine::GetType(const Operand& operand, s_str& type) {
  if (!operand.IsReference()) {
    type = operand.GetType();
    return true;
  }
  Operand value;
  Resolved kind;
  if (!Resolve(operand, value, kind)) return false;
  type = kind == Resolved::kValue ? value.GetType() : s_str(kReferenceType);
  return true;
}

}  // namespace Quarn
