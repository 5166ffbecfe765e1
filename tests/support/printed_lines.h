// Catches what the library prints.
//   PrintedLines printed;
//   UtilsManager::Get().Print("a");
//   EXPECT_EQ(printed.Get(), "a\n");
#pragma once

#include <string>

#include "utils/utils_manager.h"

namespace Quarn {

// One at a time; what is printed before and after it is lost.
class PrintedLines {
 public:
  PrintedLines() {
    text.clear();
    UtilsManager::Get().SetPrintFunction(&Keep);
  }
  PrintedLines(const PrintedLines&) = delete;
  PrintedLines& operator=(const PrintedLines&) = delete;
  ~PrintedLines() { UtilsManager::Get().SetPrintFunction(nullptr); }

  // Every line with its newline.
  const std::string& Get() const { return text; }

 private:
  static inline std::string text;

  static void Keep(const s_str& line) { text += line.Get() + "\n"; }
};

}  // namespace Quarn
