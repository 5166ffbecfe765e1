// Tests of what a State keeps when a line has been carried out: a long line leaves no large rooms
// behind.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "interpreter/state.h"
#include "tests/memory/scarce_memory.h"
#include "types/vector.h"

namespace Quarn {
namespace {

std::string Repeat(std::string_view text, int times) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

// Output that is thrown away.
class Nowhere : public std::streambuf {
 public:
  int overflow(int c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize size) override { return size; }
};

class KeptMemory : public testing::Test {
 protected:
  KeptMemory() { Vector::Register(state_); }

  // How many bytes the State has more after a line than before it, the line's own value gone.
  template <class Action>
  long CountKept(Action action) {
    state_.ProcessLine("1");
    const long before = ScarceMemory::CountBytes();
    action();
    state_.ProcessLine("1");
    return ScarceMemory::CountBytes() - before;
  }

  Nowhere nowhere_;
  std::istringstream in_;
  std::ostream out_{&nowhere_};
  State state_{out_, in_};
};

constexpr int kMany = 500'000;
constexpr long kFew = 5L << 20;

TEST_F(KeptMemory, ALongLineLeavesNoLargeRoomsBehind) {
  const std::string kLines[] = {
      Repeat("(", kMany) + "1" + Repeat(")", kMany),    // brackets
      Repeat("(", 2 * kMany),                           // brackets that never close
      Repeat("(1+", kMany) + "1" + Repeat(")", kMany),  // operators that wait, and their values
      Repeat("-(", kMany) + "1" + Repeat(")", kMany),
      "<" + Repeat("1,", kMany) + "1>",  // a long line of output
      "1" + Repeat("+1", kMany),
      "min(" + Repeat("1,", kMany) + "1)",
  };
  for (const std::string& line : kLines) {
    const s_str text(line);
    EXPECT_LT(CountKept([&] { state_.ProcessLine(text); }), kFew) << line.substr(0, 10);
    EXPECT_LT(CountKept([&] { state_.Compute(line); }), kFew) << line.substr(0, 10);
  }
}

// A line that is carried out inside of another one must not take the rooms of that.
TEST_F(KeptMemory, ALineInsideALineGivesBackNothingThatIsInUse) {
  state_.AddFunction("line", {""},
                     [](State& state, const Values&, Values& results, s_str&) -> s_bool {
                       state.ProcessLine(Repeat("(", kMany) + "1" + Repeat(")", kMany));
                       results.PushBack(state.Compute("1+(2*3)").value);
                       return true;
                     });
  state_.ProcessLine("x=" + Repeat("(1+", kMany) + "line()" + Repeat(")", kMany));
  EXPECT_EQ(state_.GetSymbol("x")->ToString().Get(), "x = " + std::to_string(kMany + 7));
}

}  // namespace
}  // namespace Quarn
