// Tests of prepared expressions and variables in C.
#include <gtest/gtest.h>
#include <mirlow/mirlow.h>

#include <cmath>
#include <string>
#include <vector>

#include "tests/support/c_handles.h"

namespace {

using Quarn::Ptr;

class ExpressionInC : public testing::Test {
 protected:
  Ptr<mirlow_expression> Prepare(const char* text) {
    mirlow_expression* expression = nullptr;
    EXPECT_EQ(mirlow_prepare(Get(), text, &expression), MIRLOW_OK)
        << mirlow_last_error(Get())->text;
    return Ptr<mirlow_expression>(expression);
  }
  Ptr<mirlow_variable> GetVariable(const char* name) {
    mirlow_variable* variable = nullptr;
    EXPECT_EQ(mirlow_get_variable(Get(), name, &variable), MIRLOW_OK)
        << mirlow_last_error(Get())->text;
    return Ptr<mirlow_variable>(variable);
  }
  static double Evaluate(const Ptr<mirlow_expression>& expression) {
    double number = std::nan("");
    EXPECT_EQ(mirlow_evaluate_number(expression.get(), &number), MIRLOW_OK);
    return number;
  }
  // The text of the value, or of the failure.
  std::string Show(const Ptr<mirlow_expression>& expression) {
    mirlow_value* value = nullptr;
    const mirlow_status status = mirlow_evaluate_prepared(expression.get(), &value);
    const Ptr<mirlow_value> owned(value);
    return status == MIRLOW_OK ? mirlow_text(value) : mirlow_last_error(Get())->text;
  }

  mirlow_state* Get() const { return state_.get(); }
  void FreeState() { state_.reset(); }

 private:
  Ptr<mirlow_state> state_{mirlow_new()};
};

TEST_F(ExpressionInC, FollowsItsVariable) {
  const auto square = Prepare("x*x+1");
  const auto x = GetVariable("x");
  for (const double value : {0.0, 3.0, -0.5}) {
    EXPECT_EQ(mirlow_set_variable(x.get(), value), MIRLOW_OK);
    EXPECT_EQ(Evaluate(square), value * value + 1);
  }
  mirlow_set_number(Get(), "x", 7);
  double number = 0;
  EXPECT_EQ(mirlow_get_variable_number(x.get(), &number), MIRLOW_OK);
  EXPECT_EQ(number, 7);
  EXPECT_EQ(Evaluate(square), 50);
}

TEST_F(ExpressionInC, HasAnyValue) {
  const auto expression = Prepare("2*x");
  EXPECT_EQ(Show(expression), "\tError : Unknown symbol 'x'");
  EXPECT_EQ(mirlow_last_error(Get())->position, 2U);
  mirlow_process_line(Get(), "x=<1, 2>");
  EXPECT_EQ(Show(expression), "<2, 4>");
  mirlow_process_line(Get(), "x&=y+1;y=2");
  EXPECT_EQ(Show(expression), "6");
  EXPECT_EQ(Evaluate(expression), 6);
}

TEST_F(ExpressionInC, SaysWhyThereIsNoNumber) {
  mirlow_process_line(Get(), "v=<1, 2>;s&=zz+1");
  const struct {
    const char* text;
    mirlow_status status;
    const char* error;
  } kRows[] = {
      {"v",    MIRLOW_WRONG_TYPE, ""                             },
      {"&v",   MIRLOW_WRONG_TYPE, ""                             },
      {"1+zz", MIRLOW_FAILED,     "\tError : Unknown symbol 'zz'"},
      {"s",    MIRLOW_FAILED,     "\tError : Unknown symbol 'zz'"},
  };
  for (const auto& row : kRows) {
    double untouched = 5;
    EXPECT_EQ(mirlow_evaluate_number(Prepare(row.text).get(), &untouched), row.status) << row.text;
    EXPECT_EQ(untouched, 5) << row.text;
    EXPECT_STREQ(mirlow_last_error(Get())->text, row.error) << row.text;
  }
}

TEST_F(ExpressionInC, IsRefusedForABrokenText) {
  const struct {
    const char* text;
    mirlow_failure kind;
    std::size_t position;
    std::size_t length;
    const char* error;
  } kRows[] = {
      {"1+(2",   MIRLOW_FORM,         2, 1, "\tError : Unterminated '('"      },
      {"1+2)",   MIRLOW_FORM,         3, 1, "\tError : Too many closing ')'"  },
      {"",       MIRLOW_FORM,         0, 0, "\tError : Empty symbol"          },
      {"1+f(2)", MIRLOW_UNKNOWN_NAME, 2, 1, "\tError : Undefined function 'f'"},
  };
  for (const auto& row : kRows) {
    mirlow_expression* untouched = nullptr;
    EXPECT_EQ(mirlow_prepare(Get(), row.text, &untouched), MIRLOW_FAILED) << row.text;
    EXPECT_EQ(untouched, nullptr) << row.text;
    const mirlow_error* error = mirlow_last_error(Get());
    EXPECT_EQ(error->kind, row.kind) << row.text;
    EXPECT_EQ(error->position, row.position) << row.text;
    EXPECT_EQ(error->length, row.length) << row.text;
    EXPECT_STREQ(error->text, row.error) << row.text;
  }
}

TEST_F(ExpressionInC, KnowsTheNamesThatItReads) {
  const auto expression = Prepare("a*x*x+b*x+min(c, 1)");
  std::string names;
  const char* name = nullptr;
  for (std::size_t i = 0; mirlow_get_name_read(expression.get(), i, &name) == MIRLOW_OK; ++i) {
    names.append(name).append(" ");
  }
  EXPECT_EQ(names, "a x b c ");
  EXPECT_EQ(mirlow_get_name_read(Prepare("1+2").get(), 0, &name), MIRLOW_NOT_FOUND);
}

TEST_F(ExpressionInC, KeepsToLimits) {
  const auto expression = Prepare("x+x+x");
  mirlow_set_number(Get(), "x", 1);
  mirlow_limits limits = {2, 0, 0, 0, 0};
  mirlow_set_limits(Get(), &limits);
  double untouched = 5;
  EXPECT_EQ(mirlow_evaluate_number(expression.get(), &untouched), MIRLOW_FAILED);
  EXPECT_EQ(mirlow_last_error(Get())->kind, MIRLOW_STEPS);
  EXPECT_EQ(untouched, 5);
  limits.steps = 0;
  mirlow_set_limits(Get(), &limits);
  EXPECT_EQ(Evaluate(expression), 3);
}

TEST_F(ExpressionInC, VariablesTakeTheNamesThatSymbolsMayBear) {
  for (const char* name : {"", "a b", "7", "e5", "_"}) {
    mirlow_variable* untouched = nullptr;
    EXPECT_EQ(mirlow_get_variable(Get(), name, &untouched), MIRLOW_FAILED) << name;
    EXPECT_EQ(mirlow_last_error(Get())->kind, MIRLOW_FORM) << name;
    EXPECT_STRNE(mirlow_last_error(Get())->text, "") << name;
    EXPECT_EQ(untouched, nullptr) << name;
  }
  double untouched = 5;
  EXPECT_EQ(mirlow_get_variable_number(GetVariable("x").get(), &untouched), MIRLOW_NOT_FOUND);
  mirlow_process_line(Get(), "x=<1>");
  EXPECT_EQ(mirlow_get_variable_number(GetVariable("x").get(), &untouched), MIRLOW_NOT_FOUND);
  EXPECT_EQ(untouched, 5);
}

// Whoever frees first: the order in which a language with a collector does it is nobody's choice.
TEST_F(ExpressionInC, OutlivesItsStateButDoesNothing) {
  const auto first = Prepare("x+1");
  const auto second = Prepare("x+2");
  auto third = Prepare("x+3");
  const auto x = GetVariable("x");
  third.reset();  // in the midst of others
  mirlow_set_variable(x.get(), 1);
  EXPECT_EQ(Evaluate(first) + Evaluate(second), 5);
  FreeState();
  double number = 5;
  mirlow_value* value = nullptr;
  const char* name = nullptr;
  EXPECT_EQ(mirlow_evaluate_number(first.get(), &number), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_evaluate_prepared(second.get(), &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_name_read(first.get(), 0, &name), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_set_variable(x.get(), 2), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_variable_number(x.get(), &number), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(number, 5);
  EXPECT_EQ(value, nullptr);
  EXPECT_EQ(name, nullptr);
}

TEST_F(ExpressionInC, NullIsRefused) {
  mirlow_expression* expression = nullptr;
  mirlow_variable* variable = nullptr;
  mirlow_value* value = nullptr;
  double number = 0;
  const char* name = nullptr;
  const auto good = Prepare("1");
  EXPECT_EQ(mirlow_prepare(nullptr, "1", &expression), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_prepare(Get(), nullptr, &expression), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_prepare(Get(), "1", nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_evaluate_prepared(nullptr, &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_evaluate_prepared(good.get(), nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_evaluate_number(nullptr, &number), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_evaluate_number(good.get(), nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_name_read(nullptr, 0, &name), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_name_read(good.get(), 0, nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_variable(nullptr, "x", &variable), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_variable(Get(), nullptr, &variable), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_variable(Get(), "x", nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_set_variable(nullptr, 1), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_variable_number(nullptr, &number), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_variable_number(GetVariable("x").get(), nullptr), MIRLOW_BAD_ARGUMENT);
  mirlow_free_expression(nullptr);
  mirlow_free_variable(nullptr);
}

}  // namespace
