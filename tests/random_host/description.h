// What a host registers with a State, as plain data: types, operators and functions whose bodies
// are recipes. The host carries the recipes out on real values (host.h), the evaluator on values of
// its own (evaluator.h). Nothing here calls the library.
//   Description description = Describe(dice);
//   description.types[0].name;  // "Ka"
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/model/generator_random.h"

namespace Quarn::random_host {

using model::Dice;

// What a body does in the end. One body does different things for different operands.
enum class Outcome {
  kValue,      // a new value
  kWarning,    // the same, and a warning
  kFirst,      // its first operand itself; a new value when there is none
  kLast,       // the same of the last
  kKept,       // an object that the host keeps, and gives out each time
  kReference,  // a reference to a fixed expression
  kEvaluate,   // what an expression comes to, evaluated by the body
  kApply,      // what an operator makes of its operands, applied by the body
  kFailure,    // a failure with words
  kSilence,    // a failure without words
  // Of functions alone:
  kNull,       // a result that is null
  kNone,       // no result
  kTwo,        // two results
  kTakenBack,  // a result, and a failure without words
};

struct Body {
  std::string label;              // how it is known in the list of calls
  std::vector<Outcome> outcomes;  // of which the operands select one
  std::string type = "Scalar";    // of a new value
  std::string name;               // that a new value bears
  std::string reference;          // the expression of a reference
  std::string expression;         // that is evaluated
  std::string op;                 // that is applied
};

// How the values of a host's type are made.
enum class ValueClass {
  kPlain,     // one class for several types: the type is a member
  kChanging,  // the type depends on the value
  kHeld,      // from types/holder.h
  kHeir,      // derived from that, for several types
};

struct HostType {
  std::string name;
  ValueClass value_class = ValueClass::kPlain;
  std::string mark;        // its values show as this and a number: "k12"
  bool shows_name = true;  // before the value
  bool is_sized = false;   // the full type depends on the value: "2-Ka"
};

// Of a value that shows as `payload`.
std::string TypeOf(const HostType& type, const std::string& payload);
std::string FullTypeOf(const HostType& type, const std::string& payload);
std::string TextOf(const HostType& type, const std::string& name, const std::string& payload);

// Which texts are literals of a type.
struct LiteralTexts {
  enum class Form { kNone, kMarkDigits, kDigitsMark, kBegin, kEnd };

  Form form = Form::kNone;
  std::string mark;
  std::string starts;  // the characters with which they begin; empty: any

  // What the type says; it is not asked for a text that begins otherwise.
  bool Accept(const std::string& text) const;
  bool MayBegin(const std::string& text) const;
};

struct LiteralRow {
  std::size_t type;  // its place among the host's types
  LiteralTexts texts;
  Body body;  // its new values bear the wanted name, unless they have one of their own
};

enum class Position { kBinary, kBefore, kBehind };

struct OperatorRow {
  Position position;
  std::string left;  // of the only operand too
  std::string op;
  std::string right;
  Body body;
};

struct FunctionRow {
  std::string name;
  std::vector<std::string> arguments;
  Body body;
};

inline constexpr std::size_t kTypes = 6;

struct Description {
  std::array<HostType, kTypes> types;
  std::vector<LiteralRow> literals;
  std::vector<OperatorRow> operators;
  std::vector<FunctionRow> functions;
};

// A host at its start, and more rows for the types of a host, which may replace earlier ones.
Description Describe(Dice& dice);
Description DescribeMore(Dice& dice, const Description& host);

// A call, which selects the outcome and the new value, and its line in the list of calls: marked
// when the error text that the body got was not empty.
std::string CallText(const Body& body, const std::vector<std::string>& operands);
std::string CallLine(const std::string& call, bool has_error);
Outcome SelectOutcome(const Body& body, const std::string& call);
std::uint32_t NumberOfCall(const std::string& call);  // below 100
std::string FailureOf(const Body& body);
std::string WarningOf(const Body& body);

// One line for a reader: "Ka + Scalar : b12".
std::string Show(const Description& host, const LiteralRow& row);
std::string Show(const OperatorRow& row);
std::string Show(const FunctionRow& row);

}  // namespace Quarn::random_host
