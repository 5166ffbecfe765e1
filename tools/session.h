// The interactive session.
#pragma once

namespace Quarn {

class LineReader;
class Runner;

// Runs line by line until "q", "exit" or the end of input. Says at first how to get help.
void RunSession(Runner& runner, LineReader& reader, bool is_coloured);

}  // namespace Quarn
