#include "interpreter/version.h"

namespace Quarn {

const char* GetVersion() { return kVersion; }

}  // namespace Quarn
