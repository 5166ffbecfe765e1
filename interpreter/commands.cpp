// The command lines. Pieces are not trimmed before they are told apart, and the first "=", ":" and
// "&" count wherever they stand: "~x=3" is an assignment, to a bad name.
#include "interpreter/commands.h"

#include <istream>
#include <string>
#include <utility>

#include "interpreter/core.h"
#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "utils/trim.h"

namespace Quarn {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

// Most lines print a number; these save putting its beginning together.
constexpr std::string_view kNumberShown = "\tScalar : ";
constexpr std::string_view kNumberDefined = "\tDefining Scalar : ";
constexpr std::string_view kReferenceDefined = "\tDefining Reference : ";
static_assert(kNumberShown.substr(1).starts_with(kNumberType));
static_assert(kNumberDefined.ends_with(kNumberShown.substr(1)));
static_assert(kReferenceDefined.substr(10).starts_with(kReferenceType));

// Does the text end with the character, and hold it nowhere else?
bool EndsWithFirst(std::string_view text, char c) {
  return !text.empty() && text.find(c) == text.size() - 1;
}

}  // namespace

class Commands::Line {
 public:
  Line(Commands& commands, const char* begin)
      : commands_(commands), outer_(std::exchange(commands.current_, this)), begin_(begin) {}
  ~Line() {
    commands_.current_ = outer_;
    if (failure_ || commands_.failure_) commands_.failure_ = std::move(failure_);
  }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

  const char* GetBegin() const { return begin_; }
  // Keeps the first failure.
  void Fail(Result failure) {
    if (!failure_) failure_ = std::make_unique<Result>(std::move(failure));
  }

 private:
  Commands& commands_;
  Line* outer_;
  const char* begin_;
  std::unique_ptr<Result> failure_;  // null as long as there is none
};

void Commands::ProcessLine(std::string_view line) {
  Line current(*this, line.data());
  Budget& budget = core_.machine.GetBudget();
  const Budget::Scope scope(budget);
  while (!line.empty() && !budget.IsInterrupted()) {
    const std::string_view command = line.substr(0, line.find(';'));
    line.remove_prefix(std::min(command.size() + 1, line.size()));
    if (command.empty() || command.starts_with("//")) continue;
    budget.Refill();
    ProcessCommand(command);
  }
  // It came between two commands.
  if (!line.empty() && !budget.WasHeard()) {
    Fail(Failure::kInterrupted, messages::LimitReached(Failure::kInterrupted));
  }
}

void Commands::ProcessCommand(std::string_view command) {
  const std::size_t equals = command.find('=');
  if (equals != kNowhere)
    return ProcessEquals(command.substr(0, equals), command.substr(equals + 1));
  const std::size_t colon = command.find(':');
  if (colon != kNowhere) return Declare(command.substr(0, colon), command.substr(colon + 1));
  if (command == "~") return DeleteAll();
  if (command.front() == '~') return Delete(command.substr(1));
  if (command == "?") {
    PrintHelp();
    return ForgetLastResult();
  }
  if (command.front() == '?') return Query(command.substr(1));
  PrintExpression(command);
}

void Commands::ProcessEquals(std::string_view before, std::string_view expression) {
  // Kept on purpose: "x:=3" does nothing, and says nothing.
  if (EndsWithFirst(before, ':')) return;
  if (EndsWithFirst(before, '&')) {
    return DefineReference(before.substr(0, before.size() - 1), expression);
  }
  Assign(before, expression);
}

// As the machine does; remembers a failure, and where in the line it is.
bool Commands::Evaluate(std::string_view expression, const s_str& name, bool allows_new,
                        Evaluated& result, s_str& error) {
  Diagnosis diagnosis;
  if (core_.machine.Evaluate(expression, name, allows_new, result, error, diagnosis)) return true;
  if (diagnosis.place != Place()) diagnosis.place.position += FindPlace(expression).position;
  KeepFailure(diagnosis.failure, error, diagnosis.place);
  return false;
}

void Commands::DefineReference(std::string_view name, std::string_view expression) {
  name = TrimSpaces(name);
  core_.machine.PrefetchCell(expression);
  core_.symbols.Prefetch(name);
  if (!PassesNameCheck(name, FindPlace(name))) return;
  const CellPtr cell = core_.machine.GetCell(expression);
  const s_refptr<Symbol> before = core_.symbols.ReplaceByReference(name, cell);
  if (!PrintReference(kReferenceDefined, name, cell)) return Restore(name, before);
  core_.symbols.SetLastReference(cell, name);
}

void Commands::Assign(std::string_view name, std::string_view expression) {
  name = TrimSpaces(name);
  core_.symbols.Prefetch(name);
  if (!PassesNameCheck(name, FindPlace(name))) return;
  s_str error;
  Evaluated result;
  const bool has_value = Evaluate(expression, s_str(name), false, result, error);
  // A warning refuses the value too.
  if (!error.IsEmpty()) return Fail(Failure::kValue, std::move(error));
  if (!has_value) return;
  if (result.value.IsNumber()) return DefineNumber(name, result);
  const s_refptr<Symbol>& value = result.value.GetValue();
  Define(name, value->GetDeclaredType(), value);
}

void Commands::Declare(std::string_view name, std::string_view type) {
  name = TrimSpaces(name);
  if (!PassesNameCheck(name, FindPlace(name))) return;
  const auto row = core_.registries.GetTypes().find(type = TrimSpaces(type));
  if (row == core_.registries.GetTypes().end()) {
    return Fail(Failure::kUnknownName, messages::UnknownType(type), FindPlace(type));
  }
  Define(name, s_str(type), row->second.create(s_str(name)));
}

void Commands::DeleteAll() {
  Print(messages::EraseAllSymbols().GetView());
  Flush();
  std::string answer;
  // At the end of input the answer is empty, as if Enter had been pressed.
  std::getline(in_, answer);
  if (answer.empty() || answer == "y" || answer == "Y") {
    core_.symbols.Clear();
    ForgetLastResult();  // never absent, even if memory runs out from here on
    PrintMessage(messages::AllSymbolsErased());
  }
  ForgetLastResult();
}

void Commands::Delete(std::string_view name) {
  s_str message = messages::IsUndefined(name);
  if (Name* symbol = core_.symbols.Find(name)) {
    const s_refptr<Symbol> erased = core_.symbols.GetObject(*symbol);
    message = messages::SymbolErased(erased->GetType().GetView(), name);
    core_.symbols.Erase(name);
  }
  PrintMessage(message);
  ForgetLastResult();
}

void Commands::Query(std::string_view name) {
  Name* symbol = core_.symbols.Find(name);
  if (!symbol) {
    return Fail(Failure::kUnknownName, messages::UnknownSymbol(name), FindPlace(name));
  }
  if (symbol->IsNumber()) {
    PrintNumber(kNumberShown, core_.symbols.GetNameOfValue(*symbol), symbol->number);
  } else {
    const s_refptr<Symbol> queried = core_.symbols.GetObject(*symbol);
    if (!PrintValue("\t", queried->GetType().GetView(), *queried)) return;
  }
  // Kept on purpose: a query that succeeds forgets the last result, one that fails keeps it.
  ForgetLastResult();
}

void Commands::PrintExpression(std::string_view expression) {
  s_str error;
  Evaluated result;
  if (!Evaluate(expression, Symbol::NoName(), true, result, error)) return PrintMessage(error);
  if (result.value.IsNumber()) {
    PrintNumber(kNumberShown, {}, result.value.GetNumber());
    return core_.symbols.SetLastResult(result.value);
  }
  const s_refptr<Symbol> value = result.value.GetValue();
  const s_str name = value->GetName();
  if (name.IsEmpty() || core_.symbols.Contains(name.GetView())) {
    if (!PrintValue("\t", value->GetType().GetView(), *value)) return;
    return core_.symbols.SetLastResult(result.value);
  }
  // A result with a name of its own, such as a new abstract symbol, is a definition.
  if (!PassesNameCheck(name.GetView(), {})) return;
  Define(name.GetView(), value->GetType(), value);
}

void Commands::ForgetLastResult() { core_.symbols.SetLastReference({}); }

// Only what has been printed becomes the last result: a value that refers to "_" is shown with the
// one before it.
void Commands::Define(std::string_view name, const s_str& type, const s_refptr<Symbol>& value) {
  const s_refptr<Symbol> before = core_.symbols.Replace(name, value);
  if (!PrintValue("\tDefining ", type.GetView(), *value)) return Restore(name, before);
  Operand result;
  result.SetObject(value);
  core_.symbols.SetLastResult(result);
}

void Commands::Restore(std::string_view name, const s_refptr<Symbol>& before) {
  before ? core_.symbols.Set(name, before) : core_.symbols.Erase(name);
}

void Commands::DefineNumber(std::string_view name, const Evaluated& result) {
  const double number = result.value.GetNumber();
  core_.symbols.SetNumber(name, number, result.is_named);
  if (!result.is_named) name = {};
  PrintNumber(kNumberDefined, name, number);
  core_.symbols.SetLastResult(result.value, name);
}

bool Commands::PassesNameCheck(std::string_view name, const Place& place) {
  s_str error;
  if (State::CheckName(name, error)) return true;
  Fail(Failure::kForm, std::move(error), place);
  return false;
}

void Commands::Fail(Failure kind, s_str message, const Place& place) {
  KeepFailure(kind, message, place);
  PrintMessage(std::move(message));
}

// For the host. A later failure of the line may come of an earlier one.
void Commands::KeepFailure(Failure kind, const s_str& message, const Place& place) {
  current_->Fail({{}, message.Get(), place, kind});
}

const Result& Commands::GetFailure() const {
  static const Result none;
  return failure_ ? *failure_ : none;
}

// Where in the line a part of it is.
Place Commands::FindPlace(std::string_view part) const {
  return {static_cast<std::size_t>(part.data() - current_->GetBegin()), part.size()};
}

}  // namespace Quarn
