// The interactive session.
#pragma once

namespace Quarn {

class LineReader;
class Runner;

// Runs line by line until "q", "exit" or the end of input.
void RunSession(Runner& runner, LineReader& reader);

}  // namespace Quarn
