// Tests of functions that a host adds in C.
#include <gtest/gtest.h>
#include <mirlow/mirlow.h>

#include <stdexcept>
#include <string>

namespace {

double Sum(void* user, const double* arguments, std::size_t count) {
  ++*static_cast<int*>(user);
  double sum = 0;
  for (std::size_t i = 0; i < count; ++i) sum += arguments[i];
  return sum;
}

// How many elements a vector has; an empty one is refused.
mirlow_value* Count(void*, const mirlow_value* const* arguments, std::size_t, mirlow_call* call) {
  std::size_t count = 0;
  mirlow_count(arguments[0], &count);
  if (count == 0) {
    mirlow_fail(call, "\tError : Nothing to count");
    return nullptr;
  }
  mirlow_value* value = nullptr;
  mirlow_from_number(static_cast<double>(count), &value);
  return value;
}

mirlow_value* Throw(void*, const mirlow_value* const*, std::size_t, mirlow_call*) {
  throw std::runtime_error("no");
}

void CountDrop(void* user) { ++*static_cast<int*>(user); }

class FunctionInC : public testing::Test {
 protected:
  ~FunctionInC() override { mirlow_free(state_); }

  std::string Compute(const char* expression) {
    mirlow_value* value = nullptr;
    const mirlow_status status = mirlow_evaluate(state_, expression, &value);
    if (status == MIRLOW_FAILED) return mirlow_last_error(state_)->text;
    if (status != MIRLOW_OK) return "status " + std::to_string(status);
    const std::string text = mirlow_text(value);
    mirlow_release(value);
    return text;
  }

  mirlow_state* state_ = mirlow_new();
  int calls_ = 0;
};

TEST_F(FunctionInC, OfNumbersGetsThemAndWhatTheHostGave) {
  for (std::size_t count : {0U, 1U, 3U}) {
    EXPECT_EQ(
        mirlow_add_number_function(state_, "add_up", count, Sum, MIRLOW_IMPURE, &calls_, nullptr),
        MIRLOW_OK);
  }
  EXPECT_EQ(Compute("add_up()+add_up(1)+add_up(1, 2, 3)"), "7");
  EXPECT_EQ(calls_, 3);
  EXPECT_NE(Compute("add_up(1, 2)").find("Error"), std::string::npos);
  EXPECT_NE(Compute("add_up(<1>)").find("Error"), std::string::npos);
}

TEST_F(FunctionInC, OfValuesAnswersOrFails) {
  const char* const types[] = {"Vector"};
  EXPECT_EQ(mirlow_add_function(state_, "count", types, 1, Count, MIRLOW_PURE, nullptr, nullptr),
            MIRLOW_OK);
  EXPECT_EQ(Compute("count(<4, 5>)"), "2");
  EXPECT_EQ(Compute("1+count(<>)"), "\tError : Nothing to count");
}

TEST_F(FunctionInC, APureOneIsCalledOnceByAReference) {
  mirlow_add_number_function(state_, "pure", 0, Sum, MIRLOW_PURE, &calls_, nullptr);
  mirlow_set_reference(state_, "r", "pure()");
  Compute("r+r");
  Compute("r+r");
  EXPECT_EQ(calls_, 1);
  int impure_calls = 0;
  mirlow_add_number_function(state_, "impure", 0, Sum, MIRLOW_IMPURE, &impure_calls, nullptr);
  mirlow_set_reference(state_, "s", "impure()");
  Compute("s+0");
  Compute("s+0");
  EXPECT_GE(impure_calls, 2);
}

TEST_F(FunctionInC, WhatTheHostGaveIsDroppedOnce) {
  int drops = 0;
  mirlow_add_number_function(state_, "f", 0, Sum, MIRLOW_PURE, &drops, CountDrop);
  EXPECT_EQ(drops, 0);
  mirlow_add_number_function(state_, "f", 0, Sum, MIRLOW_PURE, &calls_, nullptr);
  EXPECT_EQ(drops, 1);
  int drops_at_end = 0;
  mirlow_add_number_function(state_, "g", 0, Sum, MIRLOW_PURE, &drops_at_end, CountDrop);
  mirlow_free(state_);
  state_ = nullptr;
  EXPECT_EQ(drops, 1);
  EXPECT_EQ(drops_at_end, 1);
}

TEST_F(FunctionInC, ThatIsRefusedDropsNothing) {
  int drops = 0;
  for (const char* name : {"", "a b", "f(", "a-b", "_ _"}) {
    EXPECT_EQ(mirlow_add_number_function(state_, name, 0, Sum, MIRLOW_PURE, &drops, CountDrop),
              MIRLOW_BAD_ARGUMENT)
        << name;
  }
  const char* const missing[] = {nullptr};
  EXPECT_EQ(mirlow_add_function(state_, "f", missing, 1, Count, MIRLOW_PURE, &drops, CountDrop),
            MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_add_function(state_, "f", nullptr, 1, Count, MIRLOW_PURE, &drops, CountDrop),
            MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_add_function(state_, "f", nullptr, 0, nullptr, MIRLOW_PURE, &drops, CountDrop),
            MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(drops, 0);
  mirlow_fail(nullptr, "nobody calls");
}

TEST_F(FunctionInC, WhatItThrowsGoesNoFurther) {
  mirlow_add_function(state_, "bad", nullptr, 0, Throw, MIRLOW_PURE, nullptr, nullptr);
  EXPECT_EQ(Compute("bad()"), "status " + std::to_string(MIRLOW_INTERNAL));
  EXPECT_EQ(Compute("1+1"), "2");
}

TEST_F(FunctionInC, MayEvaluateInItsTurn) {
  const mirlow_function f = [](void* user, const mirlow_value* const*, std::size_t,
                               mirlow_call* call) -> mirlow_value* {
    mirlow_value* value = nullptr;
    auto* state = static_cast<mirlow_state*>(user);
    if (mirlow_evaluate(state, "2*x", &value) == MIRLOW_OK) return value;
    mirlow_fail(call, mirlow_last_error(state)->text);
    return nullptr;
  };
  mirlow_add_function(state_, "twice", nullptr, 0, f, MIRLOW_IMPURE, state_, nullptr);
  EXPECT_EQ(Compute("twice()+1"), "\tError : Unknown symbol 'x'");
  mirlow_set_number(state_, "x", 3);
  EXPECT_EQ(Compute("twice()+1"), "7");
}

}  // namespace
