#include "tools/report_writer.h"

#include <optional>

#include "tools/json.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

using Kind = Report::Kind;

void AppendKey(std::string& line, std::string_view key) {
  line += line.size() > 1 && !line.ends_with('{') ? "," : "";
  AppendJsonString(line, key);
  line += ':';
}

void AppendText(std::string& line, std::string_view key, std::string_view text) {
  AppendKey(line, key);
  AppendJsonString(line, text);
}

void AppendCount(std::string& line, std::string_view key, std::size_t count) {
  AppendKey(line, key);
  line += std::to_string(count);
}

// Is the text what a number is printed as?
std::optional<double> ReadNumber(const s_str& text) {
  const s_double number = ToDouble(text);
  if (ToText(number) != text) return std::nullopt;
  return number.Get();
}

// A reference that calls `rand` draws anew whenever it is evaluated, so its number is read off the
// text.
void AppendValue(std::string& line, const Report& report) {
  AppendKey(line, "value");
  if (report.value->GetKind() == Symbol::Kind::kReference) {
    if (const auto number = ReadNumber(report.text)) return AppendJsonNumber(line, *number);
  }
  AppendJsonValue(line, report.value);
}

// "Error : Empty symbol" without its first words, which the kind says too.
std::string_view SkipLabel(std::string_view message) {
  for (const std::string_view label : {"Error : ", "Warning : "}) {
    if (message.starts_with(label)) return message.substr(label.size());
  }
  return message;
}

void AppendError(std::string& line, const Report& report, const Source& source) {
  AppendKey(line, "error");
  line += '{';
  AppendText(line, "message", SkipLabel(report.message));
  if (!source.name.empty()) AppendText(line, "file", source.name);
  AppendCount(line, "line", source.line);
  if (report.place != Place()) {
    AppendCount(line, "position", source.column + report.place.position);
    AppendCount(line, "length", report.place.length);
  }
  line += '}';
}

}  // namespace

void WriteJson(std::ostream& out, const Report& report, const Source& source) {
  std::string line = "{";
  AppendText(line, "kind", GetKindName(report.kind));
  if (!report.type.empty()) AppendText(line, "type", report.type);
  if (!report.name.empty()) AppendText(line, "name", report.name);
  if (report.value) AppendValue(line, report);
  if (report.value || !report.text.empty()) AppendText(line, "text", report.text);
  if (report.kind == Kind::kError) {
    AppendError(line, report, source);
  } else if (!report.message.empty()) {
    AppendText(line, "message", SkipLabel(report.message));
  }
  out << line << "}\n";
}

void WritePlain(std::ostream& out, const Report& report) {
  if (report.kind == Kind::kHelp) out << report.text;
  if (report.kind == Kind::kValue || report.kind == Kind::kQuery) out << report.text << '\n';
}

void WriteMessage(std::ostream& errors, std::string_view message, const Source& source) {
  if (!source.name.empty()) errors << source.name << ':' << source.line << ": ";
  errors << message << '\n';
}

}  // namespace Quarn
