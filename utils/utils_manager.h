// UtilsManager prints what the library has to report, warnings, errors and reports, line by line
// through the print function that the program installs. Until then, lines are dropped.
//   UtilsManager::Get().SetPrintFunction(&PrintLine);
//   UtilsManager::Get().Warning("File", "nothing to read");  // "# Warning # : File : nothing ..."
#pragma once

#include "utils/manager.h"
#include "utils/s_int.h"
#include "utils/s_str.h"

namespace Quarn {

class UtilsManager : public Manager<UtilsManager> {
 public:
  static constexpr char kClassName[] = "UtilsManager";

  // Gets a line without a newline, and adds one.
  using PrintFunction = void (*)(const s_str& text);

  // Null drops the lines that follow.
  void SetPrintFunction(PrintFunction print) { print_ = print; }

  void Print(const s_str& text);

  // The source is the name of a class, or empty: "# Warning # : Timer : message".
  void Warning(const s_str& source, const s_str& message);
  void Error(const s_str& source, const s_str& message);

  s_uint GetDropped() const { return dropped_; }  // lines

 private:
  friend class Manager<UtilsManager>;
  UtilsManager() = default;
  ~UtilsManager() override = default;

  PrintFunction print_ = nullptr;
  s_uint dropped_;
};

}  // namespace Quarn
