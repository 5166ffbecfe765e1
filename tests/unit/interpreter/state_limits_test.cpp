// Tests of expressions that are very long or very deep: they have their value, or one error says
// why not, and soon.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <string>

#include "interpreter/core.h"
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

// A text of so many bytes that nobody may read.
class Unreadable {
 public:
  explicit Unreadable(std::size_t size)
      : size_(size),
        memory_(
            mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)) {}
  ~Unreadable() {
    if (IsThere()) munmap(memory_, size_);
  }
  Unreadable(const Unreadable&) = delete;
  Unreadable& operator=(const Unreadable&) = delete;

  bool IsThere() const { return memory_ != MAP_FAILED; }
  std::string_view Get() const { return {static_cast<const char*>(memory_), size_}; }

 private:
  std::size_t size_;
  void* memory_;
};

// Positions in a text have 32 bits; it was cut to its size modulo 2^32, which may be a good text.
TEST(Limits, ATextOfFourGibibytesOrMoreIsTooLong) {
  constexpr auto kPositions = std::size_t{1} << (sizeof(std::size_t) * 4);
  if (sizeof(std::size_t) < 8) GTEST_SKIP() << "no text is as long here";
  Session session;
  for (std::size_t more : {0U, 1U, 3U}) {
    const Unreadable text(kPositions + more);
    if (!text.IsThere()) GTEST_SKIP() << "no room for such a text";
    s_str error = "\tError : Another";
    Evaluated result;
    Diagnosis diagnosis;
    EXPECT_FALSE(session.GetState().GetCore().machine.Evaluate(text.Get(), "x", true, result, error,
                                                               diagnosis));
    EXPECT_EQ(error.Get(), "\tError : Another\n\tError : Expression is too long");
    EXPECT_EQ(session.GetState().Compute(text.Get()).error, "\tError : Expression is too long");
    Program program;
    session.GetState().GetCore().machine.Read(text.Get(), program);
    ASSERT_EQ(program.code.size(), 1U);
    EXPECT_EQ(program.code[0].code, Code::kFail);
    EXPECT_EQ(program.extra->message.Get(), "\tError : Expression is too long");
  }
  EXPECT_EQ(session.Evaluate("1+1"), "Scalar : 2");
}

// A type that says nothing of how its literals begin, so that it is asked about every text.
void RegisterAsked(State& state) {
  state.AddType({"Asked", [](const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); },
                 [](std::string_view text) -> s_bool { return text.ends_with("?"); },
                 [](State&, const s_str&, const s_str&, s_str&) { return FromNumber(7); }});
}

constexpr int kDeep = kSanitized ? 300 : 100'000;

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

// If each level cost the length of what it holds, this would take minutes.
TEST(Limits, NestingCostsItsLengthBesideSuchAType) {
  Session session;
  RegisterAsked(session.GetState());
  for (const std::string& text : {std::string(80'000, '<'), Nest("<", "zz", ">", 40'000),
                                  Nest("max(", "zz", ", 1)", 20'000)}) {
    EXPECT_FALSE(session.GetState().Compute(text).value);
  }
}

}  // namespace
}  // namespace Quarn
