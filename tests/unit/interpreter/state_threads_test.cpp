// Tests of several States on several threads, which share nothing but the C library's rand. Worth
// most in a build that watches for data races.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <thread>

#include "tests/support/sanitizers.h"
#include "tests/support/session.h"

namespace Quarn {
namespace {

// What a session prints that uses everything but rand.
std::string RunSession() {
  const char* const kLines[] = {
      "x=2.5;v=<1, 2, 3>;w=<<1, 2>, <3, 4>>;r&=x+1;n&=zz;a;null:Reference",
      "x+1*2/3-4;(1+2)*(3-(4));-v+v*2;v^v;v[1];w[1][0];+x;!5;r*2;<1, &x>;r;n;_;_+1",
      "min(1,2);max(r,2);round(2.5);round_up(x);round_down(x);1e400;1e20;0.1;1/0;0/0;1.5e-310",
      "1+;2 3;4!;f(1);min(1);v[];[1];(1;1);<1;<1, v>;v+<1>;a b=1;_=3;x:Foo;zz=zz;?zz;~zz",
      kSanitized ? "" : "ring&=ring+1;ring+1",  // more calls than the thread sanitizer can follow
      "?x;?;~x;~",
      "1+1",
  };
  Session session;
  std::string output;
  for (const char* line : kLines) output += session.Type(line);
  return output;
}

TEST(StateOnThreads, DoesNotDisturbAnother) {
  const std::string expected = RunSession();
  constexpr int kRounds = 5;
  std::array<std::string, 3> differing;
  std::array<std::thread, 3> threads;
  for (std::size_t i = 0; i < threads.size(); ++i) {
    threads[i] = std::thread([&expected, &output = differing[i]] {
      for (int round = 0; round < kRounds && output.empty(); ++round) {
        std::string printed = RunSession();
        if (printed != expected) output = printed;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::string& output : differing) EXPECT_EQ(output, "");
}

// A State may be made on one thread and used, then destroyed, on another, one at a time.
TEST(StateOnThreads, MayMoveToAnotherThread) {
  auto session = std::make_unique<Session>();
  EXPECT_EQ(session->Type("v=<1, 2>"), "\tDefining Vector : v = <1, 2>\n");
  std::thread([&session] {
    EXPECT_EQ(session->Type("v+v"), "\tVector : <2, 4>\n");
    session.reset();
  }).join();
}

}  // namespace
}  // namespace Quarn
