// Which operation of the standard string raised a range error.
#pragma once

#include <stdexcept>
#include <string>

namespace Quarn {

// What the error says up to its details, as RangeErrorIn says; empty when none is raised.
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

// What the error of an operation says: "basic_string::substr". Only libstdc++ names the operation.
inline std::string RangeErrorIn([[maybe_unused]] const char* operation) {
#ifdef _LIBCPP_VERSION
  return "basic_string";
#else
  return std::string("basic_string::") + operation;
#endif
}

}  // namespace Quarn
