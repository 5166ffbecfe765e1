// Tests of memory that runs out: wherever in a session it does, the caller hears of it, nothing is
// lost, and the State goes on.
#include <gtest/gtest.h>

#include <array>
#include <new>
#include <sstream>
#include <streambuf>
#include <vector>

#include "interpreter/cell.h"
#include "interpreter/state.h"
#include "tests/memory/scarce_memory.h"
#include "tests/support/sanitizers.h"
#include "types/value.h"
#include "types/vector.h"
#include "utils/pool.h"

namespace Quarn {
namespace {

// Output that needs no memory: a stream that runs out of it says so by its state alone.
class FixedBuffer : public std::streambuf {
 public:
  FixedBuffer() { Clear(); }
  void Clear() { setp(room_.data(), room_.data() + room_.size()); }
  std::string_view GetText() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

 private:
  std::array<char, 1 << 16> room_;
};

// Some two hundred commands of every kind, with names and texts too long to need no memory.
const char* const kLines[] = {
    "alongnameofascalar=1.5;anotherlongnameofascalar=-2e10;short=3;=7",
    "alongnameofavector=<1, 2, 3>;v=<alongnameofascalar, 2*short, min(1,2)>;w=<<1, 2>, <3, 4>>",
    "v+alongnameofavector;v-alongnameofavector;v^alongnameofavector;2*v;v*2;-v;+v;w+w;-w;3*w",
    "v[0];v[-1];v[1e300];w[1][0];<10, 20, 30>[short];alongnameofavector[1/0-1/0]",
    "alongnameofareference&=alongnameofascalar+short;r&=v;n&=nosuchsymbolanywhere+1;null:Reference",
    "alongnameofareference;r;n;null;r+r;alongnameofareference*2;n+1;1+n;null+1;-n;r[1];<1, &short>",
    "_;_+1;1;_;_*_;_;alongnameofascalar;_",
    "1+2*3-4/5;(1+2)*(3-(4));((((((((1))))))));1/0;-1/0;0/0;!5;!1;-(-1);+alongnameofascalar",
    "min(1,2);max(1,2);round(2.5);round_up(1.2);round_down(1.7);rand();rand(1,2);min(max(1,2),3)",
    "0.1;1e20;1.23456789012345e-300;.5;5.;1e400;000000000000000000000000000000000000000000000001",
    "1+;+;*2;2 3;1+<1>;<1, 2>*<1, 2>;4!;nosuchfunctionanywhere(1);min(1);min(1,<2>);v[];[1];(1>2",
    "(1;1);<1;<1, <2, 3>>;<1, 2>+<1, 2, 3>;<1, 2>-<3>;<1>^<2>;<>[0];nosuchsymbolanywhere=nosuch",
    "a b=1;my_var=1;_=3;x:Foo;x:=3;x:Scalar;y:Vector;anabstractsymbolwithalongname;anabstract=x",
    "anabstractsymbolwithalongname;b=anabstractsymbolwithalongname;anabstractsymbolwithalongname+1",
    "?;?alongnameofascalar;?nosuchsymbolanywhere;?v;?r;?alongnameofareference;?null",
    "// a comment with a long text that is not looked at; 1+1;;;",
    "ring&=ring+1;other&=third;third&=other;ring;?ring;other;v=<1, &short>;v",
    "x=min(1,2);y=<1, 2>[0];z=alongnameofareference;q=&alongnameofareference;q;q+q",
    "<1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20>*2",
    "1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1",
    "~alongnameofascalar;~nosuchsymbolanywhere;~r;~v;alongnameofareference;~ x;~",
    "1+1",
};

class Exhaustion : public testing::Test {
 protected:
  // What a pool needs once and for all is there before anything is counted.
  Exhaustion() { Pool::Free(Pool::Allocate(1), 1); }

  void Register(State& state) { Vector::Register(state); }

  void RunLines(State& state) {
    for (const char* line : kLines) state.ProcessLine(line);
  }

  // A session, with the given call of operator new failing. Does the caller hear of it?
  bool RunToExhaustion(std::size_t call) {
    in_.clear();
    in_.seekg(0);
    ScarceMemory::FailAt(call);
    bool thrown = false;
    try {
      State state(out_, in_);
      Register(state);
      RunLines(state);
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
    const bool failed = ScarceMemory::Stop();
    EXPECT_EQ(thrown, failed) << "call " << call;
    return failed;
  }

  FixedBuffer buffer_;
  std::ostream out_{&buffer_};
  std::istringstream in_{"n\ny\n"};
};

TEST_F(Exhaustion, ReachesTheCallerAndLeaksNothing) {
  // Under sanitizers each block is a call, and a session takes long.
  constexpr std::size_t kStep = kSanitized ? 61 : 1;
  for (std::size_t call = 1;; call += kStep) {
    buffer_.Clear();
    const long before = ScarceMemory::CountAlive();
    const bool failed = RunToExhaustion(call);
    ASSERT_EQ(ScarceMemory::CountAlive(), before) << "call " << call;
    if (failed) continue;
    EXPECT_GT(call, 300U);
    RecordProperty("calls", static_cast<int>(call));
    return;
  }
}

TEST_F(Exhaustion, LeavesAStateThatGoesOn) {
  constexpr std::size_t kStep = kSanitized ? 211 : 17;
  for (std::size_t call = 1;; call += kStep) {
    in_.clear();
    in_.seekg(0);
    State state(out_, in_);
    Register(state);
    buffer_.Clear();
    ScarceMemory::FailAt(call);
    try {
      RunLines(state);
    } catch (const std::bad_alloc&) {
    }
    const bool failed = ScarceMemory::Stop();
    buffer_.Clear();
    state.ProcessLine("1+1;mine=<1, 2>;_[1];?mine;((1+2)*3)");
    ASSERT_EQ(buffer_.GetText(),
              "\tScalar : 2\n\tDefining Vector : mine = <1, 2>\n\tScalar : 2\n"
              "\tVector : mine = <1, 2>\n\tScalar : 9\n")
        << "call " << call;
    if (!failed) return;
  }
}

// The first evaluation in a State needs memory for all that is under way.
TEST_F(Exhaustion, LeavesReferencesThatCanBeEvaluated) {
  for (std::size_t call = 1;; ++call) {
    State state(out_, in_);
    Register(state);
    state.SetSymbol("anamethatistoolong", FromNumber(2));
    state.SetReference("r", "anamethatistoolong*<1, 2, 3>");
    const s_refptr<Symbol> reference = state.GetSymbol("r");
    ScarceMemory::FailAt(call);
    try {
      EXPECT_EQ(ToNumbers(reference), (std::vector<double>{2, 4, 6}));
    } catch (const std::bad_alloc&) {
    }
    const bool failed = ScarceMemory::Stop();
    const Result sum = state.Compute("r[2]+1");
    ASSERT_EQ(ToNumber(sum.value), 7) << "call " << call << sum.error;
    if (!failed) return;
  }
}

TEST_F(Exhaustion, OfARegistrationLeavesTheTypesAsTheyWere) {
  TypeRow row{"AnotherTypeWithALongName", [](const s_str&) { return FromNumber(0); },
              [](std::string_view text) -> s_bool { return text.ends_with("."); },
              [](State&, const s_str&, const s_str&, s_str&) { return FromNumber(7); }, "#@"};
  for (const bool is_known : {false, true}) {
    for (std::size_t call = 1;; ++call) {
      State state(out_, in_);
      row.literal_starts = "#";
      if (is_known) state.AddType(row);
      row.literal_starts = "@";
      ScarceMemory::FailAt(call);
      bool thrown = false;
      try {
        state.AddType(row);
      } catch (const std::bad_alloc&) {
        thrown = true;
      }
      const bool failed = ScarceMemory::Stop();
      EXPECT_EQ(thrown, failed);
      EXPECT_EQ(ToNumber(state.Compute("@.").value).has_value(), !failed) << call;
      EXPECT_EQ(ToNumber(state.Compute("#.").value).has_value(), failed && is_known) << call;
      EXPECT_EQ(state.GetTypes().size(), is_known || !failed ? 4U : 3U) << call;
      if (!failed) break;
      state.AddType(row);
      ASSERT_EQ(ToNumber(state.Compute("@.+1").value), 8) << call;
    }
  }
}

TEST_F(Exhaustion, OfANewNameLeavesNone) {
  constexpr char kName[] = "anamethatistoolongtobeinaplaceofitsown";
  const s_refptr<Symbol> two = FromNumber(2);
  for (std::size_t call = 1;; ++call) {
    const long before = ScarceMemory::CountAlive();
    bool failed = false;
    {
      State state(out_, in_);
      ScarceMemory::FailAt(call);
      try {
        state.SetSymbol(kName, two);
      } catch (const std::bad_alloc&) {
      }
      failed = ScarceMemory::Stop();
      EXPECT_EQ(static_cast<bool>(state.GetSymbol(kName)), !failed) << call;
      state.SetSymbol(kName, two);
      ASSERT_EQ(ToNumber(state.GetSymbol(kName)), 2) << call;
    }
    ASSERT_EQ(ScarceMemory::CountAlive(), before) << call;
    if (!failed) return;
  }
}

// Holds all blocks of the size of a link that the pool has.
class EmptyPool {
 public:
  EmptyPool() {
    blocks_.reserve(1 << 20);
    ScarceMemory::FailAt(static_cast<std::size_t>(-1));
    while (ScarceMemory::CountCalls() == 0) Hold();
    ScarceMemory::Stop();
    for (std::size_t left = 4096 / sizeof(Link) - 1; left > 0; --left) Hold();
  }
  ~EmptyPool() {
    for (void* block : blocks_) Pool::Free(block, sizeof(Link));
  }
  EmptyPool(const EmptyPool&) = delete;
  EmptyPool& operator=(const EmptyPool&) = delete;

 private:
  void Hold() { blocks_.push_back(Pool::Allocate(sizeof(Link))); }

  std::vector<void*> blocks_;
};

// An operation that is deferred, and gone, passes on the links to what it read. That comes late,
// and the last calls are the first to fail, before the pool takes larger pieces.
TEST_F(Exhaustion, OfLinksMakesWhoeverNeedsThemAskAgain) {
  constexpr int kNames = 130;
  constexpr std::size_t kCalls = kSanitized ? 4000 : 60;
  constexpr std::size_t kStep = kSanitized ? 97 : 1;
  std::string sum = "missing";
  for (int i = 0; i < kNames; ++i) sum = "a" + std::to_string(i) + "+" + sum;
  for (std::size_t call = kCalls; call > kCalls / 2; call -= kStep) {
    State state(out_, in_);
    for (int i = 0; i < kNames; ++i) state.SetSymbol("a" + std::to_string(i), FromNumber(1));
    state.SetReference("r", sum);
    state.SetReference("s", "r*2*3");
    const s_refptr<Symbol> reference = state.GetSymbol("s");
    const EmptyPool pool;
    ScarceMemory::FailAt(call);
    try {
      EXPECT_EQ(reference->GetType(), "Reference");
    } catch (const std::bad_alloc&) {
    }
    const bool failed = ScarceMemory::Stop();
    EXPECT_FALSE(failed && call == kCalls) << "there are more calls";
    EXPECT_EQ(reference->GetType(), "Reference");
    state.SetSymbol("missing", FromNumber(1));
    ASSERT_EQ(ToNumber(reference), 6 * (kNames + 1)) << call;
    state.SetSymbol("a7", FromNumber(11));
    ASSERT_EQ(ToNumber(reference), 6 * (kNames + 11)) << call;
  }
}

}  // namespace
}  // namespace Quarn
