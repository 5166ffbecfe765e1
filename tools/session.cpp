#include "tools/session.h"

#include "interpreter/state.h"
#include "tools/line_reader.h"

namespace Quarn {

void RunSession(State& state, LineReader& reader, std::istream& answers) {
  std::string line;
  while (true) {
    const LineReader::Outcome outcome = reader.Read(line);
    if (outcome == LineReader::Outcome::kEnd) return;
    if (outcome == LineReader::Outcome::kAbandoned || line.empty()) continue;
    if (line == "q" || line == "exit") return;
    state.ProcessLine(line);
    state.Flush();
    answers.clear();
  }
}

}  // namespace Quarn
