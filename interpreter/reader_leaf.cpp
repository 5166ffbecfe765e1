// What stands between operators and is not in parentheses. It is tried as a literal, a symbol, a
// function call and an indexing, in this order.
#include "interpreter/messages.h"
#include "interpreter/names.h"
#include "interpreter/reader.h"
#include "interpreter/symbol_table.h"
#include "utils/trim.h"

namespace Quarn {

Reader::Step Reader::ReadLeaf(std::uint32_t begin, std::uint32_t end, std::uint32_t bracket) {
  const std::string_view text = Text(begin, end);
  // The one operator that the scan for operators never meets, since its "[" opens a bracket.
  if (text == kPriorities[kIndexing].text) {
    Fail(messages::MissingOperands(text), begin, end);
    return Step::kFailed;
  }
  const TypeRow* type = nullptr;
  const Registries::LiteralStart& start = registries_.GetLiteralStart(text.front());
  for (const TypeRow* row : start.types) {
    if (!row->is_literal(text)) continue;
    if (type) {
      FailAmbiguous(start, begin, end);
      return Step::kFailed;
    }
    type = row;
  }
  if (type) return ReadLiteral(*type, begin, end, bracket);
  if (IsAlphanumeric(text) || text == SymbolTable::kLastResult) {
    ReadSymbol(begin, end, IsWhole(Top()));
    return Step::kRest;
  }
  // The first bracket decides by itself, if it is a parenthesis, or the only one.
  if (bracket < brackets_.GetSize()) {
    const auto [open, close, next] = brackets_[bracket];
    if (open < end && At(open) == '(') return ReadCall(begin, end, open, bracket);
    if (close + 1 == end && At(open) == '[' && next == bracket + 1) {
      return ReadIndexing(begin, open, close, bracket);
    }
  }
  const std::uint32_t parenthesis = FindNext('(', begin, end);
  if (parenthesis != Bracket::kOpenEnd) return ReadCall(begin, end, parenthesis, bracket);
  const std::uint32_t open = FindNext('[', begin, end);
  const std::uint32_t close = FindNext(']', begin, end);
  if (open < close && close != Bracket::kOpenEnd) return ReadIndexing(begin, open, close, bracket);
  Fail(messages::NoOperatorFound(text), begin, end);
  return Step::kFailed;
}

bool Reader::FailAmbiguous(const Registries::LiteralStart& start, std::uint32_t begin,
                           std::uint32_t end) {
  const std::string_view text = Text(begin, end);
  s_ctnr<s_str> names;
  for (const TypeRow* row : start.types) {
    if (row->is_literal(text)) names.PushBack(row->name);
  }
  return Fail(messages::AmbiguousConstructor(text, names), begin, end);
}

Reader::Step Reader::ReadLiteral(const TypeRow& type, std::uint32_t begin, std::uint32_t end,
                                 std::uint32_t bracket) {
  const bool is_whole = IsWhole(Top());
  if (type.create_list) {
    Emit(Code::kBeginList, begin);
    Level& list = Open(LevelKind::kElements, begin);
    list.is_whole_leaf = is_whole;
    list.type = &type;
    return OpenList(list, begin + 1, end - 1, bracket + 1);
  }
  if (is_whole) root_ = Root::kLeaf;
  if (type.read_number) {
    const NumberPrefix number = type.read_number(text_.data() + begin, text_.data() + end);
    if (number.end && ToPosition(number.end) == end) {
      EmitNumber(Code::kNumber, begin, number.number);
      return Step::kRest;
    }
  }
  if (type.keeps_expression) {
    begin = SkipBlanks(begin + 1, end);
    Instruction& reference = Emit(Code::kReference, begin);
    reference.part.length = end - begin;
    reference.is_whole = is_whole;
    return Step::kRest;
  }
  Instruction& literal = Emit(Code::kLiteral, begin);
  literal.part.length = end - begin;
  literal.part.id = static_cast<std::uint32_t>(program_->GetExtra().types.size());
  literal.is_whole = is_whole;
  program_->GetExtra().types.push_back(&type);
  return Step::kRest;
}

void Reader::ReadSymbol(std::uint32_t begin, std::uint32_t end, bool is_whole) {
  if (is_whole) root_ = Root::kLeaf;
  Name* name = options_.names ? options_.names->Bind(Text(begin, end)) : nullptr;
  Instruction& symbol = Emit(name ? Code::kName : Code::kSymbol, begin);
  symbol.is_whole = is_whole;
  symbol.allows_new = is_whole && Top().allows_new;
  if (name) {
    symbol.name = name;
  } else {
    symbol.part.length = end - begin;
  }
}

Reader::Step Reader::ReadCall(std::uint32_t begin, std::uint32_t end, std::uint32_t open,
                              std::uint32_t bracket) {
  const std::string_view name = TrimSpaces(Text(begin, open));
  const std::size_t function = registries_.FindFunction(name);
  if (function == Registries::kNoFunction) {
    Fail(messages::UndefinedFunction(name), begin, begin + static_cast<std::uint32_t>(name.size()),
         Failure::kUnknownName);
    return Step::kFailed;
  }
  bracket = FindBracket(bracket, open);
  const bool is_whole = IsWhole(Top());
  Level& list = Open(LevelKind::kArguments, begin);
  list.is_whole_leaf = is_whole;
  list.function = function;
  return OpenList(list, open + 1, FindListEnd(open, bracket, end), bracket + 1);
}

// Where the argument list ends that opens at a bracket. A parenthesis inside other brackets may
// never close; the last one that closes anything then ends the list.
std::uint32_t Reader::FindListEnd(std::uint32_t open, std::uint32_t bracket,
                                  std::uint32_t end) const {
  const std::uint32_t close = brackets_[bracket].close;
  if (close < end) return close;
  const std::size_t last = Text(open + 1, end).rfind(')');
  return last == std::string_view::npos ? end : open + 1 + static_cast<std::uint32_t>(last);
}

// What follows the first "]" is not looked at.
Reader::Step Reader::ReadIndexing(std::uint32_t begin, std::uint32_t open, std::uint32_t close,
                                  std::uint32_t bracket) {
  if (close == open + 1) {
    Fail(messages::EmptyIndex(), open, close + 1);
    return Step::kFailed;
  }
  if (open == begin) {
    Fail(messages::IndexOnNothing(), open, open + 1);
    return Step::kFailed;
  }
  if (IsPlainName(Text(begin, open))) {
    ReadSymbol(begin, open, false);
    return ReadIndex(open, close, bracket + 1);
  }
  Level& level = Open(LevelKind::kObject, open);
  level.list_at = open + 1;
  level.list_end = close;
  level.list_bracket = FindBracket(bracket, open + 1);
  return EnterChecked(level, begin, open, bracket) ? Step::kOperand : Step::kFailed;
}

// Is it surely a symbol, since no type may claim it?
bool Reader::IsPlainName(std::string_view text) const {
  return registries_.GetLiteralStart(text.front()).types.empty() && IsAlphanumeric(text);
}

// The index of an object that was read, which is a number most of the time.
Reader::Step Reader::ReadIndex(std::uint32_t open, std::uint32_t close, std::uint32_t bracket) {
  const NumberPrefix number = ReadNumber(open + 1, close);
  if (number.end && ToPosition(number.end) == close) {
    EmitNumber(Code::kNumber, open + 1, number.number);
    EmitBinary(kIndexing, open);
    return Step::kRest;
  }
  Level& level = Open(LevelKind::kIndex, open);
  return EnterChecked(level, open + 1, close, bracket) ? Step::kOperand : Step::kFailed;
}

}  // namespace Quarn
