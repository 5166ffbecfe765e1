// The loop over instructions. What is usual stands in the loop: numbers, and symbols that hold
// some. All else goes through RunSlowly, whose steps may begin again once a reference is evaluated.
#include "interpreter/machine_entry.h"
#include "interpreter/messages.h"
#include "interpreter/registries.h"

namespace Quarn {

Machine::Step Machine::RunFrame() {
  if (Top().is_following) return FollowOn();
  // Both are looked up anew after whatever may call back.
  Frame* frame = &Top();
  const Instruction* at = frame->program->code.data() + frame->next;
  while (true) {
    switch (at->code) {
      case Code::kNumber:
        operands_.Push(at->number);
        ++at;
        continue;
      case Code::kBinaryNumber: {
        Operand& left = operands_[0];
        const BinaryOnNumbers apply = registries_.GetOnNumbers(at->op);
        if (!apply || !left.IsNumber() || frame->stage != 0) break;
        left.SetNumber(apply(left.GetNumber(), at->number));
        ++at;
        continue;
      }
      case Code::kBinary: {
        const Operand& right = operands_[0];
        Operand& left = operands_[1];
        const BinaryOnNumbers apply = registries_.GetOnNumbers(at->op);
        if (!apply || !left.IsNumber() || !right.IsNumber()) break;
        left.SetNumber(apply(left.GetNumber(), right.GetNumber()));
        operands_.Drop(1);
        ++at;
        continue;
      }
      case Code::kName:
        if (!at->name->IsNumber() || frame->stage != 0) break;
        if (frame->reader) at->name->readers.Add(*frame->reader);
        operands_.Push(at->name->number);
        ++at;
        continue;
      case Code::kBinaryName: {
        Operand& left = operands_[0];
        const BinaryOnNumbers apply = registries_.GetOnNumbers(at->op);
        if (!apply || !left.IsNumber() || !at->name->IsNumber() || frame->stage != 0) break;
        if (frame->reader) at->name->readers.Add(*frame->reader);
        left.SetNumber(apply(left.GetNumber(), at->name->number));
        ++at;
        continue;
      }
      case Code::kSymbol: {
        const Name* name = symbols_.Find(TextOf(*at));
        if (!name || !name->IsNumber()) break;
        operands_.Push(name->number);
        ++at;
        continue;
      }
      case Code::kNumberElement:
        if (!lists_[0].are_numbers) break;
        lists_[0].elements->Add(at->number);
        ++at;
        continue;
      case Code::kCall: {
        const Registries::NamedFunction& function = registries_.GetFunction(at->part.id);
        if (frame->stage != 0 || !CallOnNumbers(function, at->part.length)) break;
        ++at;
        continue;
      }
      case Code::kEnd:
        frame->next = static_cast<std::uint32_t>(at - frame->program->code.data());
        return Step::kEnd;
      default:
        break;
    }
    frame->next = static_cast<std::uint32_t>(at - frame->program->code.data());
    const Step step = RunSlowly(*at);
    if (step != Step::kNext) return step;
    frame = &Top();
    frame->stage = 0;
    ++at;
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
    default:
      return Fail(Top().program->extra->message);
  }
}

Machine::Step Machine::Fail(const s_str& message) {
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
  const s_refptr<Symbol> object = name->object;
  if (IsFreshNumber(*object) && IsAppliedAtOnce(instruction)) {
    Cell& cell = *Quarn::GetCell(*object);
    if (Top().reader) cell.readers.Add(*Top().reader);
    operands_.Push(cell.answer.value.GetNumber());
    return Step::kNext;
  }
  if (IsLookedAtOnly(*object, (&instruction)[1])) {
    operands_.Push().SetObject(object);
    return Step::kNext;
  }
  operands_.Push(Operand::CopyOf(*object));
  if (!instruction.is_whole || Top().name->IsEmpty()) return Step::kNext;
  return WarnAboutSymbol();
}

// Will the symbol be an operand of an operator of numbers, before anything else is evaluated? Then
// nobody can tell a reference from its number.
bool Machine::IsAppliedAtOnce(const Instruction& instruction) const {
  if (instruction.code == Code::kBinaryName) {
    return registries_.GetOnNumbers(instruction.op) && operands_[0].IsNumber();
  }
  const Instruction& next = (&instruction)[1];
  return (next.code == Code::kBinaryNumber || next.code == Code::kBinaryName) &&
         registries_.GetOnNumbers(next.op);
}

// Will a list be an operand of what takes operands as they are, and looks at neither their names
// nor who else has them?
bool Machine::IsLookedAtOnly(const Symbol& object, const Instruction& next) const {
  if (next.code != Code::kBinaryNumber || object.GetKind() != Symbol::Kind::kList) return false;
  const RegisteredBinary* entry = registries_.FindBinary(next.op, true, false);
  return entry && entry->on_operands;
}

Machine::Step Machine::FailToFind(std::string_view text, const Instruction& instruction) {
  if (!instruction.allows_new || !Top().name->IsEmpty()) {
    return Fail(messages::UnknownSymbol(text));
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
  if (!value || abort_ != Abort::kNone) return Step::kFailed;
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
  return list.types.Accept(type, GetError()) ? Step::kNext : Step::kFailed;
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

Machine::Step Machine::CheckReferences() {
  const s_refptr<Elements> elements = lists_[0].elements;
  for (; Top().stage < elements->GetSize(); ++Top().stage) {
    const Operand element = (*elements)[Top().stage];
    if (element.GetFullType().GetView() != kReferenceType) continue;
    s_str type;
    if (!GetType(element, type)) return Stop();
    if (!lists_[0].types.AcceptReference(type, GetError())) return Step::kFailed;
  }
  return Step::kNext;
}

}  // namespace Quarn
