// Watch runs a script anew whenever it is saved, and shows its symbols: a spreadsheet in a text
// editor.
#pragma once

#include <string>

namespace Quarn {

// Until "q", Ctrl-D or the end of input. REQUIRES: standard input and output are a terminal.
void WatchScript(const std::string& path, bool is_coloured);

}  // namespace Quarn
