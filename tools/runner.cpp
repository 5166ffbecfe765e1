#include "tools/runner.h"

#include <algorithm>

#include "interpreter/messages.h"
#include "tools/colours.h"
#include "tools/interrupts.h"
#include "types/vector.h"

namespace Quarn {

Runner::Runner(const Options& options, std::streambuf& out, std::istream& answers)
    : options_(options),
      out_(&out),
      capture_(out, options.format == Format::kText ? out : *options.errors->rdbuf(),
               options.asks_at_terminal ? Interrupts::BeginQuestion : nullptr),
      captured_(&capture_),
      state_(captured_, answers) {
  Vector::Register(state_);
  state_.SetLimits(options.limits);
}

// Cuts the line as the State does.
bool Runner::RunLine(std::string_view line, Source source) {
  const char* const begin = line.data();
  was_interrupted_ = false;
  while (!line.empty()) {
    const std::string_view command = line.substr(0, line.find(';'));
    line.remove_prefix(std::min(command.size() + 1, line.size()));
    if (command.empty() || command.starts_with("//")) continue;
    source.column = static_cast<std::size_t>(command.data() - begin);
    RunCommand(command, source);
    was_interrupted_ = Interrupts::Take();
    if (was_interrupted_) {
      if (!line.empty()) TellInterruption();
      return true;
    }
    if (has_seen_error_ && options_.stops_on_error) return false;
  }
  return true;
}

// Unless a command has said so: Ctrl-C may come between two.
void Runner::TellInterruption() {
  const s_str message = messages::LimitReached(Failure::kInterrupted);
  if (capture_.GetText().find(message.GetView()) != std::string_view::npos) return;
  has_seen_error_ = true;
  (options_.format == Format::kText ? out_ : *options_.errors) << message.GetView() << '\n';
}

void Runner::RunCommand(std::string_view command, const Source& source) {
  capture_.Clear();
  const bool may_erase_all = options_.recorder && command == "~";
  const std::vector<std::string> names = may_erase_all ? ListNames() : std::vector<std::string>();
  state_.ProcessLine(s_str(command));
  has_seen_error_ = has_seen_error_ || IsError(capture_.GetText());
  if (options_.recorder) {
    options_.recorder->Add(command, Describe(state_, command, capture_.GetText()), names);
  }
  if (!is_silent_ || IsError(capture_.GetText())) Show(command, source);
}

std::vector<std::string> Runner::ListNames() const {
  std::vector<std::string> names;
  for (const s_str& name : state_.GetSymbolNames()) names.push_back(name.Get());
  return names;
}

void Runner::Show(std::string_view command, const Source& source) {
  if (options_.format == Format::kText) return ShowText(source);
  const Report report = Describe(state_, command, capture_.GetText());
  if (options_.format == Format::kJson) return WriteJson(out_, report, source);
  WritePlain(out_, report);
  const bool is_complaint =
      report.kind == Report::Kind::kError || report.kind == Report::Kind::kWarning;
  if (is_complaint) WriteMessage(*options_.errors, report.message, source);
}

void Runner::ShowText(const Source& source) {
  const std::string_view output = capture_.GetRest();
  const bool needs_place = !source.name.empty() && IsError(output);
  if (needs_place && options_.errors_join_output) out_ << source.name << ':' << source.line << ':';
  if (options_.is_coloured) {
    out_ << AddColours(output);
  } else {
    out_.write(output.data(), static_cast<std::streamsize>(output.size()));
  }
  if (needs_place && !options_.errors_join_output) {
    WriteMessage(*options_.errors, JoinLines(output), source);
  }
}

bool Runner::Flush() { return static_cast<bool>(out_.flush()); }

}  // namespace Quarn
