#include "utils/log.h"

namespace Quarn {
namespace {

// Opens the log before main, even if nothing is ever written to it.
[[maybe_unused]] const File& opened_before_main = Log();

}  // namespace

// A local variable, so that an object made before main may use the log whatever the order.
File& Log() {
  static File log("mirlow.log", File::kWrite);
  return log;
}

}  // namespace Quarn
