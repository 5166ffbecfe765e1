#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tests/model/generator_random.h"

namespace Quarn::model {

// How many commands are nothing but "~", each of which asks whether to erase all symbols.
inline std::size_t CountQuestions(const std::string& line) {
  std::size_t questions = 0;
  std::string piece;
  for (char c : line + ";") {
    if (c != ';') {
      piece += c;
      continue;
    }
    if (piece == "~") ++questions;
    piece.clear();
  }
  return questions;
}

inline std::vector<std::string> AnswersTo(const std::string& line, Dice& dice) {
  std::vector<std::string> answers;
  for (std::size_t left = CountQuestions(line); left > 0; --left) {
    answers.push_back(dice.Pick({"", "y", "Y", "n", "n", "N", "no", "yes", " y", "y "}));
  }
  return answers;
}

}  // namespace Quarn::model
