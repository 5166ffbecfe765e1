// Tests of states in C: evaluating, lines, symbols, and what went wrong.
#include <gtest/gtest.h>
#include <mirlow/mirlow.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "interpreter/version.h"

namespace {

struct Free {
  void operator()(mirlow_state* state) const { mirlow_free(state); }
  void operator()(mirlow_value* value) const { mirlow_release(value); }
};
using StatePtr = std::unique_ptr<mirlow_state, Free>;
using ValuePtr = std::unique_ptr<mirlow_value, Free>;

class StateInC : public testing::Test {
 protected:
  // The text of the value, or of the failure.
  std::string Compute(const char* expression) {
    mirlow_value* value = nullptr;
    const mirlow_status status = mirlow_evaluate(Get(), expression, &value);
    const ValuePtr owned(value);
    return status == MIRLOW_OK ? mirlow_text(value) : mirlow_last_error(Get())->text;
  }

  // What a line prints.
  std::string Process(const char* line) {
    std::string printed;
    const mirlow_write append = [](void* user, const char* text, std::size_t length) {
      static_cast<std::string*>(user)->append(text, length);
    };
    EXPECT_EQ(mirlow_set_output(Get(), append, &printed), MIRLOW_OK);
    EXPECT_EQ(mirlow_process_line(Get(), line), MIRLOW_OK);
    EXPECT_EQ(mirlow_set_output(Get(), nullptr, nullptr), MIRLOW_OK);
    return printed;
  }

  mirlow_state* Get() const { return state_.get(); }

 private:
  StatePtr state_{mirlow_new()};
};

TEST_F(StateInC, HasTheVersionOfTheLibrary) { EXPECT_STREQ(mirlow_version(), Quarn::kVersion); }

TEST_F(StateInC, EvaluatesOrSaysWhatIsWrong) {
  const struct {
    const char* expression;
    const char* answer;
  } kRows[] = {
      {"1+2",      "3"                                                            },
      {"2*<1, 2>", "<2, 4>"                                                       },
      {"&1+1",     "2"                                                            },
      {"zz",       "\tError : Unknown symbol 'zz'"                                },
      {"",         "\tError : Empty symbol"                                       },
      {"x=1",      "\tError : Unable to parse expression 'x=1', no operator found"},
  };
  for (const auto& row : kRows) EXPECT_EQ(Compute(row.expression), row.answer) << row.expression;
}

TEST_F(StateInC, SaysWhereAFailureCameToLight) {
  EXPECT_STREQ(mirlow_last_error(Get())->text, "");
  mirlow_value* untouched = nullptr;
  EXPECT_EQ(mirlow_evaluate(Get(), "2*width", &untouched), MIRLOW_FAILED);
  EXPECT_EQ(untouched, nullptr);
  const mirlow_error* error = mirlow_last_error(Get());
  EXPECT_EQ(error->kind, MIRLOW_UNKNOWN_NAME);
  EXPECT_EQ(error->position, 2U);
  EXPECT_EQ(error->length, 5U);
  EXPECT_STREQ(error->text, "\tError : Unknown symbol 'width'");
}

TEST_F(StateInC, LimitsEndWhatUsesTooMuch) {
  EXPECT_EQ(mirlow_set_limits(Get(), nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_set_limits(nullptr, nullptr), MIRLOW_BAD_ARGUMENT);
  const struct {
    mirlow_limits limits;
    const char* expression;
    mirlow_failure kind;
  } kRows[] = {
      {{3, 0, 0, 0, 0},    "1+1+1+1+1+1+1+1+1+1+x", MIRLOW_STEPS  },
      {{0, 0, 0, 3, 0},    "(1+(1+(1+(1+(1+1)))))", MIRLOW_NESTING},
      {{1000, 0, 0, 0, 1}, "!2.5",                  MIRLOW_VALUE  },
      {{1000, 0, 0, 0, 1}, "<1>[1/0]",              MIRLOW_VALUE  },
  };
  mirlow_set_number(Get(), "x", 1);
  for (const auto& row : kRows) {
    EXPECT_EQ(mirlow_set_limits(Get(), &row.limits), MIRLOW_OK);
    mirlow_value* untouched = nullptr;
    EXPECT_EQ(mirlow_evaluate(Get(), row.expression, &untouched), MIRLOW_FAILED) << row.expression;
    EXPECT_EQ(untouched, nullptr) << row.expression;
    EXPECT_EQ(mirlow_last_error(Get())->kind, row.kind)
        << row.expression << mirlow_last_error(Get())->text;
    const mirlow_limits none = {0, 0, 0, 0, 0};
    EXPECT_EQ(mirlow_set_limits(Get(), &none), MIRLOW_OK);
    EXPECT_EQ(Compute("x+1"), "2");
  }
}

TEST_F(StateInC, AnInterruptionFromAnotherThreadEndsWhatIsUnderWay) {
  std::string long_sum = "1";
  for (int i = 0; i < 5000000; ++i) long_sum += "+1";
  std::atomic<bool> is_over = false;
  std::thread other([&] {
    while (!is_over) {
      mirlow_interrupt(Get());
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  });
  mirlow_value* untouched = nullptr;
  EXPECT_EQ(mirlow_evaluate(Get(), long_sum.c_str(), &untouched), MIRLOW_FAILED);
  is_over = true;
  other.join();
  EXPECT_EQ(mirlow_last_error(Get())->kind, MIRLOW_INTERRUPTED);
  EXPECT_EQ(Compute("1+1"), "2");
  mirlow_interrupt(nullptr);
}

TEST_F(StateInC, LinesPrintWhereTheHostWants) {
  EXPECT_EQ(mirlow_process_line(Get(), "x=1"), MIRLOW_OK);  // nobody listens
  EXPECT_EQ(Process("x;y=x+1"), "\tScalar : 1\n\tDefining Scalar : y = 2\n");
  EXPECT_EQ(Process("?z"), "\tError : Unknown symbol 'z'\n");
  // The question is answered with Enter, each time.
  EXPECT_NE(Process("~").find("erased"), std::string::npos);
  Process("x=1");
  EXPECT_NE(Process("~").find("erased"), std::string::npos);
  EXPECT_EQ(Compute("x"), "\tError : Unknown symbol 'x'");
}

TEST_F(StateInC, TheFirstFailureOfALineHasAPlaceInIt) {
  const struct {
    const char* line;
    mirlow_failure kind;
    std::size_t position;
    std::size_t length;
    const char* text;
  } kRows[] = {
      {"x=1;2*width;1+zz", MIRLOW_UNKNOWN_NAME, 6, 5, "\tError : Unknown symbol 'width'"},
      {"?no",              MIRLOW_UNKNOWN_NAME, 1, 2, "\tError : Unknown symbol 'no'"   },
      {"1;(2",             MIRLOW_FORM,         2, 1, "\tError : Unterminated '('"      },
      {"x=2",              MIRLOW_NO_FAILURE,   0, 0, ""                                },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(mirlow_process_line(Get(), row.line), MIRLOW_OK) << row.line;
    const mirlow_error* error = mirlow_line_error(Get());
    EXPECT_EQ(error->kind, row.kind) << row.line;
    EXPECT_EQ(error->position, row.position) << row.line;
    EXPECT_EQ(error->length, row.length) << row.line;
    EXPECT_STREQ(error->text, row.text) << row.line;
  }
  EXPECT_STREQ(mirlow_line_error(nullptr)->text, "");
  EXPECT_STREQ(mirlow_last_error(Get())->text, "") << "no call has failed";
}

// Says yes or no each time that it is asked, a few bytes at a time.
TEST_F(StateInC, QuestionsAreAnsweredByTheHost) {
  struct Answers {
    std::string text;
    static std::size_t Read(void* user, char* text, std::size_t room) {
      std::string& rest = static_cast<Answers*>(user)->text;
      const std::size_t count = rest.copy(text, std::min<std::size_t>(room, 2));
      rest.erase(0, count);
      return count;
    }
  } answers{"no\ny\n"};
  EXPECT_EQ(mirlow_set_input(Get(), Answers::Read, &answers), MIRLOW_OK);
  mirlow_set_number(Get(), "x", 1);
  EXPECT_EQ(Process("~").find("erased"), std::string::npos);
  EXPECT_EQ(Compute("x"), "1");
  EXPECT_NE(Process("~").find("erased"), std::string::npos);
  EXPECT_EQ(answers.text, "");
  mirlow_set_number(Get(), "x", 1);
  EXPECT_NE(Process("~").find("erased"), std::string::npos) << "the end is Enter";

  answers.text = "n\nforgotten\n";
  mirlow_set_number(Get(), "x", 1);
  EXPECT_EQ(Process("~").find("erased"), std::string::npos);
  EXPECT_EQ(mirlow_set_input(Get(), nullptr, nullptr), MIRLOW_OK);
  EXPECT_NE(Process("~").find("erased"), std::string::npos);
}

// More bytes than there was room for, and an exception: no answer.
TEST_F(StateInC, AnAnswerThatIsNoneCountsAsTheEnd) {
  const mirlow_read too_many = [](void*, char*, std::size_t room) { return room + 1; };
  const mirlow_read thrower = [](void*, char*, std::size_t) -> std::size_t {
    throw std::runtime_error("no");
  };
  for (const mirlow_read read : {too_many, thrower}) {
    EXPECT_EQ(mirlow_set_input(Get(), read, nullptr), MIRLOW_OK);
    EXPECT_NE(Process("~").find("erased"), std::string::npos);
  }
  EXPECT_EQ(Compute("1+1"), "2");
}

TEST_F(StateInC, TypesAndFunctionsHaveNames) {
  const auto list = [this](auto get) {
    std::string names;
    const char* name = nullptr;
    for (std::size_t i = 0; get(Get(), i, &name) == MIRLOW_OK; ++i) names.append(name).append(" ");
    return names;
  };
  EXPECT_EQ(list(mirlow_get_type_name), "Reference Scalar Symbol Vector ");
  EXPECT_EQ(list(mirlow_get_function_name), "max min rand round round_down round_up ");
  const char* untouched = nullptr;
  EXPECT_EQ(mirlow_get_type_name(Get(), 4, &untouched), MIRLOW_NOT_FOUND);
  EXPECT_EQ(mirlow_get_type_name(nullptr, 0, &untouched), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_function_name(Get(), 0, nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_set_input(nullptr, nullptr, nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(untouched, nullptr);
}

TEST_F(StateInC, SymbolsComeAndGo) {
  EXPECT_EQ(mirlow_set_number(Get(), "x", 2.5), MIRLOW_OK);
  EXPECT_EQ(Compute("2*x"), "5");
  mirlow_value* value = nullptr;
  ASSERT_EQ(mirlow_get(Get(), "x", &value), MIRLOW_OK);
  const ValuePtr owned(value);
  EXPECT_EQ(mirlow_set(Get(), "y", value), MIRLOW_OK);
  EXPECT_EQ(mirlow_erase(Get(), "x"), MIRLOW_OK);
  EXPECT_EQ(mirlow_erase(Get(), "x"), MIRLOW_NOT_FOUND);
  EXPECT_EQ(mirlow_erase(Get(), "_"), MIRLOW_NOT_FOUND);
  mirlow_value* untouched = nullptr;
  EXPECT_EQ(mirlow_get(Get(), "x", &untouched), MIRLOW_NOT_FOUND);
  EXPECT_EQ(untouched, nullptr);
  EXPECT_EQ(Compute("y"), "2.5");
  EXPECT_STREQ(mirlow_text(value), "2.5");
}

TEST_F(StateInC, AValueThatWasTakenOutDoesNotChangeWithItsSymbol) {
  mirlow_set_number(Get(), "x", 1);
  mirlow_value* value = nullptr;
  ASSERT_EQ(mirlow_get(Get(), "x", &value), MIRLOW_OK);
  const ValuePtr owned(value);
  mirlow_set_number(Get(), "x", 2);
  double number = 0;
  EXPECT_EQ(mirlow_to_number(value, &number), MIRLOW_OK);
  EXPECT_EQ(number, 1);
}

TEST_F(StateInC, NamesThatNothingCanAskForAreRefused) {
  for (const char* name : {"", "a b", "7", "e5", "_"}) {
    EXPECT_EQ(mirlow_set_number(Get(), name, 1), MIRLOW_FAILED) << name;
    EXPECT_STRNE(mirlow_last_error(Get())->text, "") << name;
    EXPECT_EQ(mirlow_set_reference(Get(), name, "1"), MIRLOW_FAILED) << name;
  }
}

TEST_F(StateInC, NamesAreInOrder) {
  mirlow_set_number(Get(), "b", 1);
  mirlow_set_number(Get(), "a", 1);
  std::vector<std::string> names;
  const char* name = nullptr;
  for (std::size_t i = 0; mirlow_get_name(Get(), i, &name) == MIRLOW_OK; ++i) names.push_back(name);
  EXPECT_EQ(names, (std::vector<std::string>{"_", "a", "b"}));
}

// Who walks through the names may erase symbols on the way.
TEST_F(StateInC, NamesAreThoseFromTheBeginningOfTheWalk) {
  mirlow_process_line(Get(), "a=1;b=2;c=3");
  const char* name = nullptr;
  EXPECT_EQ(mirlow_get_name(Get(), 0, &name), MIRLOW_OK);
  for (std::size_t i = 1; mirlow_get_name(Get(), i, &name) == MIRLOW_OK; ++i) {
    EXPECT_EQ(mirlow_erase(Get(), name), MIRLOW_OK) << name;
  }
  EXPECT_EQ(mirlow_get_name(Get(), 0, &name), MIRLOW_OK);
  EXPECT_EQ(mirlow_get_name(Get(), 1, &name), MIRLOW_NOT_FOUND);
}

TEST_F(StateInC, AReferenceFollowsWhatItNames) {
  EXPECT_EQ(mirlow_set_reference(Get(), "r", "x+1"), MIRLOW_OK);
  mirlow_value* value = nullptr;
  ASSERT_EQ(mirlow_get(Get(), "r", &value), MIRLOW_OK);
  const ValuePtr reference(value);
  mirlow_value* followed = nullptr;
  EXPECT_EQ(mirlow_follow(Get(), value, &followed), MIRLOW_FAILED);
  EXPECT_STREQ(mirlow_last_error(Get())->text, "\tError : Unknown symbol 'x'");
  mirlow_set_number(Get(), "x", 4);
  ASSERT_EQ(mirlow_follow(Get(), value, &followed), MIRLOW_OK);
  const ValuePtr owned(followed);
  EXPECT_STREQ(mirlow_text(followed), "5");
  EXPECT_EQ(mirlow_get_kind(value), MIRLOW_REFERENCE);
  EXPECT_EQ(mirlow_get_kind(followed), MIRLOW_NUMBER);
}

TEST_F(StateInC, NullIsRefused) {
  mirlow_value* value = nullptr;
  EXPECT_EQ(mirlow_evaluate(nullptr, "1", &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_evaluate(Get(), nullptr, &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_evaluate(Get(), "1", nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_set_output(nullptr, nullptr, nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_process_line(nullptr, "1"), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_process_line(Get(), nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_set(Get(), "x", nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_set_number(Get(), nullptr, 1), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_set_reference(Get(), "r", nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get(Get(), nullptr, &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_erase(nullptr, "x"), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_get_name(Get(), 0, nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_STREQ(mirlow_last_error(nullptr)->text, "");
  EXPECT_EQ(value, nullptr);
  mirlow_free(nullptr);
  mirlow_release(nullptr);
}

TEST_F(StateInC, WhatAHostThrowsGoesNoFurther) {
  const mirlow_write refuse = [](void*, const char*, std::size_t) {
    throw std::runtime_error("no");
  };
  // A stream takes what is thrown for a failure to write.
  mirlow_set_output(Get(), refuse, nullptr);
  EXPECT_EQ(mirlow_process_line(Get(), "1+1"), MIRLOW_OK);
  EXPECT_EQ(Process("1+1"), "\tScalar : 2\n");
}

}  // namespace
