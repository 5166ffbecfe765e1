// Tests of tools/limits_option, and of --limit.
#include "tools/limits_option.h"

#include <gtest/gtest.h>

#include "tests/shell/shell.h"

namespace Quarn {
namespace {

std::string Change(std::string_view changes) {
  const std::optional<Limits> limits = ChangeLimits({}, changes);
  return limits ? FormatLimits(*limits) : "refused";
}

TEST(LimitsOption, ChangesWhatItNames) {
  EXPECT_EQ(Change(""), "steps=none\nmemory=none\noutput=none\nnesting=none\nfinite=no\n");
  EXPECT_EQ(Change("steps=5,memory=2G,output=3K,nesting=1M,finite=yes"),
            "steps=5\nmemory=2000000000\noutput=3000\nnesting=1000000\nfinite=yes\n");
  EXPECT_EQ(Change("steps=5,steps=none,finite=yes,finite=no"), Change(""));
}

TEST(LimitsOption, RefusesWhatMakesNoSense) {
  for (const char* changes : {"steps", "steps=", "=5", "steps=x", "steps=-1", "steps=5k",
                              "steps=1T", "finite=maybe", "speed=1", "steps=5,,memory=1",
                              "steps=99999999999999999999", "steps=18446744073709551615K"}) {
    EXPECT_EQ(Change(changes), "refused") << changes;
  }
}

TEST(LimitsOption, IsObeyedByScripts) {
  const struct {
    const char* arguments;
    const char* output;
  } kRows[] = {
      {"--limit=finite=yes -e '!2.5;1'",
       "\tError : The factorial of 2.5 never ends\n\tScalar : 1\n"        },
      {"--limit=steps=3 -e '1+1+1+1;1'",
       "\tError : Evaluation takes too many steps\n\tScalar : 1\n"        },
      {"--limit=steps=3 --limit=steps=none -e '1+1+1+1'", "\tScalar : 4\n"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(RunWithMessages(std::string(row.arguments) + " 2>/dev/null").output, row.output);
  }
  const Outcome outcome = RunWithMessages("--limit=speed=1 -e 1");
  EXPECT_EQ(outcome.output, "mirlow-shell: no limits: 'speed=1'\nTry 'mirlow-shell --help'.\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST(LimitsOption, ShowsTheLimitsOfASession) {
  EXPECT_EQ(RunShell({"--limit"}).output, FormatLimits(GetSessionLimits()));
  EXPECT_TRUE(GetSessionLimits().ends_the_endless);
}

}  // namespace
}  // namespace Quarn
