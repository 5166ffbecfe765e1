#include "tools/report.h"

#include <algorithm>

#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "utils/trim.h"

namespace Quarn {
namespace {

using Kind = Report::Kind;

constexpr std::string_view kError = "\tError : ";
constexpr std::string_view kWarning = "\tWarning : ";
constexpr std::string_view kDefining = "\tDefining ";
constexpr std::string_view kErased = " erased\n";
constexpr std::string_view kAfterType = " : ";

// The name in "name = 1", "name&=1" and "name:Type"; empty for other commands.
std::string_view FindDefinedName(std::string_view command) {
  std::string_view name = command.substr(0, command.find('='));
  if (name.size() == command.size()) {
    name = command.substr(0, command.find(':'));
    return name.size() == command.size() ? std::string_view() : TrimSpaces(name);
  }
  if (name.ends_with('&')) name.remove_suffix(1);
  return TrimSpaces(name);
}

bool Defines(std::string_view command) {
  return command.find_first_of("=:") != std::string_view::npos;
}

Kind FindKind(std::string_view command, std::string_view output) {
  if (output.empty()) return Kind::kNothing;
  if (IsError(output)) return Kind::kError;
  if (output.starts_with(kDefining)) return Kind::kDefinition;
  if (Defines(command)) return Kind::kWarning;
  if (command.starts_with('~')) return output.ends_with(kErased) ? Kind::kDeletion : Kind::kNothing;
  if (command == "?") return Kind::kHelp;
  if (output.starts_with(kWarning)) return Kind::kWarning;
  return command.starts_with('?') ? Kind::kQuery : Kind::kValue;
}

// Takes the type off the output, and leaves what follows on the line.
std::string_view TakeType(std::string_view& output) {
  output.remove_prefix(output.starts_with(kDefining) ? kDefining.size() : 1);
  const std::string_view type = output.substr(0, output.find(kAfterType));
  output.remove_prefix(type.size() + kAfterType.size());
  output.remove_suffix(1);
  return type;
}

std::string_view SkipName(std::string_view text, std::string_view name) {
  const std::string before = std::string(name) + " = ";
  if (!name.empty() && text.starts_with(before)) text.remove_prefix(before.size());
  return text;
}

void DescribeValue(const State& state, std::string_view command, std::string_view output,
                   Report& report) {
  report.type = TakeType(output);
  report.value = state.GetSymbol("_");
  if (report.kind == Kind::kQuery) {
    report.name = command.substr(1);
    report.value = state.GetSymbol(report.name);
  } else if (report.kind == Kind::kDefinition) {
    report.name = Defines(command) ? std::string(FindDefinedName(command))
                                   : report.value->GetName().Get();  // a new abstract symbol
  }
  report.text = SkipName(output, report.name);
}

// The answer to a question stands on the question's line.
std::string_view SkipQuestion(std::string_view output) {
  const s_str question = messages::EraseAllSymbols();
  if (output.starts_with(question.GetView())) output.remove_prefix(question.GetView().size());
  return output;
}

}  // namespace

std::string_view GetKindName(Kind kind) {
  static constexpr std::string_view kNames[] = {"nothing",  "definition", "value",   "query",
                                                "deletion", "help",       "warning", "error"};
  return kNames[static_cast<std::size_t>(kind)];
}

bool IsError(std::string_view output) {
  return output.starts_with(kError) || output.find("\n\tError : ") != std::string_view::npos;
}

Report Describe(const State& state, std::string_view command, std::string_view output) {
  Report report;
  report.kind = FindKind(command, output);
  switch (report.kind) {
    case Kind::kDefinition:
    case Kind::kValue:
    case Kind::kQuery:
      DescribeValue(state, command, output, report);
      break;
    case Kind::kError:
      report.place = state.GetFailure().place;
      report.message = JoinLines(output);
      break;
    case Kind::kDeletion:
    case Kind::kNothing:
      if (command.starts_with('~')) report.name = command.substr(1);
      report.message = JoinLines(SkipQuestion(output));
      break;
    case Kind::kWarning:
      report.message = JoinLines(output);
      break;
    case Kind::kHelp:
      report.text = output;
      break;
  }
  return report;
}

std::string JoinLines(std::string_view message) {
  std::string joined;
  for (const char c : message) {
    const bool is_blank = c == ' ' || c == '\t' || c == '\n';
    if (!is_blank) joined += c;
    if (is_blank && !joined.empty() && joined.back() != ' ') joined += ' ';
  }
  if (joined.ends_with(' ')) joined.pop_back();
  return joined;
}

}  // namespace Quarn
