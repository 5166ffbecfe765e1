// What a host program that embeds a State gets back from it.
#pragma once

#include <cstddef>
#include <cstdint>
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

// The kinds of failure.
enum class Failure : std::uint8_t {
  kNone,
  kForm,         // the expression, or a name, is not written as it must be
  kUnknownName,  // no symbol or function bears the name
  kNoMatch,      // no operator, function or vector for values of these types
  kValue,        // a type, an operator or a function refused the value
  kRing,         // a reference leads back to itself
  kMemory,       // the evaluation takes too much of it, or of the stack
  kNesting,      // from here on: limits that a host has set
  kSteps,
  kOutput,
  kInterrupted
};

// The outcome of a request: a value, or the text that a user would have read instead.
//   const Result sum = state.Compute("1+2");
//   if (!sum) std::cerr << sum.error << '\n';
struct Result {
  // Null when there is none. A reference evaluates in the State that made it, which must outlive
  // it.
  s_refptr<Symbol> value;
  // Without a newline at its end. Begins with "\tError : ", unless a type words its failures
  // otherwise; empty for a failure of a type's without words.
  std::string error;
  // Where in the expression the failure came to light, and of what kind it is.
  Place place = {};
  Failure failure = Failure::kNone;

  explicit operator bool() const { return static_cast<bool>(value); }
};

}  // namespace Quarn
