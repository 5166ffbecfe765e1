// Tests of memory that runs out: std::bad_alloc passes through, whichever allocation it was that
// failed, and the State works on.
#include <gtest/gtest.h>

#include <cstdlib>
#include <istream>
#include <new>
#include <ostream>
#include <streambuf>
#include <string>

#include "interpreter/state.h"
#include "tests/support/foreign_types.h"
#include "tests/support/sanitizers.h"
#include "types/value.h"
#include "types/vector.h"

namespace {

// How many more allocations succeed; negative: all do.
constinit thread_local long granted = -1;
// Do those after the first that fails succeed again?
constinit thread_local bool fails_once = false;

// Asks the system for a block, unless that is to fail.
template <class Ask>
void* Allocate(const Ask& ask) {
  if (granted == 0) {
    if (fails_once) granted = -1;
    throw std::bad_alloc();
  }
  if (granted > 0) --granted;
  if (void* block = ask()) return block;
  throw std::bad_alloc();
}

}  // namespace

// Where only one of a pair is copied to its callers, they look like strangers.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

void* operator new(std::size_t size) {
  return Allocate([size] { return std::malloc(size); });
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  const auto multiple = static_cast<std::size_t>(alignment);
  const std::size_t whole = (size + multiple - 1) / multiple * multiple;
  return Allocate([=] { return std::aligned_alloc(multiple, whole); });
}
void operator delete(void* block, std::align_val_t) noexcept { std::free(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { std::free(block); }

namespace Quarn {
namespace {

// Sanitizers make an exception dear and pool nothing.
constexpr long kStep = kSanitized ? 7 : 1;

// Runs it with so many allocations. Does it run out of memory?
template <class Action>
bool RunsOut(long allocations, bool once, Action action) {
  bool runs_out = false;
  fails_once = once;
  granted = allocations;
  try {
    action();
  } catch (const std::bad_alloc&) {
    runs_out = true;
  }
  granted = -1;
  return runs_out;
}

// Holds all free blocks of the pool, so that it must ask for memory at once.
class DrainedPool {
 public:
  DrainedPool() {
    // From the largest on, since the first one takes all that is not cut yet.
    for (std::size_t size = kLargest; size > 0; size -= sizeof(Block)) {
      RunsOut(0, false, [&] {
        while (true) blocks_ = new (Pool::Allocate(size)) Block{blocks_, size};
      });
    }
  }
  ~DrainedPool() {
    while (blocks_) {
      Block* next = blocks_->next;
      Pool::Free(blocks_, blocks_->size);
      blocks_ = next;
    }
  }
  DrainedPool(const DrainedPool&) = delete;
  DrainedPool& operator=(const DrainedPool&) = delete;

 private:
  static constexpr std::size_t kLargest = 256;

  struct Block {
    Block* next;
    std::size_t size;
  };
  Block* blocks_ = nullptr;
};

// Output that needs no memory.
class FixedBuffer : public std::streambuf {
 public:
  FixedBuffer() { Clear(); }
  void Clear() { setp(room_, room_ + sizeof room_); }
  std::string Get() const { return {pbase(), pptr()}; }

 private:
  char room_[1 << 16];
};

class MemoryTest : public testing::Test {
 protected:
  MemoryTest() : out_(&buffer_), in_(&answers_), state_(out_, in_) {
    Vector::Register(state_);
    state_.ProcessLine("x=1;v=<1, 2>;r&=x+1");
  }

  // Lets the action fail at its first allocation, at its second, and so on until it does not, and
  // looks after the State each time.
  template <class Action>
  void FailAtEach(const std::string& what, Action action) {
    for (bool once : {false, true}) {
      long allocations = 0;
      while (true) {
        bool runs_out = false;
        {
          const DrainedPool drained;
          runs_out = RunsOut(allocations, once, action);
        }
        ExpectUsable(what + ", failing at " + std::to_string(allocations));
        if (!runs_out) break;
        // Where there are so many, they are alike.
        allocations += allocations < 1000 ? kStep : allocations;
        ASSERT_LT(allocations, 100'000'000) << what;
      }
    }
  }

  void ExpectUsable(const std::string& what) {
    out_.clear();
    buffer_.Clear();
    state_.ProcessLine("x=1;v=<1, 2>;u=v+v;r&=x+1;min(r, 7)");
    EXPECT_EQ(buffer_.Get(),
              "\tDefining Scalar : x = 1\n\tDefining Vector : v = <1, 2>\n"
              "\tDefining Vector : u = <2, 4>\n\tDefining Reference : r = 2\n\tScalar : 2\n")
        << what;
    EXPECT_TRUE(state_.GetSymbol("_")) << what;
    buffer_.Clear();
  }

  FixedBuffer buffer_;
  FixedBuffer answers_;
  std::ostream out_;
  std::istream in_;
  State state_;
};

TEST_F(MemoryTest, ALineMayFailAtAnyAllocation) {
  std::string sum = "1", parentheses = "1", nested = "1", calls = "1";
  for (int i = 0; i < 40; ++i) {
    sum += "+x*2";
    parentheses = "(" + parentheses + "+1)";
    nested = "<" + nested + ">";
    calls = "max(" + calls + ", 2)";
  }
  const std::string kLines[] = {
      "y=1+2*3",
      "w=<v, v, 2*v>",
      "-v^v",
      "v[1]+v[-1]",
      "r+1",
      "<1, &x>",
      "s&=r*2",
      "w:Vector",
      "somename",
      "?v",
      "?",
      "~x",
      "~",
      "min(1, <2>)",
      "nope(1)",
      "zz+",
      "1 2",
      "(1",
      "x=3;x+1;<>[0];",
      sum,
      parentheses,
      nested,
      calls,
  };
  for (const std::string& line : kLines) {
    const s_str text(line);
    FailAtEach(line, [&] { state_.ProcessLine(text); });
  }
}

TEST_F(MemoryTest, ALineThatIsNestedTooDeeplyMayFailAtAnyAllocation) {
  if (kSanitized) GTEST_SKIP() << "each attempt uses up the stack";
  state_.ProcessLine("q&=q+1");
  const s_str text("q+1");
  for (long allocations : {10, 100, 1000, 10'000, 100'000}) {
    RunsOut(allocations, false, [&] { state_.ProcessLine(text); });
    ExpectUsable(std::to_string(allocations));
  }
}

TEST_F(MemoryTest, WhatAHostAsksForMayFailAtAnyAllocation) {
  FailAtEach("compute", [&] { state_.Compute("<1, 2>*min(x, 3)+2*v"); });
  FailAtEach("compute an error", [&] { state_.Compute("unknown+1"); });
  FailAtEach("set", [&] { state_.SetSymbol("anewname", state_.GetSymbol("v")); });
  FailAtEach("erase", [&] { state_.EraseSymbol("anewname"); });
  FailAtEach("numbers", [&] { ToNumbers(FromNumbers({1, 2, 3})); });
  FailAtEach("text", [&] { ToText(state_.GetSymbol("v")); });
  FailAtEach("names", [&] { state_.GetSymbolNames(); });
}

TEST_F(MemoryTest, AnotherStateMayFailToBeMade) {
  FailAtEach("construction", [&] { State another(out_, in_); });
}

TEST_F(MemoryTest, ARegistrationMayFailHalfWay) {
  for (long allocations = 0;; allocations += kStep) {
    State fresh(out_, in_);
    const auto add = [&] {
      Vector::Register(fresh);
      Word::Register(fresh);
    };
    const bool runs_out = RunsOut(allocations, false, add);
    EXPECT_EQ(ToNumber(fresh.Compute("1+1").value), 2) << allocations;
    // Half a registration is a type that lacks something, never one that breaks.
    fresh.Compute("-<1>+2*<1>");
    fresh.Compute("'a!+'b");
    add();
    EXPECT_EQ(ToText(fresh.Compute("<1>+2*<1>").value), "<3>") << allocations;
    EXPECT_EQ(ToText(fresh.Compute("'a!+'b").value), "aab") << allocations;
    if (!runs_out) break;
  }
}

// What is remembered of the earlier implementation must not outlive it.
TEST_F(MemoryTest, AnOperatorThatCouldNotBeReplacedIsInUseAsItIsRegistered) {
  const auto give = [](double number) -> BinaryOperator {
    return [number](const s_refptr<Symbol>&, const s_refptr<Symbol>&, s_str&) {
      return FromNumber(number);
    };
  };
  for (long allocations = 0;; allocations += kStep) {
    State fresh(out_, in_);
    ASSERT_EQ(ToNumber(fresh.Compute("1+2+3-4").value), 2);
    const bool runs_out = RunsOut(allocations, false, [&] {
      fresh.AddBinary({
          {"Scalar", "+", "Scalar", give(70)},
          {"Scalar", "-", "Scalar", give(80)},
          {"Symbol", "+", "Symbol", give(90)}
      });
    });
    for (const char* op : {"+", "-"}) {
      const auto& by_left = fresh.GetBinaryOperators().find(op)->second;
      const BinaryOperator& registered = by_left.find("Scalar")->second.find("Scalar")->second.body;
      s_str error;
      EXPECT_EQ(ToNumber(fresh.Compute(std::string("1+2+3").replace(3, 1, op)).value),
                ToNumber(registered(fresh.Compute("1+2").value, FromNumber(3), error)))
          << op << allocations;
    }
    if (!runs_out) break;
  }
}

TEST_F(MemoryTest, AFunctionThatCouldNotBeRegisteredIsUnknown) {
  for (long allocations = 0;; allocations += kStep) {
    const bool runs_out = RunsOut(allocations, false, [&] {
      state_.AddFunction("afunctionwithalongname", {"Scalar"},
                         [](State&, const Values&, Values& results, s_str&) -> s_bool {
                           results.PushBack(FromNumber(7));
                           return true;
                         });
    });
    const Result result = state_.Compute("afunctionwithalongname(1)");
    if (!runs_out) {
      EXPECT_EQ(ToNumber(result.value), 7);
      break;
    }
    EXPECT_EQ(result.error, "\tError : Undefined function 'afunctionwithalongname'");
    EXPECT_EQ(state_.GetFunctions().count("afunctionwithalongname"), 0U);
  }
}

// Either the earlier one with its literals, or the new one with its own.
TEST_F(MemoryTest, ATypeThatCouldNotBeReplacedIsWhole) {
  const TypeRow kSecond{"Digits", [](const s_str&) { return FromNumber(2); },
                        [](std::string_view text) -> s_bool { return text == "#2"; },
                        [](State&, const s_str&, const s_str&, s_str&) { return FromNumber(2); },
                        "#"};
  const TypeRow kFirst{"Digits", [](const s_str&) { return FromNumber(1); },
                       [](std::string_view text) -> s_bool { return text == "#1"; },
                       [](State&, const s_str&, const s_str&, s_str&) { return FromNumber(1); },
                       "#"};
  for (long allocations = 0;; allocations += kStep) {
    state_.AddType(kFirst);
    const bool runs_out = RunsOut(allocations, false, [&] { state_.AddType(kSecond); });
    EXPECT_EQ(static_cast<bool>(state_.Compute("#1")), runs_out) << allocations;
    EXPECT_EQ(static_cast<bool>(state_.Compute("#2")), !runs_out) << allocations;
    if (!runs_out) break;
  }
}

}  // namespace
}  // namespace Quarn
