// A host with a few rows, and answers that were worked out by hand: from the library, and from the
// evaluator with which random hosts are compared.
#include <gtest/gtest.h>

#include <sstream>

#include "tests/random_host/evaluator.h"
#include "tests/random_host/host.h"
#include "types/vector.h"

namespace Quarn::random_host {
namespace {

Body BodyOf(const std::string& label, Outcome outcome, const std::string& type = "Scalar") {
  Body body;
  body.label = label;
  body.outcomes = {outcome};
  body.type = type;
  return body;
}

// Between a value of the type and a Scalar.
OperatorRow Plus(const std::string& type, Outcome outcome) {
  return {Position::kBinary, type, "+", "Scalar", BodyOf("plus of " + type, outcome)};
}

FunctionRow Maker(const std::string& name, const std::string& type) {
  return {name, {}, BodyOf(name, Outcome::kValue, type)};
}

FunctionRow What(const std::string& type) {
  return {"what", {type}, BodyOf("what of " + type, Outcome::kFirst)};
}

FunctionRow WithoutArguments(const std::string& name, Outcome outcome) {
  return {name, {}, BodyOf(name, outcome)};
}

FunctionRow OfScalar(const std::string& name, Outcome outcome) {
  return {name, {"Scalar"}, BodyOf(name, outcome)};
}

// Ka takes the numbers that begin with a 3 and go on.
Description MakeDescription() {
  Description description;
  description.types[0] = {"Ka", ValueClass::kPlain, "k"};
  description.types[1] = {"Held", ValueClass::kHeld, "h"};
  description.types[2] = {"Heir", ValueClass::kHeir, "i"};
  description.types[3] = {"Zed", ValueClass::kHeir, "z"};
  const LiteralTexts threes = {LiteralTexts::Form::kMarkDigits, "3", "3"};
  description.literals = {
      LiteralRow{0, threes, BodyOf("three", Outcome::kValue, "Ka")}
  };
  description.operators = {
      Plus("Held", Outcome::kLast),
      Plus("Heir", Outcome::kFirst),
      Plus("Zed", Outcome::kLast),
      OperatorRow{Position::kBehind, "Scalar", "!", "", BodyOf("mute", Outcome::kSilence)},
  };
  description.functions = {
      Maker("held", "Held"),
      Maker("heir", "Heir"),
      Maker("zed", "Zed"),
      What("Held"),
      What("Heir"),
      What("Zed"),
      WithoutArguments("null", Outcome::kNull),
      WithoutArguments("none", Outcome::kNone),
      WithoutArguments("two", Outcome::kTwo),
      WithoutArguments("back", Outcome::kTakenBack),
      OfScalar("mute", Outcome::kSilence),
      OfScalar("tap", Outcome::kFirst),
      OfScalar("fail", Outcome::kFailure),
  };
  return description;
}

class FixedHost : public testing::Test {
 protected:
  // "type text" or "null", the error text, and the calls, each on its lines.
  std::string Parse(const std::string& expression) {
    host_.Begin();
    s_str error;
    const s_refptr<Symbol> value = state_.ParseSymbol("", expression, error, false);
    return Show(value, error.Get());
  }
  std::string Compute(const std::string& expression) {
    host_.Begin();
    const Result result = state_.Compute(expression);
    return Show(result.value, result.error);
  }
  std::string Foretell(const std::string& expression) {
    evaluator_.Begin();
    std::string error;
    const ValuePtr value = evaluator_.Evaluate("", expression, error, false);
    std::string shown = "null";
    if (value) {
      shown = evaluator_.TypeOf(value);
      shown += ' ' + evaluator_.TextOf(value);
    }
    return shown + '\n' + error + '\n' + evaluator_.GetCalls();
  }

  // The calls without their operands.
  std::string LabelsOfCalls(const std::string& expression) {
    Parse(expression);
    std::istringstream calls(host_.GetCalls());
    std::string labels;
    for (std::string call; std::getline(calls, call);) {
      labels += (labels.empty() ? "" : ", ") + call.substr(0, call.find('('));
    }
    return labels;
  }

  // All three, and twice: what was met once must not change what comes then.
  void Expect(const std::string& expression, const std::string& answer) {
    for (int round = 0; round < 2; ++round) {
      EXPECT_EQ(Parse(expression), answer) << expression;
      EXPECT_EQ(Compute(expression), answer) << expression;
      EXPECT_EQ(Foretell(expression), answer) << expression;
    }
  }

 private:
  std::string Show(const s_refptr<Symbol>& value, const std::string& error) const {
    std::string shown = "null";
    if (value) {
      shown = value->GetType().Get();
      shown += ' ' + value->ToString().Get();
    }
    return shown + '\n' + error + '\n' + host_.GetCalls();
  }

  std::ostringstream out_;
  std::istringstream in_;
  State state_{out_, in_};
  Host host_{(Vector::Register(state_), state_), MakeDescription()};
  Evaluator evaluator_{MakeDescription()};
};

TEST_F(FixedHost, GetsNoValueFromAnAmbiguousLiteral) {
  const std::string ambiguous =
      "null\n\tError : Ambiguous constructor : '33'.\n\t        Possible candidates : Ka, Scalar\n";
  for (const std::string expression : {"33", "1+2+33", "1+33+2", "min(1+2+33,7)", "<1+33>"}) {
    Expect(expression, ambiguous);
  }
  Expect("1+2+3", "Scalar 6\n\n");
}

TEST_F(FixedHost, HearsNothingOfAFailureWithoutWords) {
  Expect("mute(2)", "null\n\nmute(2)\n");
  Expect("1+2!", "null\n\nmute(2)\n");
  Expect("null()", "null\n\nnull()\n");
  Expect("back()", "null\n\nback()\n");
}

TEST_F(FixedHost, IsToldApartByTheNamesOfItsTypes) {
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(LabelsOfCalls("what(held())"), "held, what of Held");
    EXPECT_EQ(LabelsOfCalls("what(heir())"), "heir, what of Heir");
    EXPECT_EQ(LabelsOfCalls("what(zed())"), "zed, what of Zed");
    EXPECT_EQ(LabelsOfCalls("held()+1"), "held, plus of Held");
    EXPECT_EQ(LabelsOfCalls("heir()+1"), "heir, plus of Heir");
    EXPECT_EQ(LabelsOfCalls("zed()+1"), "zed, plus of Zed");
  }
}

TEST_F(FixedHost, IsCalledFromLeftToRightUpToTheFirstFailure) {
  Expect("tap(1)+tap(2)*tap(3)", "Scalar 7\n\ntap(1)\ntap(2)\ntap(3)\n");
  Expect("tap(1)*fail(2)+tap(3)", "null\n\tError : fail has no answer\ntap(1)\nfail(2)\n");
  Expect("<tap(1), fail(2), tap(3)>", "null\n\tError : fail has no answer\ntap(1)\nfail(2)\n");
  // A reference that fails is evaluated as an operand, then for its text in the deferred operation,
  // and that twice: for its type and for its text.
  Expect("tap(1)+(&tap(tap(2)*x))",
         "Reference (1)+(tap(tap(2)*x))\n\ntap(1)\ntap(2)\ntap(2)\ntap(2)\ntap(2)\n");
}

TEST_F(FixedHost, GivesExactlyOneResult) {
  const std::string error =
      "null\n\tError : Multiple return values for function is not yet supported\n";
  Expect("none()", error + "none()\n");
  Expect("two()", error + "two()\n");
}

}  // namespace
}  // namespace Quarn::random_host
