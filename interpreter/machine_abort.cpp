// How the machine ends evaluations early, and tells why.
#include <new>

#include "interpreter/machine_entry.h"
#include "interpreter/messages.h"

namespace Quarn {

// ---- The end ----

// Ends all frames but that of the line. Dropping a frame may destroy what a cell read, so a cell is
// kept only if the one it waits for is.
void Machine::UnwindTo(std::size_t base) {
  bool is_kept = keeps_values_ && abort_ == Failure::kRing && !ring_is_nested_ &&
                 (ring_is_known_ || IsPureRing(base));
  CellPtr awaited = ring_;
  while (frames_.GetSize() > base && Top().cell) {
    const CellPtr cell = Top().cell;
    is_kept = is_kept && !Top().is_impure;
    PopFrame();
    is_kept = is_kept && KeepRing(*cell, *awaited);
    if (!is_kept) {
      cell->Unlink();
      cell->state = Cell::State::kStale;
      cell->readers.Invalidate();
    }
    awaited = cell;
    is_kept = is_kept && cell->state == Cell::State::kFresh;
  }
  // The frames further down do not know how the ring was reached.
  ring_is_nested_ = base > 0;
}

// Not if what it read has changed, which the end of its last value may do, or if there is no memory
// for the link.
bool Machine::KeepRing(Cell& cell, Cell& awaited) noexcept {
  cell.answer = {Outcome::kRing};
  if (cell.state != Cell::State::kUnderWay) return false;
  try {
    awaited.readers.Add(cell);
  } catch (const std::bad_alloc&) {
    return false;
  }
  cell.state = Cell::State::kFresh;
  cell.awaited = &awaited;
  return true;
}

// Will the members of the ring lead back to themselves until something changes?
bool Machine::IsPureRing(std::size_t base) const {
  const std::size_t count = frames_.GetSize() - base;
  for (std::size_t i = 0; i < count; ++i) {
    const Cell* cell = frames_[i].cell.Get();
    if (!cell || frames_[i].is_impure || cell->state != Cell::State::kUnderWay) return false;
    if (cell == ring_.Get()) return true;
  }
  return false;
}

// ---- The reason ----

// The reason of an abort replaces what was reported before it.
void Machine::ReportAbort(s_str& error, s_uint reported, Diagnosis& diagnosis) {
  if (abort_ == Failure::kNone) return;
  diagnosis.failure = abort_;
  error = error.ExtractCount(0U, reported);
  AddAbort(error);
}

s_str Machine::TakeAbort() {
  s_str error;
  AddAbort(error);
  abort_ = Failure::kNone;
  return error;
}

// Names the reference that is met twice, whether it was met now or is known from before.
void Machine::AddAbort(s_str& error) {
  if (abort_ != Failure::kRing) return AddError(error, messages::LimitReached(abort_));
  const Cell* cell = ring_.Get();
  if (ring_is_known_) {
    ++walk_;
    for (Cell* next = ring_.Get(); next->walk != walk_; next = next->awaited) {
      next->walk = walk_;
      cell = next->awaited;
    }
  }
  AddError(error, messages::LeadsBackToItself(cell->GetText()));
}

s_str Machine::NameRing(Cell& cell) {
  s_str error;
  abort_ = Failure::kRing;
  ring_ = CellPtr(&cell);
  ring_is_known_ = cell.state == Cell::State::kFresh;
  AddAbort(error);
  abort_ = Failure::kNone;
  return error;
}

// ---- The place ----

Diagnosis Machine::Diagnose() const {
  const Frame& frame = frames_[0];
  return {frame.failure, GetPlace(frame)};
}

Place Machine::GetPlace(const Frame& frame) const {
  const Instruction& instruction = frame.program->code[frame.next];
  switch (instruction.code) {
    case Code::kFail:
      return frame.program->extra->place;
    case Code::kSymbol:
    case Code::kLiteral:
    case Code::kReference:  // kCell is in references only, which show no place
      return {instruction.position, instruction.part.length};
    case Code::kName:
      return {instruction.position, instruction.name->text.Get().size()};
    case Code::kBinaryName: {
      if (frame.stage > 0) return {instruction.position, 1};
      const std::string_view name = instruction.name->text.GetView();
      return {frame.text.find(name, instruction.position), name.size()};
    }
    case Code::kCall:
      return {instruction.position,
              registries_.GetFunction(instruction.part.id).name->Get().size()};
    default:
      return {instruction.position, 1};
  }
}

}  // namespace Quarn
