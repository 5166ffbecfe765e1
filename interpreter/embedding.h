// What a host program that embeds a State gets back from it.
#pragma once

#include <string>

#include "interpreter/symbol.h"

namespace Quarn {

// What came of a request: a value, or the text that a user would have read instead. Never both, and
// neither only when a type, an operator or a function of a host's fails without a word.
//   const Result sum = state.Compute("1+2");
//   if (!sum) std::cerr << sum.error << '\n';
struct Result {
  // Null when there is none. A reference evaluates in the State that made it, which must outlive
  // it.
  s_refptr<Symbol> value;
  // Without a newline at its end. Begins with "\tError : ", unless a host words its own otherwise.
  std::string error;

  // Is there a value?
  explicit operator bool() const { return static_cast<bool>(value); }
};

}  // namespace Quarn
