// How the report of a command is shown.
#pragma once

#include <ostream>

#include "tools/report.h"

namespace Quarn {

// What the calculator prints; the value of an expression or a query alone; an object of JSON.
enum class Format { kText, kPlain, kJson };

// "{"kind":"definition","type":"Scalar","name":"x","value":3,"text":"3"}" and a newline.
void WriteJson(std::ostream& out, const Report& report, const Source& source);

// The value, if the command asked for one, or the help. Errors and warnings go elsewhere.
void WritePlain(std::ostream& out, const Report& report);

// "loan.mirlow:3: Error : Empty symbol", for who looks for the place.
void WriteMessage(std::ostream& errors, std::string_view message, const Source& source);

}  // namespace Quarn
