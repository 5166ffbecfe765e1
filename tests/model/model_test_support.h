#pragma once

#include <cstddef>
#include <deque>
#include <sstream>
#include <string>

#include "tests/model/model.h"

namespace Quarn::model {

// Draws 1, 2, 3, ...: with these, rand(0,2147483647) prints which draw it was.
inline Model::Random Counter() {
  return [drawn = 0]() mutable { return ++drawn; };
}

// Types the lines one after the other and gives back what the last one prints.
inline std::string Last(const std::string& lines, std::deque<std::string> answers = {}) {
  Model model(Counter());
  std::istringstream in(lines);
  std::string output;
  for (std::string line; std::getline(in, line);) output = model.Run(line, answers);
  return output;
}

// A row of a table: the lines that are typed, and what the last of them prints.
struct Row {
  const char* lines;
  const char* output;
};

}  // namespace Quarn::model
