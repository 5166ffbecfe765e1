// Tests of memory that runs out within a call in C: it returns MIRLOW_NO_MEMORY or null, writes
// nothing, loses nothing, and the state goes on.
#include <gtest/gtest.h>
#include <mirlow/mirlow.h>

#include <functional>
#include <string>

#include "tests/memory/scarce_memory.h"
#include "tests/support/c_handles.h"
#include "tests/support/sanitizers.h"
#include "utils/pool.h"

namespace Quarn {
namespace {

// Too long for a text that needs no memory.
constexpr char kName[] = "anamethatistoolongforanysmalltext";
constexpr char kText[] = "anamethatistoolongforanysmalltext*<1, 2, 3>";
constexpr char kUnknown[] = "1+another0name0that0is0too0long0for0any0small0text";

// What calls work on.
struct Fixture {
  Fixture() : state(mirlow_new()) {
    mirlow_set_number(state.get(), kName, 2);
    mirlow_set_reference(state.get(), "r", kText);
    number = Get("anamethatistoolongforanysmalltext");
    reference = Get("r");
    mirlow_value* made = nullptr;
    const double numbers[] = {1, 2, 3};
    mirlow_from_numbers(numbers, 3, &made);
    vector.reset(made);
    mirlow_expression* prepared = nullptr;
    mirlow_prepare(state.get(), kText, &prepared);
    expression.reset(prepared);
    mirlow_variable* of_symbol = nullptr;
    mirlow_get_variable(state.get(), "x", &of_symbol);
    variable.reset(of_symbol);
    mirlow_add_function(state.get(), "refuse", nullptr, 0, Refuse, MIRLOW_IMPURE, nullptr, nullptr);
  }

  static mirlow_value* Refuse(void*, const mirlow_value* const*, size_t, mirlow_call* call) {
    mirlow_fail(call, "\tError : A text that needs memory, being long");
    return nullptr;
  }
  Ptr<mirlow_value> Get(const char* name) const {
    mirlow_value* value = nullptr;
    EXPECT_EQ(mirlow_get(state.get(), name, &value), MIRLOW_OK) << name;
    return Ptr<mirlow_value>(value);
  }

  Ptr<mirlow_state> state;
  Ptr<mirlow_value> number, reference, vector;
  Ptr<mirlow_expression> expression;
  Ptr<mirlow_variable> variable;
};

mirlow_value* CallBack(void*, const mirlow_value* const*, size_t, mirlow_call*) { return nullptr; }
double Sum(void*, const double* numbers, size_t) { return numbers[0] + numbers[1]; }

// Hands on what a call made, to be released.
mirlow_status Keep(Ptr<mirlow_value>& kept,
                   const std::function<mirlow_status(mirlow_value**)>& call) {
  mirlow_value* value = nullptr;
  const mirlow_status status = call(&value);
  kept.reset(value);
  EXPECT_EQ(status == MIRLOW_OK, value != nullptr);
  return status;
}

struct Case {
  const char* name;
  mirlow_status status;  // with memory
  mirlow_status (*call)(Fixture& f, Ptr<mirlow_value>& made);
};

mirlow_status Expect(const void* pointer) { return pointer ? MIRLOW_OK : MIRLOW_NO_MEMORY; }

const Case kCases[] = {
    {"new",                          MIRLOW_OK,
     [](Fixture&,   Ptr<mirlow_value>&) { return Expect(Ptr<mirlow_state>(mirlow_new()).get()); }},
    {"evaluate",                     MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>& made) {
       return Keep(made, [&](auto out) { return mirlow_evaluate(f.state.get(), kText, out); });
     }                                                                        },
    {"evaluate what fails",          MIRLOW_FAILED,
     [](Fixture& f, Ptr<mirlow_value>& made) {
       return Keep(made, [&](auto out) { return mirlow_evaluate(f.state.get(), kUnknown, out); });
     }                                                                        },
    {"process_line",                 MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       return mirlow_process_line(f.state.get(), "a=<1, 2, 3>;b&=a+a;b;1+anothernamethatislong;~a");
     }                                                                        },
    {"set",                          MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       return mirlow_set(f.state.get(), "y0123456789012345678901234567890", f.vector.get());
     }                                                                        },
    {"set with a bad name",          MIRLOW_FAILED,
     [](Fixture& f, Ptr<mirlow_value>&) {
       return mirlow_set(f.state.get(), "a name with blanks in it", f.vector.get());
     }                                                                        },
    {"set_number",                   MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       return mirlow_set_number(f.state.get(), "y0123456789012345678901234567890", 3);
     }                                                                        },
    {"set_reference",                MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       return mirlow_set_reference(f.state.get(), "y", "1+anamethatistoolongforanysmalltext");
     }                                                                        },
    {"get",                          MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>& made) {
       return Keep(made, [&](auto out) { return mirlow_get(f.state.get(), kName, out); });
     }                                                                        },
    {"get_name",                     MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       const char* name = nullptr;
       return mirlow_get_name(f.state.get(), 0, &name);
     }                                                                        },
    {"prepare",                      MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       mirlow_expression* expression = nullptr;
       const mirlow_status status = mirlow_prepare(f.state.get(), "x+<1>[y]", &expression);
       mirlow_free_expression(expression);
       return status;
     }                                                                        },
    {"prepare what is broken",       MIRLOW_FAILED,
     [](Fixture& f, Ptr<mirlow_value>&) {
       mirlow_expression* expression = nullptr;
       return mirlow_prepare(f.state.get(), "1+(2+(3", &expression);
     }                                                                        },
    {"evaluate_prepared",            MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>& made) {
       return Keep(made,
                   [&](auto out) { return mirlow_evaluate_prepared(f.expression.get(), out); });
     }                                                                        },
    {"evaluate_number of a vector",  MIRLOW_WRONG_TYPE,
     [](Fixture& f, Ptr<mirlow_value>&) {
       double number = 0;
       return mirlow_evaluate_number(f.expression.get(), &number);
     }                                                                        },
    {"get_name_read",                MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       const char* name = nullptr;
       return mirlow_get_name_read(f.expression.get(), 0, &name);
     }                                                                        },
    {"get_variable",                 MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       mirlow_variable* variable = nullptr;
       const mirlow_status status = mirlow_get_variable(f.state.get(), "y", &variable);
       mirlow_free_variable(variable);
       return status;
     }                                                                        },
    {"get_variable with a bad name", MIRLOW_FAILED,
     [](Fixture& f, Ptr<mirlow_value>&) {
       mirlow_variable* variable = nullptr;
       return mirlow_get_variable(f.state.get(), "a name with blanks in it", &variable);
     }                                                                        },
    {"text",                         MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) { return Expect(mirlow_text(f.reference.get())); }       },
    {"to_numbers",                   MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       double numbers[3];
       return mirlow_to_numbers(f.vector.get(), numbers, 3);
     }                                                                        },
    {"count of a reference",         MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       size_t count = 0;
       return mirlow_count(f.reference.get(), &count);
     }                                                                        },
    {"element",                      MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>& made) {
       return Keep(made, [&](auto out) { return mirlow_element(f.vector.get(), 1, out); });
     }                                                                        },
    {"follow",                       MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>& made) {
       return Keep(made,
                   [&](auto out) { return mirlow_follow(f.state.get(), f.reference.get(), out); });
     }                                                                        },
    {"from_number",                  MIRLOW_OK,
     [](Fixture&,   Ptr<mirlow_value>& made) {
       return Keep(made, [](auto out) { return mirlow_from_number(1, out); });
     }                                                                          },
    {"from_numbers",                 MIRLOW_OK,
     [](Fixture&,   Ptr<mirlow_value>& made) {
       const double numbers[] = {1, 2};
       return Keep(made, [&](auto out) { return mirlow_from_numbers(numbers, 2, out); });
     }                                                                          },
    {"from_elements",                MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>& made) {
       const mirlow_value* elements[] = {f.vector.get(), f.vector.get()};
       return Keep(made, [&](auto out) { return mirlow_from_elements(elements, 2, out); });
     }                                                                        },
    {"from_reference",               MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>& made) {
       return Keep(made,
                   [&](auto out) { return mirlow_from_reference(f.state.get(), kUnknown, out); });
     }                                                                        },
    {"add_function",                 MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       const char* const types[] = {"Vector", "Scalar"};
       return mirlow_add_function(f.state.get(), "afunctionwithaverylongnameindeed", types, 2,
                                  CallBack, MIRLOW_PURE, nullptr, nullptr);
     }                                                                        },
    {"add_number_function",          MIRLOW_OK,
     [](Fixture& f, Ptr<mirlow_value>&) {
       return mirlow_add_number_function(f.state.get(), "afunctionwithaverylongnameindeed", 2, Sum,
                                         MIRLOW_PURE, nullptr, nullptr);
     }                                                                        },
};

// The exceptions stay within: a call that let one pass would end the process.
TEST(ExhaustionInC, IsAStatusOfEachCall) {
  Pool::Free(Pool::Allocate(1), 1);
  for (const Case& row : kCases) {
    for (std::size_t call = 1;; ++call) {
      ASSERT_LT(call, 100'000U) << row.name;
      const long before = ScarceMemory::CountAlive();
      bool failed = false;
      {
        Fixture fixture;
        Ptr<mirlow_value> made;
        ScarceMemory::FailAt(call);
        const mirlow_status status = row.call(fixture, made);
        failed = ScarceMemory::Stop();
        ASSERT_EQ(status, failed ? MIRLOW_NO_MEMORY : row.status) << row.name << ", " << call;
        double number = 0;
        made.reset();
        mirlow_value* sum = nullptr;
        ASSERT_EQ(mirlow_evaluate(fixture.state.get(), "r[2]+1", &sum), MIRLOW_OK)
            << row.name << ", " << call << mirlow_last_error(fixture.state.get())->text;
        made.reset(sum);
        ASSERT_EQ(mirlow_to_number(sum, &number), MIRLOW_OK) << row.name;
        ASSERT_EQ(number, 7) << row.name << ", " << call;
      }
      ASSERT_EQ(ScarceMemory::CountAlive(), before) << row.name << ", " << call;
      if (failed) continue;
      EXPECT_GT(call, 1U) << row.name << " needs no memory";
      break;
    }
  }
}

// The call fails all the same, only without the words.
TEST(ExhaustionInC, OfAFailureOfAFunctionLeavesItWithoutWords) {
  Fixture fixture;
  bool is_silent = false;
  for (std::size_t call = 1;; ++call) {
    ASSERT_LT(call, 100'000U);
    mirlow_value* value = nullptr;
    ScarceMemory::FailAt(call);
    const mirlow_status status = mirlow_evaluate(fixture.state.get(), "refuse()", &value);
    const bool failed = ScarceMemory::Stop();
    ASSERT_EQ(value, nullptr);
    if (status == MIRLOW_NO_MEMORY) continue;
    ASSERT_EQ(status, MIRLOW_FAILED);
    const std::string text = mirlow_last_error(fixture.state.get())->text;
    is_silent = is_silent || text.empty();
    if (failed) continue;
    EXPECT_EQ(text, "\tError : A text that needs memory, being long");
    break;
  }
#ifndef _LIBCPP_VERSION  // its texts ask for memory at other places
  EXPECT_TRUE(is_silent);
#endif
}

// What a user gave along is the host's still.
TEST(ExhaustionInC, OfAddingAFunctionDropsNothing) {
  int dropped = 0;
  const auto drop = [](void* user) { ++*static_cast<int*>(user); };
  for (std::size_t call = 1;; ++call) {
    ASSERT_LT(call, 100'000U);
    dropped = 0;
    Ptr<mirlow_state> state(mirlow_new());
    ScarceMemory::FailAt(call);
    const mirlow_status status = mirlow_add_number_function(
        state.get(), "afunctionwithaverylongnameindeed", 2, Sum, MIRLOW_PURE, &dropped, drop);
    ScarceMemory::Stop();
    state.reset();
    ASSERT_EQ(dropped, status == MIRLOW_OK ? 1 : 0) << call;
    if (status == MIRLOW_OK) break;
    ASSERT_EQ(status, MIRLOW_NO_MEMORY);
  }
}

}  // namespace
}  // namespace Quarn
