// Random descriptions.
#include <algorithm>
#include <iterator>

#include "tests/random_host/description.h"

namespace Quarn::random_host {
namespace {

// Many more new values than anything else, so that expressions get somewhere.
std::vector<Outcome> DrawOutcomes(Dice& dice, const std::vector<Outcome>& others) {
  std::vector<Outcome> outcomes;
  for (std::size_t i = dice.Below(3); i-- > 0;)
    outcomes.push_back(others[dice.Below(others.size())]);
  for (std::size_t i = 2 + dice.Below(4); i-- > 0;) outcomes.push_back(Outcome::kValue);
  return outcomes;
}

const std::vector<Outcome>& OutcomesOfLiterals() {
  static const std::vector<Outcome> outcomes = {
      Outcome::kWarning, Outcome::kFailure, Outcome::kSilence, Outcome::kEvaluate, Outcome::kKept};
  return outcomes;
}

const std::vector<Outcome>& OutcomesOfOperators() {
  static const std::vector<Outcome> outcomes = {
      Outcome::kWarning,  Outcome::kFirst, Outcome::kLast,    Outcome::kKept,   Outcome::kReference,
      Outcome::kEvaluate, Outcome::kApply, Outcome::kFailure, Outcome::kSilence};
  return outcomes;
}

const std::vector<Outcome>& OutcomesOfFunctions() {
  static const std::vector<Outcome> outcomes = {
      Outcome::kWarning,   Outcome::kFirst,    Outcome::kLast,  Outcome::kKept,
      Outcome::kReference, Outcome::kEvaluate, Outcome::kApply, Outcome::kFailure,
      Outcome::kSilence,   Outcome::kNull,     Outcome::kNone,  Outcome::kTwo,
      Outcome::kTakenBack};
  return outcomes;
}

// The names of types under which rows are registered. A reference without a value is of a type too.
std::string DrawOperand(Dice& dice) {
  return dice.Pick({"Scalar", "Scalar", "Vector", "Symbol", "Ka", "Kb", "ChaA", "ChaB", "Held",
                    "Heir", "Zed", "Reference"});
}

std::string DrawResult(Dice& dice) {
  return dice.Pick(
      {"Scalar", "Scalar", "Vector", "Symbol", "Ka", "Kb", "Cha", "Cha", "Held", "Heir", "Zed"});
}

Body DrawBody(Dice& dice, const std::string& label, const std::vector<Outcome>& others) {
  Body body;
  body.label = label + std::to_string(dice.Below(1000));
  body.outcomes = DrawOutcomes(dice, others);
  body.type = DrawResult(dice);
  if (dice.OneIn(4)) body.name = dice.Pick({"own", "s0", "u0"});
  // A reference must not lead to a body that gives a reference in its turn: it might be the same.
  body.reference = dice.Pick({"s0", "s1", "u0", "k1", "33", "", " s2 "});
  body.expression =
      dice.Pick({"s0+k1", "fa(s1)", "<s0, 1>", "u0", "s1*2+33", "(1", "&s0", "&u0*s1", "-s0-s2"});
  body.op = dice.Pick({"+", "-", "*", "[]", "^", "!"});
  return body;
}

LiteralTexts DrawTexts(Dice& dice) {
  using Form = LiteralTexts::Form;
  LiteralTexts texts;
  switch (dice.Below(8)) {
    case 0:
      return texts;
    case 1:
      texts = {Form::kDigitsMark, dice.Pick({"k", "m", "3"}), dice.Pick({"", "0123456789", "12"})};
      break;
    case 2:
      texts = {Form::kEnd, dice.Pick({"k", "m", "k", "m", "]", ")"}), dice.Pick({"", "1<k"})};
      break;
    case 3:
      texts = {Form::kBegin, dice.Pick({"$", "m", "<k", "&k"}), ""};
      if (dice.OneIn(2)) texts.starts = texts.mark.substr(0, 1);
      break;
    default:
      texts = {Form::kMarkDigits, dice.Pick({"k", "m", "h", "z", "3"}), ""};
      if (dice.OneIn(2)) texts.starts = texts.mark;
  }
  return texts;
}

LiteralRow DrawLiteral(Dice& dice, std::size_t type, const HostType& host_type) {
  LiteralRow row{type, DrawTexts(dice), DrawBody(dice, "t", OutcomesOfLiterals())};
  // Values usually show as their literals; a constructor may make values of another type.
  if (row.texts.form == LiteralTexts::Form::kMarkDigits && !dice.OneIn(3)) {
    row.texts.mark = host_type.mark;
    if (!row.texts.starts.empty()) row.texts.starts = row.texts.mark;
  }
  if (!dice.OneIn(6)) row.body.type = host_type.name;
  return row;
}

OperatorRow DrawOperator(Dice& dice) {
  switch (dice.Below(8)) {
    case 0:
      return {Position::kBefore, DrawOperand(dice), dice.Pick({"+", "-", "!", "*"}), "",
              DrawBody(dice, "p", OutcomesOfOperators())};
    case 1:
      return {Position::kBehind, DrawOperand(dice), dice.Pick({"+", "-", "!", "*"}), "",
              DrawBody(dice, "q", OutcomesOfOperators())};
    default:
      break;
  }
  const std::string left = DrawOperand(dice);
  const std::string op = dice.Pick({"+", "-", "*", "/", "^", "[]"});
  const std::string right = DrawOperand(dice);
  return {Position::kBinary, left, op, right, DrawBody(dice, "b", OutcomesOfOperators())};
}

// A number that an operator keeps may be given on as a number alone, without the object.
void KeepNoNumber(Body& body) {
  if (body.type != "Scalar") return;
  std::replace(body.outcomes.begin(), body.outcomes.end(), Outcome::kKept, Outcome::kValue);
}

bool IsArithmetic(const OperatorRow& row) { return row.left == "Scalar" && row.right == "Scalar"; }

FunctionRow DrawFunction(Dice& dice) {
  FunctionRow row;
  row.name = dice.Pick({"fa", "f_b", "fc", "min"});
  for (std::size_t i = dice.Below(4); i-- > 0;) {
    row.arguments.push_back(dice.OneIn(2) ? "Scalar" : DrawOperand(dice));
  }
  row.body = DrawBody(dice, "f", OutcomesOfFunctions());
  return row;
}

void AddRows(Dice& dice, Description& description, std::size_t operators, std::size_t functions) {
  // Replacing the arithmetic of numbers everywhere would leave nothing to compare with it.
  const bool replaces = dice.OneIn(3);
  for (std::size_t i = 0; i < operators; ++i) {
    OperatorRow row = DrawOperator(dice);
    KeepNoNumber(row.body);
    if (replaces || !IsArithmetic(row)) description.operators.push_back(row);
  }
  for (std::size_t i = 0; i < functions; ++i) description.functions.push_back(DrawFunction(dice));
}

}  // namespace

Description Describe(Dice& dice) {
  Description description;
  const bool ka_is_sized = dice.OneIn(3);
  const bool kb_is_sized = dice.OneIn(3);
  const bool kb_shows_name = dice.OneIn(2);
  const HostType types[kTypes] = {
      {"Ka",   ValueClass::kPlain,    "k", true,          ka_is_sized},
      {"Kb",   ValueClass::kPlain,    "m", kb_shows_name, kb_is_sized},
      {"Cha",  ValueClass::kChanging, "c", true,          false      },
      {"Held", ValueClass::kHeld,     "h", true,          false      },
      {"Heir", ValueClass::kHeir,     "i", true,          false      },
      {"Zed",  ValueClass::kHeir,     "z", true,          false      },
  };
  std::copy(std::begin(types), std::end(types), description.types.begin());
  for (std::size_t i = 0; i < kTypes; ++i) {
    description.literals.push_back(DrawLiteral(dice, i, description.types[i]));
  }
  // With few operators, a type may have none on its left.
  AddRows(dice, description, dice.OneIn(3) ? 60 : 800, 200);
  return description;
}

Description DescribeMore(Dice& dice, const Description& host) {
  Description more;
  more.types = host.types;
  const std::size_t type = dice.Below(kTypes);
  if (dice.OneIn(2)) more.literals.push_back(DrawLiteral(dice, type, host.types[type]));
  AddRows(dice, more, 20, 5);
  return more;
}

}  // namespace Quarn::random_host
