#include "interpreter/reader.h"

#include "interpreter/messages.h"

namespace Quarn {

void ReaderStorage::GiveBack() {
  std::vector<Bracket>().swap(brackets);
  levels.GiveBack();
}

Reader::Reader(const Registries& registries, ReaderStorage& storage, std::string_view text,
               const ReadOptions& options)
    : registries_(registries),
      storage_(storage),
      text_(text),
      options_(options),
      is_leaf_(options.is_leaf),
      level_base_(storage.levels.GetSize()),
      own_brackets_(options.brackets ? std::string_view() : text, storage.brackets),
      brackets_(options.brackets ? *options.brackets : own_brackets_),
      begin_(options.begin),
      end_(options.brackets ? options.end : static_cast<std::uint32_t>(text.size())) {}

Reader::~Reader() { storage_.levels.Shrink(level_base_); }

bool Reader::Read(Program& program, std::size_t most) {
  program_ = &program;
  most_ = most;
  Step step = Step::kOperand;
  if (!is_begun_) {
    is_begun_ = true;
    Level& whole = Open(LevelKind::kWhole, 0);
    whole.is_whole = true;
    whole.allows_new = options_.allows_new;
    const std::uint32_t bracket = begin_ > 0 ? brackets_.FindFirst(begin_) : 0;
    if (!(is_leaf_ ? Enter(whole, begin_, end_, bracket)
                   : EnterChecked(whole, begin_, end_, bracket))) {
      step = Step::kFailed;
    }
  }
  while (step == Step::kOperand) {
    if (options_.nesting != Limits::kNone && IsTooDeep()) break;
    if (program.code.size() >= most_) {
      Emit(options_.names ? Code::kPause : Code::kEnd, 0);
      if (!options_.names) return true;
      most_ += most;
    }
    step = Top().is_between_parts ? NextPart() : ReadOperands();
    if (step == Step::kRest) step = ReadRest();
  }
  if (step == Step::kDone) Emit(Code::kEnd, end_);
  return false;
}

// ---- Levels ----

bool Reader::IsTooDeep() {
  if (storage_.levels.GetSize() - level_base_ <= options_.nesting) return false;
  return !Fail(messages::LimitReached(Failure::kNesting), 0, 0, Failure::kNesting);
}

Reader::Level& Reader::Open(LevelKind kind, std::uint32_t position) {
  Level& level = storage_.levels.Push();
  level.kind = kind;
  level.position = position;
  return level;
}

bool Reader::Enter(Level& level, std::uint32_t begin, std::uint32_t end, std::uint32_t bracket) {
  const std::uint32_t whole_begin = begin;
  const std::uint32_t whole_end = end;
  begin = SkipBlanks(begin, end);
  while (begin < end && At(end - 1) == ' ') --end;
  if (begin == end) return Fail(messages::EmptySymbol(), whole_begin, whole_end);
  level.at = begin;
  level.end = end;
  level.bracket = bracket;
  level.has_operand = false;
  return true;
}

bool Reader::EnterChecked(Level& level, std::uint32_t begin, std::uint32_t end,
                          std::uint32_t bracket) {
  return Enter(level, begin, end, bracket) && CheckBrackets(begin, end, bracket);
}

// Is a stretch the whole text, all that is in a pair of brackets, or without any?
bool Reader::IsBetweenPartners(std::uint32_t begin, std::uint32_t end,
                               std::uint32_t bracket) const {
  if (begin == begin_ && end == end_) return true;
  if (bracket == brackets_.GetSize() || brackets_[bracket].open >= end) return true;
  return bracket > 0 && brackets_[bracket - 1].open + 1 == begin &&
         brackets_[bracket - 1].close == end;
}

// Are the brackets balanced at the top level of a stretch?
bool Reader::CheckEachBracket(std::uint32_t begin, std::uint32_t end, std::uint32_t bracket) {
  if (brackets_.IsWellNested() && IsBetweenPartners(begin, end, bracket)) return true;
  for (std::uint32_t i = begin; i < end; ++i) {
    const CharacterClass kind = Classify(At(i));
    if (kind < CharacterClass::kOpen) continue;
    if (kind == CharacterClass::kClose) return Fail(messages::TooManyClosing(At(i)), i, i + 1);
    if (brackets_[bracket].close >= end) return Fail(messages::Unterminated(At(i)), i, i + 1);
    i = brackets_[bracket].close;
    bracket = brackets_[bracket].next;
  }
  return true;
}

// Parentheses around the whole are taken away; others are a level of their own.
Reader::Step Reader::OpenParentheses(std::uint32_t begin, std::uint32_t end,
                                     std::uint32_t bracket) {
  const bool is_whole = IsWhole(Top());
  Level& level = is_whole ? Top() : Open(LevelKind::kParentheses, begin);
  level.allows_new = false;
  return EnterChecked(level, begin + 1, end - 1, bracket + 1) ? Step::kOperand : Step::kFailed;
}

// Goes through the parts between commas; empty ones are left out, blank ones are not.
Reader::Step Reader::OpenList(Level& level, std::uint32_t begin, std::uint32_t end,
                              std::uint32_t bracket) {
  level.list_at = begin;
  level.list_end = end;
  level.list_bracket = bracket;
  if (!CheckBrackets(begin, end, bracket)) return Step::kFailed;
  return NextPart();
}

Reader::Step Reader::NextPart() {
  Level& level = Top();
  level.is_between_parts = true;
  while (level.list_at < level.list_end) {
    if (program_->code.size() >= most_) return Step::kOperand;
    if (ReadNumberPart(level)) continue;
    const std::uint32_t begin = level.list_at;
    const std::uint32_t bracket = level.list_bracket;
    const std::uint32_t end =
        Skip(begin, level.list_end, level.list_bracket, CharacterClass::kComma);
    level.list_at = end + 1;
    if (begin == end) continue;
    level.is_between_parts = false;
    return Enter(level, begin, end, bracket) ? Step::kOperand : Step::kFailed;
  }
  return EndList(level);
}

// Most parts are a number each.
bool Reader::ReadNumberPart(Level& level) {
  const std::uint32_t begin = SkipBlanks(level.list_at, level.list_end);
  if (begin == level.list_end) return false;
  const NumberPrefix number = ReadNumber(begin, level.list_end);
  if (!number.end) return false;
  const std::uint32_t end = SkipBlanks(ToPosition(number.end), level.list_end);
  if (end < level.list_end && At(end) != ',') return false;
  const bool is_argument = level.kind == LevelKind::kArguments;
  EmitNumber(is_argument ? Code::kNumber : Code::kNumberElement, begin, number.number);
  if (is_argument) ++level.count;
  level.list_at = end + 1;
  return true;
}

Reader::Step Reader::EndList(const Level& level) {
  if (level.kind == LevelKind::kArguments) {
    Instruction& call = Emit(Code::kCall, level.position);
    call.part.length = level.count;
    call.part.id = static_cast<std::uint32_t>(level.function);
    if (level.is_whole_leaf) root_ = Root::kCall;
  } else {
    Instruction& list = Emit(Code::kEndList, level.position);
    list.type = level.type;
    list.is_whole = level.is_whole_leaf;
    if (level.is_whole_leaf) root_ = Root::kLeaf;
  }
  storage_.levels.Drop(1);
  return Step::kRest;
}

// Ends what was read to its end: a level, or one part of a list.
Reader::Step Reader::Close() {
  Level& level = Top();
  switch (level.kind) {
    case LevelKind::kWhole:
      return Step::kDone;
    case LevelKind::kArguments:
      ++level.count;
      return NextPart();
    case LevelKind::kElements:
      EmitElement();
      return NextPart();
    case LevelKind::kObject:
      level.kind = LevelKind::kIndex;
      return EnterChecked(level, level.list_at, level.list_end, level.list_bracket) ? Step::kOperand
                                                                                    : Step::kFailed;
    case LevelKind::kIndex:
      EmitBinary(kIndexing, level.position);
      break;
    default:  // parentheses
      break;
  }
  storage_.levels.Drop(1);
  return Step::kRest;
}

// ---- Operands and operators ----

// Is the operand that was read last the whole expression?
bool Reader::IsWhole(const Level& level) const {
  return level.is_whole && level.at == level.end && level.pending_count == 0;
}

// Reads numbers and the operators between them, which is what most expressions are made of; other
// operands go by ReadOther.
Reader::Step Reader::ReadOperands() {
  Level& level = Top();
  const char* const text = text_.data();
  const std::uint32_t end = level.end;
  std::uint32_t at = level.at;
  while (program_->code.size() < most_) {
    at = SkipBlanks(at, end);
    level.has_operand = at < end && Classify(text[at]) != CharacterClass::kOperator;
    if (level.has_operand) {
      const NumberPrefix number = ReadNumber(at, end);
      const std::uint32_t next = SkipBlanks(number.end ? ToPosition(number.end) : end, end);
      if (!number.end || (next < end && Classify(text[next]) != CharacterClass::kOperator)) {
        return ReadOther(level, at);
      }
      EmitNumber(Code::kNumber, at, number.number);
      at = next;
    }
    if (at == end) {
      level.at = at;
      if (level.has_operand && IsWhole(level)) root_ = Root::kLeaf;
      return ReadEnd();
    }
    if (!ReadOperator(level, at++)) return Step::kFailed;
  }
  level.at = at;
  return Step::kOperand;
}

NumberPrefix Reader::ReadNumber(std::uint32_t begin, std::uint32_t end) const {
  const NumberReader read = registries_.GetLiteralStart(At(begin)).read_number;
  if (!read) return {nullptr, 0};
  return read(text_.data() + begin, text_.data() + end);
}

Reader::Step Reader::ReadOther(Level& level, std::uint32_t begin) {
  const std::uint32_t bracket = level.bracket;
  // Only the text as a whole is known to be a leaf.
  const bool is_leaf = std::exchange(is_leaf_, false);
  std::uint32_t end =
      is_leaf ? level.end : Skip(begin, level.end, level.bracket, CharacterClass::kOperator);
  level.at = end;
  while (At(end - 1) == ' ') --end;
  if (At(begin) == '(' && At(end - 1) == ')') return OpenParentheses(begin, end, bracket);
  return ReadLeaf(begin, end, bracket);
}

// What follows an operand: an operator, or the ends of levels.
Reader::Step Reader::ReadRest() {
  Level& level = Top();
  if (level.at == level.end) return ReadEnd();
  ReadOperator(level, level.at++);  // which has its left operand
  return Step::kOperand;
}

bool Reader::ReadOperator(Level& level, std::uint32_t at) {
  const std::uint8_t op = kOperatorOf[static_cast<unsigned char>(At(at))];
  const auto priority = static_cast<std::uint8_t>(kPriorities[op].priority);
  if (!ApplyDue(level, priority)) return false;
  level.pending[level.pending_count++] = {priority, op, level.has_operand, at};
  return true;
}

Reader::Step Reader::ReadEnd() {
  while (true) {
    Level& level = Top();
    if (!ApplyDue(level, kLowestPriority)) return Step::kFailed;
    const Step step = Close();
    if (step != Step::kRest) return step;
    if (Top().at < Top().end) return ReadRest();
  }
}

// Applies what binds at least as tightly as what comes next.
bool Reader::ApplyDue(Level& level, unsigned int next_priority) {
  while (level.pending_count > 0 &&
         level.pending[level.pending_count - 1].priority >= next_priority) {
    const Pending& operation = level.pending[--level.pending_count];
    if (operation.has_left && level.has_operand) {
      EmitBinary(operation.op, operation.position);
    } else if (!ApplyToOne(level, operation)) {
      return false;
    }
  }
  return true;
}

bool Reader::ApplyToOne(Level& level, const Pending& operation) {
  const auto [priority, op, has_left, position] = operation;
  if (!has_left && !level.has_operand) {
    return Fail(messages::MissingOperands(kPriorities[op].text), position, position + 1);
  }
  Emit(has_left ? Code::kLeftUnary : Code::kRightUnary, position).op = op;
  level.has_operand = true;
  return true;
}

// The right operand is often a number or a symbol, and part of the instruction then.
void Reader::EmitBinary(std::uint8_t op, std::uint32_t position) {
  Instruction& last = program_->code.back();
  if (last.code == Code::kNumber || last.code == Code::kName) {
    last.code = last.code == Code::kNumber ? Code::kBinaryNumber : Code::kBinaryName;
    last.op = op;
    last.position = position;
  } else {
    Emit(Code::kBinary, position).op = op;
  }
}

void Reader::EmitElement() {
  if (program_->code.back().code == Code::kNumber) {
    program_->code.back().code = Code::kNumberElement;
  } else {
    Emit(Code::kElement, Top().at);
  }
}

bool Reader::Fail(const s_str& message, std::uint32_t begin, std::uint32_t end, Failure failure) {
  program_->GetExtra().failure = failure;
  program_->GetExtra().message = message;
  program_->GetExtra().place = {begin, end - begin};
  Emit(Code::kFail, begin);
  return false;
}

// ---- Looking ahead ----

std::uint32_t Reader::SkipBlanks(std::uint32_t begin, std::uint32_t end) const {
  while (begin < end && At(begin) == ' ') ++begin;
  return begin;
}

// The next character of the class at top level, or the end; `bracket` becomes the first bracket
// that opens from there on.  REQUIRES: balanced brackets.
std::uint32_t Reader::Skip(std::uint32_t begin, std::uint32_t end, std::uint32_t& bracket,
                           CharacterClass stop) const {
  for (; begin < end; ++begin) {
    const CharacterClass kind = Classify(At(begin));
    if (kind == stop) break;
    if (kind != CharacterClass::kOpen) continue;
    begin = brackets_[bracket].close;
    bracket = brackets_[bracket].next;
  }
  return begin;
}

// The first bracket that opens at or after a position.
std::uint32_t Reader::FindBracket(std::uint32_t bracket, std::uint32_t position) const {
  while (bracket < brackets_.GetSize() && brackets_[bracket].open < position) ++bracket;
  return bracket;
}

std::uint32_t Reader::FindNext(char c, std::uint32_t begin, std::uint32_t end) {
  Found& next = next_[c == '(' ? 0 : c == '[' ? 1 : 2];
  if (begin < next.from || begin > next.position) {
    const std::size_t found = text_.substr(0, end_).find(c, begin);
    next = {begin, found == std::string_view::npos ? Bracket::kOpenEnd
                                                   : static_cast<std::uint32_t>(found)};
  }
  return next.position < end ? next.position : Bracket::kOpenEnd;
}

}  // namespace Quarn
