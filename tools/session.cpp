#include "tools/session.h"

#include "tools/line_reader.h"
#include "tools/runner.h"

namespace Quarn {

void RunSession(Runner& runner, LineReader& reader) {
  std::string line;
  while (true) {
    const LineReader::Outcome outcome = reader.Read(line);
    if (outcome == LineReader::Outcome::kEnd) return;
    if (outcome == LineReader::Outcome::kAbandoned || line.empty()) continue;
    if (line == "q" || line == "exit") return;
    const bool goes_on = runner.RunLine(line, {});
    runner.Flush();
    if (!goes_on) return;
  }
}

}  // namespace Quarn
