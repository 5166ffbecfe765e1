#include "tools/session.h"

#include <iostream>

#include "tools/colours.h"
#include "tools/hints.h"
#include "tools/line_reader.h"
#include "tools/runner.h"
#include "utils/trim.h"

namespace Quarn {
namespace {

class Session {
 public:
  Session(Runner& runner, std::string key_help, bool is_coloured)
      : runner_(runner), key_help_(std::move(key_help)), is_coloured_(is_coloured) {}

  // False when the session is over.
  bool RunLines(std::string_view lines) {
    while (!lines.empty()) {
      const std::string_view line = lines.substr(0, lines.find('\n'));
      lines.remove_prefix(std::min(line.size() + 1, lines.size()));
      if (!RunLine(line)) return false;
      if (runner_.WasInterrupted()) return true;
    }
    return true;
  }

  void Say(const std::string& hint) const {
    std::cout << (is_coloured_ ? Paint(hint, kFaintColour) : hint) << std::flush;
  }

 private:
  bool RunLine(std::string_view line) {
    if (line == "q" || line == "exit") return false;
    if (NeedsHint(line)) {
      hinted_ = line;
      Say(GetHint(line));
      return true;
    }
    hinted_.clear();
    const bool goes_on = runner_.RunLine(line, {});
    runner_.Flush();
    if (line == "?") std::cout << key_help_ << std::flush;
    return goes_on;
  }

  // Who types it again means it.
  bool NeedsHint(std::string_view line) const {
    return line != hinted_ && !GetHint(line).empty() &&
           !runner_.GetState().GetSymbol(TrimSpaces(line));
  }

  Runner& runner_;
  const std::string key_help_;
  bool is_coloured_;
  std::string hinted_;
};

}  // namespace

void RunSession(Runner& runner, LineReader& reader, bool is_coloured) {
  Session session(runner, reader.GetKeyHelp(), is_coloured);
  session.Say(GetGreeting());
  std::string lines;
  while (true) {
    const LineReader::Outcome outcome = reader.Read(lines);
    if (outcome == LineReader::Outcome::kEnd) return;
    if (outcome == LineReader::Outcome::kAbandoned) continue;
    std::erase(lines, '\r');
    if (!session.RunLines(lines)) return;
  }
}

}  // namespace Quarn
