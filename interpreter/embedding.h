// What a host program that embeds a State gets back from it.
#pragma once

#include <cstddef>
#include <string>

#include "symbol.h"

namespace Quarn {

// A stretch of the text of an expression, in bytes from 0. All of it is 0 where a failure has no
// place of its own.
struct Place {
  std::size_t position = 0;
  std::size_t length = 0;

  bool operator==(const Place&) const = default;
};

// What came of a request: a value, or the text that a user would have read instead.
//   const Result sum = state.Compute("1+2");
//   if (!sum) std::cerr << sum.error << '\n';
struct Result {
  // Null when there is none. A reference evaluates in the State that made it, which must outlive
  // it.
  s_refptr<Symbol> value;
  // Without a newline at its end. Begins with "\tError : ", unless a type words its failures
  // otherwise; empty for a failure of a type's without words.
  std::string error;
  // Where in the expression the failure came to light.
  Place place = {};

  explicit operator bool() const { return static_cast<bool>(value); }
};

}  // namespace Quarn
