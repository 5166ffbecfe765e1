// The command lines: cuts a line at ";", tells by its characters what each piece asks for, carries
// it out and prints what there is to say. Pieces are not trimmed before they are told apart, and
// the first "=", ":" and "&" count wherever they stand: "~x=3" is an assignment, to a bad name.
#include <istream>
#include <ostream>
#include <string>
#include <utility>

#include "interpreter/builtins.h"
#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "utils/trim.h"

namespace Quarn {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

// The room for a line of output that is kept for the next one.
constexpr std::size_t kMostKept = std::size_t{1} << 20;

bool IsAlphanumeric(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Does the text end with the character, and hold it nowhere else?
bool EndsWithFirst(std::string_view text, char c) {
  return !text.empty() && text.find(c) == text.size() - 1;
}

}  // namespace

bool State::IsName(std::string_view text) {
  for (char c : text) {
    if (!IsAlphanumeric(c)) return false;
  }
  return true;
}

s_bool State::CheckName(std::string_view name, s_str& error) {
  if (IsName(name)) return true;
  AddError(error, name == "_" ? messages::LastResultNotAssignable()
                              : messages::OnlyAlphanumericNames(name));
  return false;
}

void State::ProcessLine(const s_str& line) {
  DropReplaced();
  std::string_view rest = line.GetView();
  while (!rest.empty()) {
    const std::string_view command = rest.substr(0, rest.find(';'));
    rest.remove_prefix(std::min(command.size() + 1, rest.size()));
    if (command.empty() || command.starts_with("//")) continue;
    {
      const Depth::Level level(depth_);
      ProcessCommand(command);
    }
    if (depth_.IsOutside()) workspace_.GiveBack();
  }
}

void State::ProcessCommand(std::string_view command) {
  const std::size_t equals = command.find('=');
  if (equals != kNowhere)
    return ProcessEquals(command.substr(0, equals), command.substr(equals + 1));
  const std::size_t colon = command.find(':');
  if (colon != kNowhere) return Declare(command.substr(0, colon), command.substr(colon + 1));
  if (command == "~") return DeleteAll();
  if (command.front() == '~') return Delete(command.substr(1));
  if (command == "?") {
    PrintHelp();
    return SetLastResult({});
  }
  if (command.front() == '?') return Query(command.substr(1));
  PrintExpression(command);
}

void State::ProcessEquals(std::string_view before, std::string_view expression) {
  // Kept on purpose: "x:=3" does nothing, and says nothing.
  if (EndsWithFirst(before, ':')) return;
  if (EndsWithFirst(before, '&')) {
    return DefineReference(before.substr(0, before.size() - 1), expression);
  }
  Assign(before, expression);
}

void State::DefineReference(std::string_view name, std::string_view expression) {
  if (!PassesNameCheck(name = TrimSpaces(name))) return;
  const s_str own_name(name);
  const s_refptr<Symbol> reference = NewReference(*this, own_name, expression);
  Define(own_name, reference->GetDeclaredType(), reference);
}

void State::Assign(std::string_view name, std::string_view expression) {
  if (!PassesNameCheck(name = TrimSpaces(name))) return;
  const s_str own_name(name);
  s_str error;
  const s_refptr<Symbol> value = EvaluateText(expression, own_name, error);
  if (depth_.IsExhausted()) return PrintMessage(messages::NestedTooDeeply());
  // A warning refuses the value too.
  if (!error.IsEmpty()) return PrintMessage(error);
  if (!value) return;
  Define(own_name, value->GetDeclaredType(), value);
}

void State::Declare(std::string_view name, std::string_view type) {
  if (!PassesNameCheck(name = TrimSpaces(name))) return;
  const auto row = types_.find(type = TrimSpaces(type));
  if (row == types_.end()) return PrintMessage(messages::UnknownType(type));
  const s_str own_name(name);
  const s_refptr<Symbol> value = row->second.create(own_name);
  Define(own_name, s_str(type), value);
}

void State::DeleteAll() {
  Print(messages::EraseAllSymbols().GetView());
  Flush();
  std::string answer;
  // At the end of input the answer is empty, as if Enter had been pressed.
  std::getline(in_, answer);
  if (answer.empty() || answer == "y" || answer == "Y") {
    const s_refptr<Symbol> nothing = NewReference(*this, Symbol::NoName(), "");
    symbols_.Clear();
    symbols_.SetLastResult(nothing);  // never absent, even if memory runs out from here on
    PrintMessage(messages::AllSymbolsErased());
  }
  SetLastResult({});
}

void State::Delete(std::string_view name) {
  if (const s_refptr<Symbol>* symbol = symbols_.Find(name)) {
    const s_refptr<Symbol> erased = *symbol;
    s_str message = messages::SymbolErased(erased->GetType().GetView(), name);
    symbols_.Erase(s_str(name));
    PrintMessage(std::move(message));
  } else {
    PrintMessage(messages::IsUndefined(name));
  }
  SetLastResult({});
}

void State::Query(std::string_view name) {
  const s_refptr<Symbol>* symbol = symbols_.Find(name);
  if (!symbol) return PrintMessage(messages::UnknownSymbol(name));
  const s_refptr<Symbol> queried = *symbol;
  PrintValue("\t", queried->GetType().GetView(), *queried);
  // Kept on purpose: a query that succeeds forgets the last result, one that fails keeps it.
  SetLastResult({});
}

void State::PrintExpression(std::string_view expression) {
  s_str error;
  const s_refptr<Symbol> value = EvaluateText(expression, Symbol::NoName(), error, true);
  if (depth_.IsExhausted()) return PrintMessage(messages::NestedTooDeeply());
  if (!value) return PrintMessage(error);
  const s_str& name = value->GetName();
  if (name.IsEmpty() || symbols_.Contains(name.GetView())) {
    PrintValue("\t", value->GetType().GetView(), *value);
    return SetLastResult(value);
  }
  // A result with a name of its own, such as a new abstract symbol, is a definition.
  if (!PassesNameCheck(name.GetView())) return;
  Define(name, value->GetType(), value);
}

// Only what has been printed becomes the last result: a value that refers to "_" is shown with the
// one before it.
void State::Define(const s_str& name, const s_str& type, const s_refptr<Symbol>& value) {
  symbols_.Set(name, value);
  PrintValue("\tDefining ", type.GetView(), *value);
  SetLastResult(value);
}

bool State::PassesNameCheck(std::string_view name) {
  s_str error;
  if (CheckName(name, error)) return true;
  PrintMessage(error);
  return false;
}

// Past all that the host has told its stream of widths, fills and the like.
void State::Print(std::string_view text) {
  out_.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void State::PrintMessage(s_str message) {
  message += '\n';
  Print(message.GetView());
}

// The whole line is composed before any of it is printed, since a value may be evaluated for it.
// Its room is kept for the next one, and is taken out of the State meanwhile for the same reason.
void State::PrintValue(std::string_view before, std::string_view type, const Symbol& value) {
  s_str line = std::move(line_);
  line.Clear();
  line.Append(before).Append(type).Append(" : ");
  value.AppendTo(line);
  line += '\n';
  Print(line.GetView());
  if (line.Get().capacity() <= kMostKept) line_ = std::move(line);
}

}  // namespace Quarn
