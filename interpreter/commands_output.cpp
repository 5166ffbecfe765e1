// What the command lines print.
#include <ostream>
#include <utility>

#include "interpreter/commands.h"
#include "interpreter/core.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

// Of a line of output, what is kept for the next one.
constexpr std::size_t kMostKept = std::size_t{1} << 20;

void Begin(s_str& line, std::string_view before, std::string_view type) {
  line.Clear();
  line.Append(before).Append(type).Append(" : ");
}

}  // namespace

void Commands::Flush() { out_.flush(); }

// Unformatted: ignores the stream's width and fill.
void Commands::Print(std::string_view text) {
  out_.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void Commands::PrintMessage(s_str message) {
  message += '\n';
  Print(message.GetView());
}

// False when it takes more memory than it may; then a message says so.
bool Commands::PrintValue(std::string_view before, std::string_view type, const Symbol& value) {
  if (value.GetKind() == Symbol::Kind::kReference) {
    s_str beginning;
    Begin(beginning, before, type);
    return PrintReference(beginning.GetView(), value.GetName().GetView(), GetCell(value));
  }
  s_str line = std::move(line_);
  Begin(line, before, type);
  TextWriter writer(line, &core_.machine);
  value.Write(writer);
  return FinishLine(line, writer);
}

// The same. Most references stand for a number, which needs no writer.
bool Commands::PrintReference(std::string_view before, std::string_view name, const CellPtr& cell) {
  const Answer answer = cell ? cell->Follow() : Answer();
  if (answer.IsPlainNumber()) {
    ComposeNumber(before, name, answer.value.GetNumber());
    const std::size_t size = line_.Get().size() - 1;
    if (!core_.machine.FitsText(size) || !core_.machine.Spend(1)) return FailOnLimit();
    Print(line_.GetView());
    return true;
  }
  s_str line = std::move(line_);
  line.Clear();
  line.Append(before);
  if (cell && !name.empty()) line.Append(name).Append(" = ");
  TextWriter writer(line, &core_.machine);
  writer.AppendReference(cell);
  if (cell) writer.Continue(answer);
  return FinishLine(line, writer);
}

// The whole line is composed before any of it is printed, since a value may be evaluated for it.
bool Commands::FinishLine(s_str& line, TextWriter& writer) {
  if (!WriteOut(writer)) return FailOnLimit();
  line += '\n';
  Print(line.GetView());
  // Its room is used again; it was moved out because printing may re-enter.
  if (line.Get().capacity() <= kMostKept) line_ = std::move(line);
  return true;
}

bool Commands::FailOnLimit() {
  const Failure kind = core_.machine.GetAbort();
  Fail(kind, core_.machine.TakeAbort());
  return false;
}

void Commands::PrintNumber(std::string_view before, std::string_view name, double number) {
  ComposeNumber(before, name, number);
  Print(line_.GetView());
}

void Commands::ComposeNumber(std::string_view before, std::string_view name, double number) {
  line_.Clear();
  line_.Append(before);
  if (!name.empty()) line_.Append(name).Append(" = ");
  char digits[kNumberRoom];
  char* end = WriteDouble(digits, number);
  *end++ = '\n';
  line_.Append(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

}  // namespace Quarn
