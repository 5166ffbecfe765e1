// The loop over instructions. Numbers, and symbols that hold numbers, are handled in the loop. All
// else goes through RunSlowly, whose steps may start again once a reference is evaluated.
#include "interpreter/machine_entry.h"
#include "interpreter/messages.h"
#include "interpreter/registries.h"

namespace Quarn {

namespace {

// Of a name that stands for a reference; null when it does not, or for a null reference.
Cell* FindCell(const Name& name) {
  if (name.IsReference()) return name.cell;
  const bool is_reference = name.object->GetKind() == Symbol::Kind::kReference;
  return is_reference ? GetCell(*name.object).Get() : nullptr;
}

}  // namespace

// Runs instructions on numbers and on symbols that hold numbers, which cannot fail or wait. Returns
// the first other one.
// One function, so that the top of the stack stays in a register.
inline const Instruction* Machine::RunNumbers(  // NOLINT(readability-function-cognitive-complexity)
    const Instruction* at, Frame& frame) {
  Cell* const reader = frame.reader;
  Operand* top = operands_.GetTop();
  const auto apply = [&](double right) {
    const BinaryOnNumbers body = registries_.GetOnNumbers(at->op);
    if (!body || !top->IsNumber()) return false;
    top->SetNumber(body(top->GetNumber(), right));
    return true;
  };
  for (;; ++at) {
    switch (at->code) {
      case Code::kNumber:
        top = &operands_.Push(at->number);
        continue;
      case Code::kBinaryNumber:
        if (!apply(at->number)) return at;
        continue;
      case Code::kBinary: {
        if (!top->IsNumber()) return at;
        const double right = top->GetNumber();
        --top;
        if (!apply(right)) return at;
        operands_.Drop(1);
        continue;
      }
      case Code::kName:
        if (!at->name->IsNumber()) return at;
        if (reader) at->name->readers.Add(*reader);
        top = &operands_.Push(at->name->number);
        continue;
      case Code::kBinaryName:
        if (!at->name->IsNumber() || !apply(at->name->number)) return at;
        if (reader) at->name->readers.Add(*reader);
        continue;
      case Code::kSymbol: {
        const Name* name = symbols_.Find(TextOf(*at));
        if (!name || !name->IsNumber()) return at;
        top = &operands_.Push(name->number);
        continue;
      }
      case Code::kNumberElement:
        if (!lists_[0].are_numbers) return at;
        lists_[0].elements->Add(at->number);
        continue;
      case Code::kCall:
        if (!CallOnNumbers(*at, frame)) return at;
        top = operands_.GetTop();
        continue;
      default:
        return at;
    }
  }
}

Machine::Step Machine::RunFrame() {
  if (Top().is_following) return FollowOn();
  while (true) {
    Frame& frame = Top();
    const Instruction* const code = frame.program->code.data();
    const Instruction* at = code + frame.next;
    if (frame.stage == 0) at = RunNumbers(at, frame);
    frame.next = static_cast<std::uint32_t>(at - code);
    if (at->code == Code::kEnd) return Step::kEnd;
    const Step step = RunSlowly(*at);
    if (step != Step::kNext) return step;
    // The frame is looked up anew: it may have moved.
    Top().stage = 0;
    ++Top().next;
  }
}

Machine::Step Machine::RunSlowly(const Instruction& instruction) {
  switch (instruction.code) {
    case Code::kSymbol:
    case Code::kName:
      return PushSymbol(instruction);
    case Code::kLiteral:
      return PushLiteral(instruction);
    case Code::kReference:
    case Code::kCell:
      return PushReference(instruction);
    case Code::kBinaryNumber:
      if (Top().stage == 0) operands_.Push(instruction.number);
      return Binary(instruction.op);
    case Code::kBinaryName:
      if (Top().stage == 0) {
        const Step step = PushSymbol(instruction);
        if (step != Step::kNext) return step;
      }
      return Binary(instruction.op);
    case Code::kBinary:
      return Binary(instruction.op);
    case Code::kLeftUnary:
    case Code::kRightUnary:
      return Unary(instruction.code, instruction.op);
    case Code::kBeginList:
      lists_.Push().elements = s_refptr<Elements>(new Elements);
      return Step::kNext;
    case Code::kNumberElement:
      operands_.Push(instruction.number);
      return AddElement();
    case Code::kElement:
      return AddElement();
    case Code::kEndList:
      return EndList(instruction);
    case Code::kCall:
      return Call(instruction);
    case Code::kPause:
      return Spend(0) ? Step::kNext : Step::kFailed;
    default:
      return Fail(Top().program->extra->failure, Top().program->extra->message);
  }
}

Machine::Step Machine::Fail(Failure failure, const s_str& message) {
  Top().failure = failure;
  AddError(GetError(), message);
  return Step::kFailed;
}

std::string_view Machine::TextOf(const Instruction& instruction) const {
  return frames_[0].text.substr(instruction.position, instruction.part.length);
}

// ---- Symbols ----

Machine::Step Machine::PushSymbol(const Instruction& instruction) {
  if (Top().stage > 0) return WarnAboutSymbol();
  const bool is_bound = instruction.code != Code::kSymbol;
  Name* name = is_bound ? instruction.name : symbols_.Find(TextOf(instruction));
  if (is_bound && Top().reader) name->readers.Add(*Top().reader);
  if (!name || !name->HasValue()) {
    return FailToFind(is_bound ? name->text.GetView() : TextOf(instruction), instruction);
  }
  if (name->IsNumber()) {
    operands_.Push(name->number);
    return Step::kNext;
  }
  Cell* cell = FindCell(*name);
  if (IsFreshNumber(cell) && IsAppliedAtOnce(instruction)) {
    if (Top().reader) cell->readers.Add(*Top().reader);
    operands_.Push(cell->answer.value.GetNumber());
    return Step::kNext;
  }
  if (name->IsReference()) {
    operands_.Push(Quarn::NewReference(Symbol::NoName(), CellPtr(cell)));
  } else if (IsLookedAtOnly(*name->object, (&instruction)[1])) {
    operands_.Push().SetObject(name->object);
    return Step::kNext;
  } else {
    // Kept, since a type's Clone may give the name another value.
    const s_refptr<Symbol> object = name->object;
    operands_.Push(Operand::CopyOf(*object));
  }
  if (!instruction.is_whole || Top().name->IsEmpty()) return Step::kNext;
  return WarnAboutSymbol();
}

// Will an operator on numbers take the symbol before anything else is evaluated? Then a reference
// and its number cannot be told apart.
bool Machine::IsAppliedAtOnce(const Instruction& instruction) const {
  if (instruction.code == Code::kBinaryName) {
    return registries_.GetOnNumbers(instruction.op) && operands_[0].IsNumber();
  }
  const Instruction& next = (&instruction)[1];
  return (next.code == Code::kBinaryNumber || next.code == Code::kBinaryName) &&
         registries_.GetOnNumbers(next.op);
}

// Will an operator take the list that looks at neither its name nor its owners? Then it need not be
// copied.
bool Machine::IsLookedAtOnly(const Symbol& object, const Instruction& next) const {
  if (next.code != Code::kBinaryNumber || object.GetKind() != Symbol::Kind::kList) return false;
  const RegisteredBinary* entry = registries_.FindBinary(next.op, true, false);
  return entry && entry->on_operands;
}

Machine::Step Machine::FailToFind(std::string_view text, const Instruction& instruction) {
  if (Top().cell) {
    // Nobody hears of the errors of a reference.
    Top().failure = Failure::kUnknownName;
    return Step::kFailed;
  }
  if (!instruction.allows_new || !Top().name->IsEmpty()) {
    return Fail(Failure::kUnknownName, messages::UnknownSymbol(text));
  }
  operands_.Push(s_refptr<Symbol>(new Symbol(s_str(text))));
  return Step::kNext;
}

// The copy of a symbol that is given another name. Asking a reference for its type evaluates it, so
// it is only asked where it matters.
Machine::Step Machine::WarnAboutSymbol() {
  Top().stage = 1;
  const Operand copy = operands_[0];
  if (copy.IsNumber()) return Step::kNext;
  s_str type;
  if (!GetType(copy, type)) return Stop();
  copy.GetValue()->SetName(*Top().name);
  if (type.GetView() == Symbol::kType) AddError(GetError(), messages::SymbolAssignedToSymbol());
  return Step::kNext;
}

// ---- Literals ----

Machine::Step Machine::PushLiteral(const Instruction& instruction) {
  const TypeRow& type = *Top().program->extra->types[instruction.part.id];
  if (type.purity == Purity::kImpure) Top().is_impure = true;
  const s_str name = instruction.is_whole ? *Top().name : s_str();
  const s_str text(TextOf(instruction));
  s_refptr<Symbol> value = type.create_from(state_, name, text, GetError());
  if (!value || abort_ != Failure::kNone) return Step::kFailed;
  Operand operand;
  // The whole of an expression bears the name that its type gave it.
  instruction.is_whole ? operand.SetObject(std::move(value)) : void(operand = Operand(value));
  operands_.Push(std::move(operand));
  return Step::kNext;
}

Machine::Step Machine::PushReference(const Instruction& instruction) {
  const Frame& frame = Top();
  CellPtr cell;
  if (instruction.code == Code::kCell) {
    cell = CellPtr(instruction.cell);
  } else if (instruction.part.length > 0) {
    cell = cells_.Get(TextOf(instruction));
  }
  operands_.Push(
      Quarn::NewReference(instruction.is_whole ? *frame.name : Symbol::NoName(), std::move(cell)));
  return Step::kNext;
}

// An element that is a reference has no type until all are known.
Machine::Step Machine::AddElement() {
  Operand element = operands_.Pop();
  if (lists_[0].are_numbers && element.IsNumber()) {
    lists_[0].elements->Add(element.GetNumber());
    return Step::kNext;
  }
  const s_str type = element.GetFullType();
  List& list = lists_[0];
  if (list.are_numbers && list.elements->GetSize() > 0) list.types.Accept(kNumberType, GetError());
  list.are_numbers = false;
  list.elements->Add(std::move(element));
  return list.types.Accept(type, GetError()) ? Step::kNext : FailOnTypes();
}

Machine::Step Machine::EndList(const Instruction& instruction) {
  if (lists_[0].types.HasReferences()) {
    const Step step = CheckReferences();
    if (step != Step::kNext) return step;
  }
  const s_refptr<Elements> elements = std::move(lists_[0].elements);
  lists_.Drop(1);
  const s_str& name = instruction.is_whole ? *Top().name : Symbol::NoName();
  operands_.Push(instruction.type->create_list(name, elements));
  return Step::kNext;
}

// The types of the elements differ.
Machine::Step Machine::FailOnTypes() {
  Top().failure = Failure::kNoMatch;
  return Step::kFailed;
}

Machine::Step Machine::CheckReferences() {
  const s_refptr<Elements> elements = lists_[0].elements;
  for (; Top().stage < elements->GetSize(); ++Top().stage) {
    const Operand element = (*elements)[Top().stage];
    if (element.GetFullType().GetView() != kReferenceType) continue;
    s_str type;
    if (!GetType(element, type)) return Stop();
    if (!lists_[0].types.AcceptReference(type, GetError())) return FailOnTypes();
  }
  return Step::kNext;
}

}  // namespace Quarn
