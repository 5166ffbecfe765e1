#include "interpreter/machine.h"

#include "interpreter/machine_entry.h"
#include "interpreter/messages.h"

namespace Quarn {
namespace {

// So many instructions of a line are read before they are run.
constexpr std::size_t kChunk = 4096;

// Positions have 32 bits.
constexpr std::size_t kLongestText = 0xFFFFFFFF;

}  // namespace

// ---- Evaluations ----

bool Machine::Evaluate(std::string_view text, const s_str& name, bool allows_new, Evaluated& result,
                       s_str& error, Place& place) {
  Entry entry(*this);
  const s_uint reported = error.GetSize();
  if (text.size() >= kLongestText) {
    AddError(error, messages::TooLong());
  } else if (entry.IsGranted()) {
    Program& program = entry.BorrowProgram();
    Reader reader(registries_, reader_storage_, text, {.allows_new = allows_new});
    PushFrame(program, text, name).error = &error;
    bool has_more = true;
    while (has_more) {
      has_more = reader.Read(program, kChunk);
      Top().next = 0;
      if (!FitsMemory() || !Run(entry.GetBase())) break;
      if (has_more) {
        const Program::Root root = program.root;
        program.Clear();
        program.root = root;
        continue;
      }
      result.value = operands_.Pop();
      result.is_named = program.root != Program::Root::kCall;
      if (program.root == Program::Root::kOperation && !result.value.IsNumber() &&
          !name.IsEmpty()) {
        result.value.GetValue()->SetName(name);
      }
      return true;
    }
    place = GetPlace(Top());
  }
  if (abort_ != Abort::kNone) {
    error = error.ExtractCount(0U, reported);
    AddAbort(error);
  }
  return false;
}

Answer Machine::Follow(Cell& cell) {
  Entry entry(*this);
  if (!entry.IsGranted()) return {Outcome::kRing};
  Cell* reader = frames_.IsEmpty() ? nullptr : Top().reader;
  if (cell.state == Cell::State::kFresh && cell.version == registries_.GetVersion()) {
    if (reader) cell.readers.Add(*reader);
    return cell.answer;
  }
  const CellPtr shared(&cell);
  if (cell.state < Cell::State::kUnderWay) {
    PushCell(cell);
    if (Run(entry.GetBase())) return answer_;
    if (abort_ == Abort::kRing) abort_ = Abort::kNone;
  }
  // What became of the ring depends on what is under way.
  if (!frames_.IsEmpty()) Top().is_impure = true;
  return {Outcome::kRing};
}

Result Machine::Evaluate(Cell& cell) {
  const CellPtr shared(&cell);
  Answer answer = Follow(cell);
  if (answer.outcome == Outcome::kRing) return {{}, NameRing(cell).Take()};
  if (answer.outcome == Outcome::kValue && !answer.value.IsReference()) {
    return {answer.value.Take(), {}};
  }
  // What failed, or is null, is looked at step by step.
  CellPtr next(&cell);
  Evaluated result;
  s_str error;
  Place place;
  while (next && Evaluate(next->GetText(), Symbol::NoName(), false, result, error, place)) {
    if (!result.value.IsReference()) return {result.value.Take(), {}};
    next = Quarn::GetCell(*result.value.GetValue());
  }
  if (!next) error = messages::EmptySymbol();
  return {{}, error.Take(), place};
}

s_str Machine::NameRing(Cell& cell) {
  s_str error;
  abort_ = Abort::kRing;
  ring_ = CellPtr(&cell);
  ring_is_known_ = cell.state == Cell::State::kFresh;
  AddAbort(error);
  abort_ = Abort::kNone;
  return error;
}

s_refptr<Symbol> Machine::NewReference(const s_str& name, std::string_view expression) {
  return Quarn::NewReference(name, GetCell(expression));
}

CellPtr Machine::GetCell(std::string_view expression) {
  return expression.empty() ? CellPtr() : cells_.Get(expression);
}

Program& Machine::Entry::BorrowProgram() {
  if (machine_.used_programs_ == machine_.programs_.size()) {
    machine_.programs_.push_back(std::make_unique<Program>());
  }
  Program& program = *machine_.programs_[machine_.used_programs_++];
  program.Clear();
  return program;
}

void Machine::CleanUp() {
  constexpr std::size_t kLarge = 1U << 20;
  abort_ = Abort::kNone;
  if (ring_) ring_ = {};
  if (!answer_.value.IsNumber()) answer_ = {};
  if (GetBytesKept() > kLarge) GiveBack();
}

std::size_t Machine::GetBytesKept() const {
  std::size_t instructions = scratch_.code.capacity();
  for (const auto& program : programs_) instructions += program->code.capacity();
  return operands_.GetBytesKept() + frames_.GetBytesKept() + lists_.GetBytesKept() +
         instructions * sizeof(Instruction) + reader_storage_.GetBytesKept();
}

void Machine::GiveBack() {
  operands_.GiveBack();
  frames_.GiveBack();
  lists_.GiveBack();
  programs_.clear();
  scratch_ = {};
  reader_storage_.GiveBack();
}

bool Machine::FitsMemory() {
  const std::size_t elements = lists_.IsEmpty() ? 0 : lists_[0].elements->GetSize();
  const std::size_t bytes = operands_.GetBytes() + frames_.GetBytes() + lists_.GetBytes() +
                            elements * sizeof(double) + reader_storage_.GetBytes();
  if (bytes <= memory_limit_) return true;
  abort_ = Abort::kTooDeep;
  return false;
}

// ---- Frames ----

Machine::Frame& Machine::PushFrame(const Program& program, std::string_view text,
                                   const s_str& name) {
  Cell* reader = frames_.IsEmpty() ? nullptr : Top().reader;
  Frame& frame = frames_.Push();
  frame.program = &program;
  frame.text = text;
  frame.name = &name;
  frame.reader = reader;
  frame.operands = static_cast<std::uint32_t>(operands_.GetSize());
  frame.lists = static_cast<std::uint32_t>(lists_.GetSize());
  return frame;
}

s_str& Machine::GetError() {
  Frame& frame = Top();
  if (!frame.error) {
    frame.own_error = std::make_unique<s_str>();
    frame.error = frame.own_error.get();
  }
  return *frame.error;
}

void Machine::PopFrame() {
  const Frame& frame = Top();
  const std::size_t operands = frame.operands;
  const std::size_t lists = frame.lists;
  const bool is_impure = frame.is_impure;
  frames_.Drop(1);
  operands_.Shrink(operands);
  lists_.Shrink(lists);
  if (is_impure && !frames_.IsEmpty()) Top().is_impure = true;
}

bool Machine::Run(std::size_t base) {
  while (true) {
    Step step = RunFrame();
    if (step == Step::kEnd) {
      if (!Top().cell) return true;
      step = FinishCell(Outcome::kValue);
    } else if (step == Step::kFailed && abort_ == Abort::kNone) {
      if (!Top().cell) return false;
      step = FinishCell(Outcome::kFailed);
    }
    if (abort_ != Abort::kNone) {
      UnwindTo(base);
      return false;
    }
    if (frames_.GetSize() == base) return true;
    if (step == Step::kNext) Top().has_answer = true;
  }
}

// Ends what is under way, but for the line that began it. What goes away with a frame may have been
// read, so a cell is kept only if what it waits for still is.
void Machine::UnwindTo(std::size_t base) {
  bool is_kept = keeps_values_ && abort_ == Abort::kRing && !ring_is_nested_ &&
                 (ring_is_known_ || IsPureRing(base));
  CellPtr awaited = ring_;
  while (frames_.GetSize() > base && Top().cell) {
    const CellPtr cell = Top().cell;
    is_kept = is_kept && !Top().is_impure;
    PopFrame();
    if (is_kept && cell->state == Cell::State::kUnderWay) {
      cell->answer = {Outcome::kRing};
      cell->state = Cell::State::kFresh;
      cell->awaited = awaited.Get();
      awaited->readers.Add(*cell);
    } else {
      cell->Unlink();
      cell->state = Cell::State::kStale;
      cell->readers.Invalidate();
    }
    awaited = cell;
    is_kept = is_kept && cell->state == Cell::State::kFresh;
  }
  // Those further down would not know by what way they got here.
  ring_is_nested_ = base > 0;
}

// Will whoever is in the ring that was met lead back to itself until something changes?
bool Machine::IsPureRing(std::size_t base) const {
  const std::size_t count = frames_.GetSize() - base;
  for (std::size_t i = 0; i < count; ++i) {
    const Cell* cell = frames_[i].cell.Get();
    if (!cell || frames_[i].is_impure || cell->state != Cell::State::kUnderWay) return false;
    if (cell == ring_.Get()) return true;
  }
  return false;
}

// Names the reference that is met twice, whether it was met now or is known from before.
void Machine::AddAbort(s_str& error) {
  if (abort_ == Abort::kTooDeep) return AddError(error, messages::NestedTooDeeply());
  const Cell* cell = ring_.Get();
  if (ring_is_known_) {
    ++walk_;
    for (Cell* next = ring_.Get(); next && next->walk != walk_; next = next->awaited) {
      next->walk = walk_;
      cell = next->awaited ? next->awaited : cell;
    }
  }
  AddError(error, messages::LeadsBackToItself(cell->GetText()));
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
    case Code::kCall:
      return {instruction.position,
              registries_.GetFunction(instruction.part.id).name->Get().size()};
    default:
      return {instruction.position, 1};
  }
}

}  // namespace Quarn
