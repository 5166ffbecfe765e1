// Tests of values in C: out, in, and what is of another type.
#include <gtest/gtest.h>
#include <mirlow/mirlow.h>

#include <string>
#include <vector>

namespace {

// A state whose values are released with it, so that rows stay short.
class ValueInC : public testing::Test {
 protected:
  ~ValueInC() override {
    mirlow_free(state_);
    for (mirlow_value* value : values_) mirlow_release(value);
  }

  mirlow_value* Keep(mirlow_value* value) {
    values_.push_back(value);
    return value;
  }
  mirlow_value* Compute(const char* expression) {
    mirlow_value* value = nullptr;
    EXPECT_EQ(mirlow_evaluate(state_, expression, &value), MIRLOW_OK) << expression;
    return Keep(value);
  }

  mirlow_state* state_ = mirlow_new();

 private:
  std::vector<mirlow_value*> values_;
};

TEST_F(ValueInC, KnowsItsKindTypeAndText) {
  mirlow_set_reference(state_, "lost", "nothing");
  const struct {
    const char* expression;
    mirlow_kind kind;
    const char* type;
    const char* text;
  } kRows[] = {
      {"1/4",    MIRLOW_NUMBER,    "Scalar",    "0.25"   },
      {"<1, 2>", MIRLOW_VECTOR,    "Vector",    "<1, 2>" },
      {"lost",   MIRLOW_REFERENCE, "Reference", "nothing"},
      {"&2",     MIRLOW_REFERENCE, "Scalar",    "2"      },
  };
  for (const auto& row : kRows) {
    mirlow_value* value = Compute(row.expression);
    EXPECT_EQ(mirlow_get_kind(value), row.kind) << row.expression;
    EXPECT_STREQ(mirlow_type(value), row.type) << row.expression;
    EXPECT_STREQ(mirlow_text(value), row.text) << row.expression;
  }
  mirlow_process_line(state_, "abstract:Symbol");
  EXPECT_EQ(mirlow_get_kind(Compute("abstract")), MIRLOW_OTHER);
}

TEST_F(ValueInC, GivesItsNumbers) {
  double number = 0;
  EXPECT_EQ(mirlow_to_number(Compute("&1+1"), &number), MIRLOW_OK);
  EXPECT_EQ(number, 2);
  EXPECT_EQ(mirlow_to_number(Compute("<1>"), &number), MIRLOW_WRONG_TYPE);
  EXPECT_EQ(number, 2);

  size_t count = 0;
  EXPECT_EQ(mirlow_count(Compute("<3, 4, 5>"), &count), MIRLOW_OK);
  EXPECT_EQ(count, 3U);
  EXPECT_EQ(mirlow_count(Compute("3"), &count), MIRLOW_WRONG_TYPE);
  std::vector<double> numbers(3);
  EXPECT_EQ(mirlow_to_numbers(Compute("<3, 4, 5>"), numbers.data(), 3), MIRLOW_OK);
  EXPECT_EQ(numbers, (std::vector<double>{3, 4, 5}));
  EXPECT_EQ(mirlow_to_numbers(Compute("<3, 4, 5>"), numbers.data(), 2), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_to_numbers(Compute("<<3>>"), numbers.data(), 1), MIRLOW_WRONG_TYPE);
  EXPECT_EQ(mirlow_to_numbers(Compute("<>"), nullptr, 0), MIRLOW_OK);
}

TEST_F(ValueInC, GivesItsElements) {
  mirlow_value* nested = Compute("<<1, 2>, <3, 4>>");
  mirlow_value* element = nullptr;
  ASSERT_EQ(mirlow_element(nested, 1, &element), MIRLOW_OK);
  EXPECT_STREQ(mirlow_text(Keep(element)), "<3, 4>");
  ASSERT_EQ(mirlow_element(Compute("&<7, 8>"), 0, &element), MIRLOW_OK);
  EXPECT_STREQ(mirlow_text(Keep(element)), "7");
  EXPECT_EQ(mirlow_element(nested, 2, &element), MIRLOW_NOT_FOUND);
  EXPECT_EQ(mirlow_element(Compute("3"), 0, &element), MIRLOW_WRONG_TYPE);
}

TEST_F(ValueInC, IsMadeOfPlainC) {
  mirlow_value* value = nullptr;
  ASSERT_EQ(mirlow_from_number(2.5, &value), MIRLOW_OK);
  mirlow_value* half = Keep(value);
  EXPECT_STREQ(mirlow_text(half), "2.5");

  const double numbers[] = {1, 2};
  ASSERT_EQ(mirlow_from_numbers(numbers, 2, &value), MIRLOW_OK);
  mirlow_value* vector = Keep(value);
  EXPECT_STREQ(mirlow_text(vector), "<1, 2>");
  ASSERT_EQ(mirlow_from_numbers(nullptr, 0, &value), MIRLOW_OK);
  EXPECT_STREQ(mirlow_text(Keep(value)), "<>");

  const mirlow_value* const alike[] = {vector, vector};
  ASSERT_EQ(mirlow_from_elements(alike, 2, &value), MIRLOW_OK);
  EXPECT_STREQ(mirlow_text(Keep(value)), "<<1, 2>, <1, 2>>");
  const mirlow_value* const unlike[] = {vector, half};
  EXPECT_EQ(mirlow_from_elements(unlike, 2, &value), MIRLOW_WRONG_TYPE);
  const mirlow_value* const missing[] = {vector, nullptr};
  EXPECT_EQ(mirlow_from_elements(missing, 2, &value), MIRLOW_BAD_ARGUMENT);
}

TEST_F(ValueInC, AReferenceEvaluatesInItsState) {
  mirlow_value* value = nullptr;
  ASSERT_EQ(mirlow_from_reference(state_, "x+1", &value), MIRLOW_OK);
  Keep(value);
  double number = 0;
  EXPECT_EQ(mirlow_to_number(value, &number), MIRLOW_WRONG_TYPE);
  mirlow_set_number(state_, "x", 6);
  EXPECT_EQ(mirlow_to_number(value, &number), MIRLOW_OK);
  EXPECT_EQ(number, 7);
}

TEST_F(ValueInC, NullIsRefused) {
  double number = 0;
  size_t count = 0;
  mirlow_value* one = Compute("1");
  mirlow_value* value = nullptr;
  EXPECT_EQ(mirlow_get_kind(nullptr), MIRLOW_OTHER);
  EXPECT_STREQ(mirlow_text(nullptr), "");
  EXPECT_STREQ(mirlow_type(nullptr), "");
  EXPECT_EQ(mirlow_to_number(nullptr, &number), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_to_number(one, nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_count(nullptr, &count), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_element(nullptr, 0, &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_to_numbers(one, nullptr, 1), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_follow(state_, nullptr, &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_from_number(1, nullptr), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_from_numbers(nullptr, 1, &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_from_elements(nullptr, 1, &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(mirlow_from_reference(nullptr, "1", &value), MIRLOW_BAD_ARGUMENT);
  EXPECT_EQ(value, nullptr);
}

}  // namespace
