// The interactive session.
#pragma once

#include <istream>

namespace Quarn {

class LineReader;
class State;

// Runs line by line until "q", "exit" or the end of input. Ctrl-C during a command ends the
// program. `answers` is the State's input for questions: Ctrl-D answers a single one.
void RunSession(State& state, LineReader& reader, std::istream& answers);

}  // namespace Quarn
