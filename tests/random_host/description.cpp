#include "tests/random_host/description.h"

namespace Quarn::random_host {
namespace {

// What an evaluation has said so far is for its own bodies: those of a reference get none of it,
// and leave it as it was.
constexpr bool kMarksErrors = true;

constexpr char kDigits[] = "0123456789";

bool IsDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of(kDigits) == std::string::npos;
}

std::uint32_t Checksum(const std::string& text) {
  std::uint32_t sum = 2166136261U;  // FNV-1a
  for (char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 16777619U;
  return sum ^ (sum >> 15U);
}

std::string List(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) list += (list.empty() ? "" : ", ") + text;
  return list;
}

std::string Show(const Body& body, Outcome outcome) {
  switch (outcome) {
    case Outcome::kValue:
      return "value";
    case Outcome::kWarning:
      return "warning";
    case Outcome::kFirst:
      return "first";
    case Outcome::kLast:
      return "last";
    case Outcome::kKept:
      return "kept";
    case Outcome::kReference:
      return "reference &" + body.reference;
    case Outcome::kEvaluate:
      return "evaluate '" + body.expression + "'";
    case Outcome::kApply:
      return "apply " + body.op;
    case Outcome::kFailure:
      return "failure";
    case Outcome::kSilence:
      return "silence";
    case Outcome::kNull:
      return "null";
    case Outcome::kNone:
      return "none";
    case Outcome::kTwo:
      return "two";
    case Outcome::kTakenBack:
      return "taken back";
  }
  return "";
}

std::string Show(const LiteralTexts& texts) {
  switch (texts.form) {
    case LiteralTexts::Form::kNone:
      return "no literals";
    case LiteralTexts::Form::kMarkDigits:
      return "'" + texts.mark + "' and digits";
    case LiteralTexts::Form::kDigitsMark:
      return "digits and '" + texts.mark + "'";
    case LiteralTexts::Form::kBegin:
      return "what begins with '" + texts.mark + "'";
    case LiteralTexts::Form::kEnd:
      break;
  }
  return "what ends with '" + texts.mark + "'";
}

std::string Show(const Body& body) {
  std::vector<std::string> outcomes;
  for (Outcome outcome : body.outcomes) outcomes.push_back(Show(body, outcome));
  const std::string named = body.name.empty() ? "" : " named '" + body.name + "'";
  return " : " + body.label + " gives " + body.type + named + ", by " + List(outcomes);
}

}  // namespace

std::string TypeOf(const HostType& type, const std::string& payload) {
  if (type.value_class != ValueClass::kChanging) return type.name;
  switch (payload.back() % 3) {
    case 0:
      return "Symbol";
    case 1:
      return type.name + "A";
    default:
      return type.name + "B";
  }
}

std::string FullTypeOf(const HostType& type, const std::string& payload) {
  const std::string own_type = TypeOf(type, payload);
  return type.is_sized ? std::to_string(payload.size()) + "-" + own_type : own_type;
}

std::string TextOf(const HostType& type, const std::string& name, const std::string& payload) {
  return name.empty() || !type.shows_name ? payload : name + " = " + payload;
}

bool LiteralTexts::Accept(const std::string& text) const {
  if (text.size() <= mark.size()) return false;
  const bool begins = text.starts_with(mark);
  const bool ends = text.ends_with(mark);
  switch (form) {
    case Form::kNone:
      return false;
    case Form::kMarkDigits:
      return begins && IsDigits(text.substr(mark.size()));
    case Form::kDigitsMark:
      return ends && IsDigits(text.substr(0, text.size() - mark.size()));
    case Form::kBegin:
      return begins;
    case Form::kEnd:
      break;
  }
  return ends;
}

bool LiteralTexts::MayBegin(const std::string& text) const {
  return starts.empty() || starts.find(text.front()) != std::string::npos;
}

std::string CallText(const Body& body, const std::vector<std::string>& operands) {
  return body.label + "(" + List(operands) + ")";
}

std::string CallLine(const std::string& call, bool has_error) {
  return call + (has_error && kMarksErrors ? " !\n" : "\n");
}

Outcome SelectOutcome(const Body& body, const std::string& call) {
  return body.outcomes[Checksum(call) % body.outcomes.size()];
}

std::uint32_t NumberOfCall(const std::string& call) { return Checksum(call) / 16 % 100; }

std::string FailureOf(const Body& body) { return "\tError : " + body.label + " has no answer"; }

std::string WarningOf(const Body& body) { return "\tWarning : " + body.label + " is not sure"; }

std::string Show(const Description& host, const LiteralRow& row) {
  const std::string starts = row.texts.starts.empty() ? "" : ", starts '" + row.texts.starts + "'";
  return host.types[row.type].name + ", of " + Show(row.texts) + starts + Show(row.body);
}

std::string Show(const OperatorRow& row) {
  const std::string op = " " + row.op + " ";
  return (row.position == Position::kBefore ? "" : row.left) + op +
         (row.position == Position::kBinary ? row.right : "") +
         (row.position == Position::kBefore ? row.left : "") + Show(row.body);
}

std::string Show(const FunctionRow& row) {
  return row.name + "(" + List(row.arguments) + ")" + Show(row.body);
}

}  // namespace Quarn::random_host
