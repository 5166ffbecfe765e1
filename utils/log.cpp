#include "utils/log.h"

#if !defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>
#endif

namespace Quarn {
namespace {

// Opens closed standard files on /dev/null: otherwise the next file to be opened would get their
// number, and results would be written to the log or the script.
bool FillStandardFiles() {
#if !defined(_WIN32)  // which opens them itself
  unsigned int file = 0;
  do {
    file = static_cast<unsigned int>(open("/dev/null", O_RDWR));  // the largest if it failed
  } while (file <= STDERR_FILENO);
  close(static_cast<int>(file));
#endif
  return true;
}

// Even if nothing is ever written to it.
[[maybe_unused]] const File& opened_before_main = Log();

}  // namespace

// A local, since other static objects may use the log before main.
File& Log() {
  [[maybe_unused]] static const bool filled = FillStandardFiles();
  static File log("mirlow.log", File::kWrite);
  return log;
}

}  // namespace Quarn
