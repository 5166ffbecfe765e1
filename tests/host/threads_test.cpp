// Tests of States on several threads, one each: they do not disturb each other. The thread
// sanitizer has its say about it.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/support/foreign_types.h"
#include "tests/support/sanitizers.h"
#include "tests/support/session.h"
#include "types/value.h"

namespace Quarn {
namespace {

constexpr int kThreads = 6;

template <class Work>
void OnThreads(Work work) {
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i);
  for (std::thread& thread : threads) thread.join();
}

// A session with a number of its own, and whether it went as it should.
bool Calculate(int number) {
  Session session;
  Word::Register(session.GetState());
  const std::string own = std::to_string(number);
  const std::string twice = std::to_string(2 * number);
  const std::string expected = "\tDefining Scalar : x = " + own + "\n\tDefining Vector : v = <" +
                               own + ", " + own + ">\n\tDefining Reference : r = <" + twice + ", " +
                               twice + ">\n\tWord : a" + own + "\n";
  for (int i = 0; i < 20; ++i) {
    if (session.Type("x=" + own + ";v=<x, x>;r&=v+v;'a" + own) != expected) return false;
    // The one thing that they share.
    const auto drawn = ToNumber(session.GetState().Compute("rand(1, 2)").value);
    if (!drawn || *drawn < 1 || *drawn > 2) return false;
    session.Type("?;~;min(x, 2)");
  }
  session.Type("q&=q+1");
  return session.Type("q*2") == "\tError : Reference 'q+1' leads back to itself\n";
}

TEST(Threads, EachHasAStateOfItsOwn) {
  std::vector<int> good(kThreads);
  // Threads that come later take over what those before them left behind.
  for (int round = 0; round < 2; ++round) {
    OnThreads([&](int i) { good[static_cast<std::size_t>(i)] += Calculate(i + 1) ? 1 : 0; });
  }
  EXPECT_EQ(good, std::vector<int>(kThreads, 2));
}

TEST(Threads, AStateMayMoveToAnotherThread) {
  Session session;
  session.Type("x=1;v=<1, 2>");
  for (int i = 0; i < 3; ++i) {
    std::thread([&] { session.Type("x=x+1;v=v+v"); }).join();
  }
  EXPECT_EQ(session.Type("x;v"), "\tScalar : 4\n\tVector : <8, 16>\n");
}

}  // namespace
}  // namespace Quarn
