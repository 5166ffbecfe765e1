// A header of the host's, of a name that mirlow has a header of too.
#pragma once

namespace host {

inline const char* GetFileName() { return "table.txt"; }

}  // namespace host
