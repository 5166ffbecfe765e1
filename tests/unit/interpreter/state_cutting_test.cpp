// Tests that expressions are cut where CheckBrackets and IsOperatorAt say: over small worlds, what
// an expression comes to is what a slow evaluation says that cuts with them alone.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "interpreter/element_types.h"
#include "interpreter/messages.h"
#include "interpreter/priorities.h"
#include "tests/support/session.h"
#include "tests/support/small_world.h"
#include "types/value.h"

namespace Quarn {
namespace {

// A value that shows how it was made: "(a+(a*a))".
class Tree final : public Symbol {
 public:
  explicit Tree(const std::string& text) : Symbol(""), text_(text) {}
  s_str ToString() const override { return text_; }
  s_str GetType() const override { return "Tree"; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Tree(*this)); }

 private:
  s_str text_;
};

using Value = s_refptr<Symbol>;

Value NewTree(const std::string& text) { return Value(new Tree(text)); }

std::string TextOf(const Value& value) { return value->ToString().Get(); }

// The literal "a", every operator on every side, and a(), a(Tree), a(Tree, Tree).
void RegisterTree(State& state) {
  state.AddType({"Tree", [](const s_str& name) { return NewTree(name.Get()); },
                 [](std::string_view text) -> s_bool { return text == "a"; },
                 [](State&, const s_str&, const s_str&, s_str&) { return NewTree("a"); }, "a"});
  for (const OperatorPriority& row : kPriorities) {
    const std::string op(row.text);
    state.AddBinary({
        {"Tree", op, "Tree", [op](const Value& left, const Value& right, s_str&) {
           return NewTree("(" + TextOf(left) + op + TextOf(right) + ")");
         }}
    });
    const auto before = [op](const Value& operand, s_str&) {
      return NewTree("(" + op + TextOf(operand) + ")");
    };
    const auto behind = [op](const Value& operand, s_str&) {
      return NewTree("(" + TextOf(operand) + op + ")");
    };
    state.AddRightUnary({
        {op, "Tree", before}
    });
    state.AddLeftUnary({
        {op, "Tree", behind}
    });
  }
  const auto call = [](State&, const Values& arguments, Values& results, s_str&) -> s_bool {
    std::string text = "a{";
    for (const Value& argument : arguments) text += TextOf(argument) + ";";
    results.PushBack(NewTree(text + "}"));
    return true;
  };
  state.AddFunctions({
      {"a", {""},             call},
      {"a", {"Tree"},         call},
      {"a", {"Tree", "Tree"}, call},
  });
}

// Splits at the rightmost operator of lowest priority and evaluates both sides, again from text.
class SlowEvaluator {
 public:
  explicit SlowEvaluator(State& state) : state_(state) {}

  Value Evaluate(std::string text, s_str& error) {
    text = Trim(text);
    if (text.empty()) return Fail(error, messages::EmptySymbol());
    std::vector<std::string> pieces;
    if (!Cut(text, true, pieces, error)) return {};
    if (pieces.size() > 1 || FindOperator(text) != kOperators) return Apply(pieces, error);
    if (text.front() == '(' && text.back() == ')') return Evaluate(Inside(text), error);
    if (text == "a") return NewTree("a");
    if (text.front() == '<' && text.back() == '>') return BuildVector(Inside(text), error);
    const std::size_t parenthesis = text.find('(');
    if (parenthesis != std::string::npos) return Call(text, parenthesis, error);
    const std::size_t open = text.find('['), close = text.find(']');
    if (open < close && close != std::string::npos) return Index(text, open, close, error);
    s_str ignored;
    return Fail(error, State::CheckName(text, ignored) ? messages::UnknownSymbol(text)
                                                       : messages::NoOperatorFound(text));
  }

 private:
  static std::string Trim(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string::npos) return "";
    return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
  }
  static std::string Inside(const std::string& text) {
    return text.size() < 2 ? "" : text.substr(1, text.size() - 2);
  }
  static Value Fail(s_str& error, const s_str& message) {
    AddError(error, message);
    return {};
  }

  // At operators, which are kept, or at commas, which are not.
  bool Cut(const std::string& text, bool at_operators, std::vector<std::string>& pieces,
           s_str& error) {
    using std::placeholders::_1, std::placeholders::_2, std::placeholders::_3;
    const auto is_comma = [](s_str::const_iterator at, const s_str&, s_str& separator) -> s_bool {
      separator = ",";
      return *at == ',';
    };
    const State::SeparatorTest is_operator = std::bind(&State::IsOperatorAt, &state_, _1, _2, _3);
    s_ctnr<s_str> cut;
    const s_bool balanced =
        state_.CheckBrackets(cut, text, at_operators ? is_operator : State::SeparatorTest(is_comma),
                             error, at_operators);
    for (const s_str& piece : cut) pieces.push_back(piece.Get());
    return balanced ? true : false;
  }

  bool EvaluateAll(const std::string& text, Values& values, s_str& error,
                   const std::function<bool(const Value&)>& accept) {
    std::vector<std::string> pieces;
    if (!Cut(text, false, pieces, error)) return false;
    for (const std::string& piece : pieces) {
      const Value value = Evaluate(piece, error);
      if (!value || !accept(value)) return false;
      values.PushBack(value);
    }
    return true;
  }

  Value BuildVector(const std::string& inside, s_str& error) {
    Values elements;
    ElementTypes types;
    const auto accept = [&](const Value& value) {
      return types.Accept(value->GetFullType(), error);
    };
    if (!EvaluateAll(inside, elements, error, accept)) return {};
    return FromElements({elements.begin(), elements.end()});
  }

  Value Call(const std::string& text, std::size_t open, s_str& error) {
    const std::string name = Trim(text.substr(0, open));
    const auto function = state_.GetFunctions().find(s_str(name));
    if (function == state_.GetFunctions().end()) {
      return Fail(error, messages::UndefinedFunction(name));
    }
    // Where the list ends, if it does; else the last one that closes anything.
    std::size_t close = text.size();
    int depth = 1;
    for (std::size_t i = open + 1; i < text.size() && depth > 0; ++i) {
      depth += (text[i] == '(') - (text[i] == ')');
      if (text[i] == ')') close = i;
    }
    Values arguments, results;
    const auto accept = [](const Value&) { return true; };
    if (!EvaluateAll(text.substr(open + 1, close - open - 1), arguments, error, accept)) return {};
    std::string signature;
    for (const Value& argument : arguments) {
      signature += (signature.empty() ? "" : ", ") + argument->GetType().Get();
    }
    signature = "(" + signature + ")";
    const auto body = function->second.find(s_str(signature));
    if (body != function->second.end()) {
      return body->second.body(state_, arguments, results, error) ? results[0U] : Value();
    }
    s_ctnr<s_str> overloads;
    for (const auto& [overload, unused] : function->second) overloads.PushBack(overload);
    return Fail(error, messages::NoMatchingFunction(name, signature, overloads));
  }

  Value Index(const std::string& text, std::size_t open, std::size_t close, s_str& error) {
    if (close == open + 1) return Fail(error, messages::EmptyIndex());
    if (open == 0) return Fail(error, messages::IndexOnNothing());
    const Value object = Evaluate(text.substr(0, open), error);
    if (!object) return {};
    const Value index = Evaluate(text.substr(open + 1, close - open - 1), error);
    return index ? state_.ApplyBinaryOperator("[]", object, index, error) : Value();
  }

  Value Apply(const std::vector<std::string>& pieces, s_str& error) {
    std::size_t chosen = pieces.size();
    unsigned int lowest = 1000;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      const std::size_t op = FindOperator(pieces[i]);
      if (op == kOperators || kPriorities[op].priority > lowest) continue;
      lowest = kPriorities[op].priority;
      chosen = i;
    }
    std::string left, right;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      if (i != chosen) (i < chosen ? left : right) += pieces[i];
    }
    const std::string& op = pieces[chosen];
    if (left.empty() && right.empty()) return Fail(error, messages::MissingOperands(op));
    const Value first = Evaluate(left.empty() ? right : left, error);
    if (!first) return {};
    if (left.empty()) return state_.ApplyRightUnaryOperator(op, first, error);
    if (right.empty()) return state_.ApplyLeftUnaryOperator(op, first, error);
    const Value second = Evaluate(right, error);
    return second ? state_.ApplyBinaryOperator(op, first, second, error) : Value();
  }

  State& state_;
};

std::string Describe(const Value& value, const s_str& error) {
  return error.Get() + (value ? value->GetType().Get() + " : " + TextOf(value) : std::string());
}

void ExpectAgreement(std::string_view world, std::size_t longest) {
  Session session;
  RegisterTree(session.GetState());
  SlowEvaluator slow(session.GetState());
  unsigned int values = 0;
  ForEachText(world, longest, [&](const std::string& text) {
    s_str slow_error, error;
    const Value expected = slow.Evaluate(text, slow_error);
    const Value value = session.GetState().ParseSymbol("", text, error, false);
    ASSERT_EQ(Describe(value, error), Describe(expected, slow_error)) << text;
    values += value ? 1 : 0;
  });
  EXPECT_GT(values, 20U);
}

TEST(Cutting, OperatorsAndBracketsOfEveryKindAgree) {
  ExpectAgreement("()<>[]+*,a", kLongestInWorld);
}
TEST(Cutting, OperatorsOfThreePrioritiesAgree) { ExpectAgreement("+*^a()", kLongestInWorld + 1); }
TEST(Cutting, CallsAndIndicesAgree) { ExpectAgreement("a()[],", kLongestInWorld + 1); }
TEST(Cutting, VectorsAndBlanksAgree) { ExpectAgreement("<>,a+ ", kLongestInWorld + 1); }

}  // namespace
}  // namespace Quarn
