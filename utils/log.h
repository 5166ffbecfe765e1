// The log of the program: "mirlow.log" in the working directory. Every run starts it afresh, and it
// is open before main begins, in a program that this file's source is linked into.
//   Log().WriteLine("text");
#pragma once

#include "utils/file.h"

namespace Quarn {

// The open log; its fail state is set when the directory allows no log.
File& Log();

}  // namespace Quarn
