#include "interpreter/machine.h"

#include "interpreter/machine_entry.h"
#include "interpreter/messages.h"

namespace Quarn {
namespace {

// Positions have 32 bits.
constexpr std::size_t kLongestText = 0xFFFFFFFF;

}  // namespace

// ---- Evaluations ----

bool Machine::Evaluate(std::string_view text, const s_str& name, bool allows_new, Evaluated& result,
                       s_str& error, Diagnosis& diagnosis) {
  Entry entry(*this);
  const s_uint reported = error.GetSize();
  if (text.size() >= kLongestText) {
    AddError(error, messages::TooLong());
    diagnosis.failure = Failure::kForm;
  } else if (entry.IsGranted()) {
    Program& program = entry.BorrowProgram();
    const ReadOptions options{.allows_new = allows_new, .nesting = budget_.GetLimits().nesting};
    Reader reader(registries_, reader_storage_, text, options);
    PushFrame(program, text, name).error = &error;
    while (true) {
      const bool has_more = reader.Read(program, kChunk);
      Top().next = 0;
      if (!FitsLimits() || !Spend(program.code.size()) || !Run(entry.GetBase())) break;
      if (has_more) {
        program.Clear();
        continue;
      }
      result.value = std::move(operands_[0]);
      result.is_named = reader.GetRoot() != Reader::Root::kCall;
      if (reader.GetRoot() == Reader::Root::kOperation && !result.value.IsNumber() &&
          !name.IsEmpty()) {
        result.value.GetValue()->SetName(name);
      }
      return true;
    }
    diagnosis = Diagnose();
  }
  ReportAbort(error, reported, diagnosis);
  return false;
}

void Machine::Read(std::string_view text, Program& program) {
  if (text.size() >= kLongestText) {
    program.GetExtra().message = messages::TooLong();
    program.code.push_back({.code = Code::kFail, .position = 0, .number = 0});
    return;
  }
  const ReadOptions options{.names = &symbols_, .nesting = budget_.GetLimits().nesting};
  Reader(registries_, reader_storage_, text, options).Read(program, kChunk);
}

bool Machine::Evaluate(const Program& program, std::string_view text, Operand& result,
                       Result& failure) {
  Entry entry(*this);
  s_str error;
  Diagnosis diagnosis;
  if (entry.IsGranted()) {
    PushFrame(program, text, Symbol::NoName()).error = &error;
    if (Spend(program.code.size()) && Run(entry.GetBase())) {
      result = operands_.Pop();
      return true;
    }
    diagnosis = Diagnose();
  }
  ReportAbort(error, 0U, diagnosis);
  failure = {{}, error.Take(), diagnosis.place, diagnosis.failure};
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
    if (PushCell(cell) && Run(entry.GetBase())) return answer_;
    if (abort_ == Failure::kRing) abort_ = Failure::kNone;
  }
  // Whether this is a ring depends on who asked.
  MarkImpure();
  return {Outcome::kRing};
}

Result Machine::Evaluate(Cell& cell) {
  const Entry entry(*this);  // or the reason of an abort would be gone with that of Follow
  const CellPtr shared(&cell);
  Answer answer = Follow(cell);
  if (abort_ != Failure::kNone) {
    return {{}, messages::LimitReached(abort_).Take(), {}, abort_};
  }
  if (answer.outcome == Outcome::kRing) {
    return {{}, NameRing(cell).Take(), {}, Failure::kRing};
  }
  if (answer.outcome == Outcome::kValue && !answer.value.IsReference()) {
    return {answer.value.Take(), {}};
  }
  // What failed, or is null, is looked at step by step.
  CellPtr next(&cell);
  Evaluated result;
  s_str error;
  Diagnosis diagnosis{Failure::kForm};
  while (next && Evaluate(next->GetText(), Symbol::NoName(), false, result, error, diagnosis)) {
    if (!result.value.IsReference()) return {result.value.Take(), {}};
    next = Quarn::GetCell(*result.value.GetValue());
  }
  if (!next) error = messages::EmptySymbol();
  return {{}, error.Take(), diagnosis.place, diagnosis.failure};
}

s_refptr<Symbol> Machine::NewReference(const s_str& name, std::string_view expression) {
  return Quarn::NewReference(name, GetCell(expression));
}

CellPtr Machine::GetCell(std::string_view expression) {
  return expression.empty() ? CellPtr() : cells_.Get(expression);
}

void Machine::CleanUp() {
  constexpr std::size_t kLarge = 1U << 20;
  abort_ = Failure::kNone;
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

bool Machine::Spend(std::uint64_t steps) {
  if (budget_.Spend(steps)) return true;
  abort_ = budget_.GetReason();
  return false;
}

bool Machine::FitsText(std::size_t size) {
  const Limits& limits = budget_.GetLimits();
  if (size <= limits.output && size <= limits.memory) return true;
  abort_ = size > limits.output ? Failure::kOutput : Failure::kMemory;
  return false;
}

bool Machine::FitsLimits() {
  if (!budget_.HasRoom()) return true;
  const Limits& limits = budget_.GetLimits();
  const std::size_t elements = lists_.IsEmpty() ? 0 : lists_[0].elements->GetSize();
  const std::size_t bytes = operands_.GetBytes() + frames_.GetBytes() + lists_.GetBytes() +
                            elements * sizeof(double) + reader_storage_.GetBytes();
  if (bytes <= limits.memory && frames_.GetSize() <= limits.nesting) return true;
  abort_ = bytes > limits.memory ? Failure::kMemory : Failure::kNesting;
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
  if (is_impure) MarkImpure();
}

bool Machine::Run(std::size_t base) {
  while (true) {
    Step step = RunFrame();
    if (step == Step::kEnd) {
      if (!Top().cell) return true;
      step = FinishCell(Outcome::kValue);
    } else if (step == Step::kFailed && abort_ == Failure::kNone) {
      if (!Top().cell) return false;
      step = FinishCell(Outcome::kFailed);
    }
    if (abort_ != Failure::kNone) {
      UnwindTo(base);
      return false;
    }
    if (frames_.GetSize() == base) return true;
    if (step == Step::kNext) Top().has_answer = true;
  }
}

}  // namespace Quarn
