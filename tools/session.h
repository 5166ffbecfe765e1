// A dialogue with a person at a terminal.
#pragma once

#include <istream>

namespace Quarn {

class LineReader;
class State;

// Carries out line by line until "q", "exit" or the end of input. A command that is running ends by
// Ctrl-C, and the program with it. `answers` is where the State asks its questions: Ctrl-D answers
// one of them, not all that are to come.
void RunSession(State& state, LineReader& reader, std::istream& answers);

}  // namespace Quarn
