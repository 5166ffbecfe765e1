// Report says what one command did. It is read off what the command printed and left behind.
#pragma once

#include <string>
#include <string_view>

#include "interpreter/embedding.h"

namespace Quarn {

class State;

struct Report {
  enum class Kind {
    kNothing,     // such as "x:=3", or "~" that was declined
    kDefinition,  // of `name`
    kValue,
    kQuery,     // of `name`
    kDeletion,  // of `name`; of all symbols when that is empty
    kHelp,
    kWarning,
    kError
  };

  Kind kind = Kind::kNothing;
  std::string type;        // as printed
  std::string name;        // of the symbol that the command was about
  std::string text;        // of the value, as printed, without a name; of the help
  s_refptr<Symbol> value;  // null where there is none
  std::string message;     // of an error, a warning or a deletion, on one line
  Place place;             // of an error, in the command
};

// Where a command comes from: "loan.mirlow", line 3. Without a name: from somebody who sees it.
struct Source {
  std::string_view name;
  std::size_t line = 0;
  std::size_t column = 0;  // in bytes, from 0
};

// "definition", "value", "query" ...
std::string_view GetKindName(Report::Kind kind);

// Did the command that printed this report an error?
bool IsError(std::string_view output);

// The report of the command that the State carried out last, and what it printed.
Report Describe(const State& state, std::string_view command, std::string_view output);

// A message of several lines on one, without the tab on its left.
std::string JoinLines(std::string_view message);

}  // namespace Quarn
