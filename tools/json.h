// JSON as text: what is written is valid UTF-8 and valid JSON, whatever it is made of.
//   std::string out;
//   AppendJsonString(out, "a\"b");     // "a\"b"
//   AppendJsonValue(out, value);       // 3, null, [1,2.5,[3]]
#pragma once

#include <string>
#include <string_view>

#include "interpreter/symbol.h"

namespace Quarn {

// Bytes that are no UTF-8 become U+FFFD.
void AppendJsonString(std::string& out, std::string_view text);

// So many digits that reading them gives the number again; null for infinities and "nan", which
// JSON does not have.
void AppendJsonNumber(std::string& out, double number);

// A number, a list, or null for what is neither. A reference counts as what it evaluates to.
// However deeply lists are nested, this does not recurse.
void AppendJsonValue(std::string& out, const s_refptr<Symbol>& value);

}  // namespace Quarn
