// The log file of the program, "mirlow.log" in the working directory. It is truncated and opened
// before main, in a program that log.cpp is linked into.
//   Log().WriteLine("text");
#pragma once

#include "utils/file.h"

namespace Quarn {

// In the fail state if the file could not be created.
File& Log();

}  // namespace Quarn
