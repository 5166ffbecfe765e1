// UtilsManager is where the library says all it has to say: warnings, errors and reports, one line
// at a time. Where a line ends up is the choice of the program, which installs the print function;
// until then lines are dropped.
//   UtilsManager::Get().SetPrintFunction(&PrintLine);
//   UtilsManager::Get().Warning("File", "nothing to read");  // "# Warning # : File : nothing ..."
#pragma once

#include "utils/manager.h"
#include "utils/s_int.h"
#include "utils/s_str.h"

namespace Quarn {

class UtilsManager : public Manager<UtilsManager> {
 public:
  // The source of its messages.
  static constexpr char kClassName[] = "UtilsManager";

  // Gets a line without a newline, and ends it.
  using PrintFunction = void (*)(const s_str& text);

  // Null drops all that follows.
  void SetPrintFunction(PrintFunction print) { print_ = print; }

  // Hands a line to the print function; it is lost when there is none.
  void Print(const s_str& text);

  // Print the message after a fixed word and the name of its source, which may be empty.
  void Warning(const s_str& source, const s_str& message);
  void Error(const s_str& source, const s_str& message);

  // How many texts were lost because no print function was installed.
  s_uint GetDropped() const { return dropped_; }

 private:
  friend class Manager<UtilsManager>;
  UtilsManager() = default;
  ~UtilsManager() override = default;

  PrintFunction print_ = nullptr;
  s_uint dropped_;
};

}  // namespace Quarn
