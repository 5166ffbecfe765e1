#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "tests/model/model.h"
#include "tests/model/model_frame.h"
#include "tests/model/model_text.h"

namespace Quarn::model {
namespace {

const char kNone[] = "()";
const char kOne[] = "(Scalar)";
const char kTwo[] = "(Scalar, Scalar)";

// The signatures of each function, in ascending order of their text.
const std::map<std::string, std::vector<std::string>>& Functions() {
  static const std::map<std::string, std::vector<std::string>> functions = {
      {"max",        {kTwo}       },
      {"min",        {kTwo}       },
      {"rand",       {kNone, kTwo}},
      {"round",      {kOne}       },
      {"round_down", {kOne}       },
      {"round_up",   {kOne}       },
  };
  return functions;
}

// The smaller and the larger of two, each written so that a NaN yields the first.
double Smaller(double first, double second) { return first >= second ? second : first; }
double Larger(double first, double second) { return second >= first ? second : first; }

std::string NoMatchingCall(const std::string& function, const std::string& signature,
                           const std::vector<std::string>& candidates) {
  std::string message = "\tError : No matching function call to :\n\t\t  " + function + signature +
                        "\n\t\tPossible candidates :";
  for (const std::string& candidate : candidates) message += "\n\t\t  " + function + candidate;
  return message;
}

}  // namespace

ValuePtr Model::EvaluateCall(const std::string& text, std::string& error) {
  const std::size_t open = text.find('(');
  const std::string function = Trim(text.substr(0, open));
  if (Functions().count(function) == 0) {
    AddError(error, "\tError : Undefined function '" + function + "'");
    return nullptr;
  }
  // What stands behind the closing parenthesis is not looked at.
  std::size_t depth = 1;
  std::size_t close = open + 1;
  for (; close < text.size(); ++close) {
    if (text[close] == '(') ++depth;
    if (text[close] == ')' && --depth == 0) break;
  }
  std::vector<std::string> parts;
  const std::string inside = text.substr(open + 1, close - open - 1);
  if (!CutTopLevel(inside, Separator::kComma, parts, error)) return nullptr;
  std::vector<ValuePtr> arguments;
  for (const std::string& part : parts) {
    const ValuePtr argument = Evaluate("", part, error, false);
    if (!argument) return nullptr;
    arguments.push_back(argument);
  }
  return Call(function, arguments, error);
}

ValuePtr Model::Call(const std::string& function, const std::vector<ValuePtr>& arguments,
                     std::string& error) {
  std::string types;
  std::vector<double> numbers;
  for (const ValuePtr& argument : arguments) {
    const ValuePtr resolved = Resolve(argument);
    if (!types.empty()) types += ", ";
    types += resolved ? TypeOf(resolved) : "Reference";
    numbers.push_back(resolved ? resolved->number : 0);
  }
  const std::string signature = "(" + types + ")";
  const std::vector<std::string>& candidates = Functions().at(function);
  bool found = false;
  for (const std::string& candidate : candidates) found = found || candidate == signature;
  if (!found) {
    AddError(error, NoMatchingCall(function, signature, candidates));
    return nullptr;
  }
  // Results are unnamed and stay so, whatever name the caller wanted.
  if (function == "min") return NewScalar("", Smaller(numbers[0], numbers[1]));
  if (function == "max") return NewScalar("", Larger(numbers[0], numbers[1]));
  if (function == "round") return NewScalar("", std::round(numbers[0]));
  if (function == "round_up") return NewScalar("", std::ceil(numbers[0]));
  if (function == "round_down") return NewScalar("", std::floor(numbers[0]));
  if (numbers.empty()) return NewScalar("", RandomBetween(0, 1));
  return NewScalar("", RandomBetween(numbers[0], numbers[1]));
}

// Draws only when both bounds are finite and in order.
double Model::RandomBetween(double low, double high) {
  if (!std::isfinite(low) || !std::isfinite(high)) return std::numeric_limits<double>::quiet_NaN();
  if (low > high) return low;
  const int drawn = random_();
  return low + (drawn / 2147483647.0) * (high - low);
}

}  // namespace Quarn::model
