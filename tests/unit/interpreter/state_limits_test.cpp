// Tests of expressions that are very long or very deep: they have their value, or one error says
// why not, and soon.
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/sanitizers.h"
#include "tests/support/session.h"
#include "types/value.h"

namespace Quarn {
namespace {

std::string Nest(const char* open, const std::string& inside, const char* close, int levels) {
  std::string before, behind;
  for (int i = 0; i < levels; ++i) {
    before += open;
    behind += close;
  }
  return before + inside + behind;
}

// A type that says nothing of how its literals begin, so that it is asked about every text.
void RegisterAsked(State& state) {
  state.AddType({"Asked", [](const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); },
                 [](const s_str& text) -> s_bool { return text.EndsWith("?"); },
                 [](State&, const s_str&, const s_str&, s_str&) { return FromNumber(7); }});
}

constexpr int kDeep = kSanitized ? 300 : 10'000;

TEST(Limits, NestingIsAsDeepBesideATypeThatIsAskedAboutEveryText) {
  Session session;
  RegisterAsked(session.GetState());
  EXPECT_EQ(session.Evaluate("a?"), "Scalar : 7");
  for (const char* inside : {"1", "a?"}) {
    const s_refptr<Symbol> vector = session.Parse(Nest("<", inside, ">", kDeep));
    ASSERT_TRUE(vector) << inside;
    EXPECT_EQ(ToText(vector), Nest("<", *inside == '1' ? "1" : "7", ">", kDeep));
    EXPECT_EQ(session.Evaluate(Nest("max(", inside, ", 5)", kDeep)),
              *inside == '1' ? "Scalar : 5" : "Scalar : 7");
    EXPECT_EQ(session.Evaluate(Nest("(", inside, ")", kDeep)),
              *inside == '1' ? "Scalar : 1" : "Scalar : 7");
  }
}

TEST(Limits, NestingThatIsRefusedIsRefusedSoonBesideSuchAType) {
  Session session;
  RegisterAsked(session.GetState());
  using Clock = std::chrono::steady_clock;
  for (const std::string& text :
       {std::string(80'000, '<'), Nest("<", "", ">", 40'000), Nest("<", "zz", ">", 40'000),
        Nest("max(", "zz", ", 1)", 20'000)}) {
    const Clock::time_point begin = Clock::now();
    EXPECT_FALSE(session.GetState().Compute(text).value);
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(kSanitized ? 30 : 3)) << text.substr(0, 9);
  }
}

}  // namespace
}  // namespace Quarn
