// Which operation of the standard string raised a range error.
#pragma once

#include <stdexcept>
#include <string>

namespace Quarn {

// What the error says up to its details, as "basic_string::substr"; empty when none is raised.
template <class Operation>
std::string RangeErrorOf(Operation operation) {
  try {
    operation();
  } catch (const std::out_of_range& error) {
    const std::string text = error.what();
    return text.substr(0, text.find(": "));
  }
  return "";
}

}  // namespace Quarn
