#include "utils/log.h"

#include <fcntl.h>
#include <unistd.h>

namespace Quarn {
namespace {

// A standard file that the caller has closed is opened on nothing: otherwise the next file to be
// opened would take its place, and results would be written into the log, or into the script.
bool FillStandardFiles() {
  unsigned int file = 0;
  do {
    file = static_cast<unsigned int>(open("/dev/null", O_RDWR));  // the largest if it failed
  } while (file <= STDERR_FILENO);
  close(static_cast<int>(file));
  return true;
}

// Opens the log before main, even if nothing is ever written to it.
[[maybe_unused]] const File& opened_before_main = Log();

}  // namespace

// A local variable, so that an object made before main may use the log whatever the order.
File& Log() {
  [[maybe_unused]] static const bool filled = FillStandardFiles();
  static File log("mirlow.log", File::kWrite);
  return log;
}

}  // namespace Quarn
