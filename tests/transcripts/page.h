// A page is one dialogue with the program, as a person reads and retypes it:
//   # The last result, and a question.          what the page shows; only on top
//   > 1+1                                       typed at the prompt
//   	Scalar : 2                                 all else is output, byte for byte
//   > ~
//   	Warning : This command will erase all symbols.
//   	          Are you sure ? ([y|Enter]/n)     its newline is not printed: an answer follows
//   < n                                         answers a question
// A page may end with "(dies)", when the last line kills the program, or with "(never returns)".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quarn {

struct Turn {
  bool is_answer;
  std::string text;    // what a person types
  std::string output;  // what comes before the next turn
  std::size_t line;    // where it stands in its file, from 1
};

enum class Ending {
  kQuits,
  kDies,   // by a signal
  kFails,  // with a status other than 0
  kNeverReturns,
};

struct Page {
  std::vector<Turn> turns;
  Ending ending = Ending::kQuits;
};

// Reads a page whose first line has the given number. Raises std::runtime_error on a text that is
// none: output before the first turn, or anything after the ending.
Page ReadPage(std::string_view text, std::size_t first_line = 1);

// Reads what is fenced as "mirlow" in a Markdown text, each block a page of its own.
std::vector<Page> ReadMarkdown(std::string_view text);

// The page as it plays on Windows: lines of the output end with CR and LF, and where it would die
// by a signal, which there are not, it fails.
Page OnWindows(Page page);

}  // namespace Quarn
