// Tests of tools/completion: what is offered where.
#include "tools/completion.h"

#include <gtest/gtest.h>

#include <sstream>

#include "interpreter/state.h"
#include "types/vector.h"

namespace Quarn {
namespace {

class Completing : public testing::Test {
 protected:
  Completing() {
    Vector::Register(state_);
    state_.ProcessLine("radius=2;round1=1;speed=<1, 2>;s2&=speed");
  }

  // "start: candidates".
  std::string Dump(std::string_view before_cursor) {
    const Completion completion = Complete(state_, before_cursor);
    std::string dump = std::to_string(completion.start) + ":";
    for (const std::string& candidate : completion.candidates) dump += " " + candidate;
    return dump;
  }

  std::ostringstream out_;
  std::istringstream in_;
  State state_{out_, in_};
};

TEST_F(Completing, OffersWhatTheStateKnows) {
  const struct {
    const char* before_cursor;
    const char* dump;
  } kRows[] = {
      {"ra",          "0: radius rand("                       },
      {"1+ra",        "2: radius rand("                       },
      {"x = sp",      "4: speed"                              },
      {"<1, sp",      "4: speed"                              },
      {"speed[s",     "6: s2 speed"                           },
      {"min(m",       "4: max( min("                          },
      {"round",       "0: round( round1 round_down( round_up("},
      {"round_",      "0: round_down( round_up("              },
      {"1;sp",        "2: speed"                              },
      {"nothing",     "0:"                                    },
      {"3 s",         "2: s2 speed"                           },
 // types
      {"x:",          "2: Reference Scalar Symbol Vector"     },
      {"x: S",        "3: Scalar Symbol"                      },
      {"x:Scalar;sp", "9: speed"                              },
      {"x:s",         "2:"                                    },
 // symbols alone
      {"?ra",         "1: radius"                             },
      {"~",           "1: _ radius round1 s2 speed"           },
      {"1;~ra",       "3: radius"                             },
  };
  for (const auto& row : kRows) EXPECT_EQ(Dump(row.before_cursor), row.dump) << row.before_cursor;
}

TEST_F(Completing, FollowsTheStateAsItChanges) {
  EXPECT_EQ(Dump("spee"), "0: speed");
  state_.ProcessLine("speedOfLight=299792458");
  EXPECT_EQ(Dump("spee"), "0: speed speedOfLight");
  state_.ProcessLine("~speed");
  EXPECT_EQ(Dump("spee"), "0: speedOfLight");
}

TEST_F(Completing, LeavesTheEmptyNameOut) {
  state_.ProcessLine("=5");
  EXPECT_EQ(Dump("?"), "1: _ radius round1 s2 speed");
}

TEST_F(Completing, FindsHowToCallAFunction) {
  const struct {
    const char* before_cursor;
    const char* signatures;
  } kRows[] = {
      {"rand(",          "rand()|rand(Scalar, Scalar)|"},
      {"x=1+round(",     "round(Scalar)|"              },
      {"min(1, ",        "min(Scalar, Scalar)|"        },
      {"1;min(",         "min(Scalar, Scalar)|"        },
      {"min(max(1, 2),", "min(Scalar, Scalar)|"        }, // the inner one is closed
      {"min(max(",       "max(Scalar, Scalar)|"        },
      {"min(1",          ""                            }, // a word is before the cursor
      {"min(ra",         ""                            },
      {"min(1, 2)",      ""                            },
      {"min",            ""                            },
      {"(",              ""                            },
      {"speed(",         ""                            },
      {"min(;",          ""                            },
      {"",               ""                            },
  };
  for (const auto& row : kRows) {
    std::string dump;
    for (const std::string& signature : FindSignatures(state_, row.before_cursor))
      dump += signature + "|";
    EXPECT_EQ(dump, row.signatures) << row.before_cursor;
  }
}

TEST(LongestCommonPrefix, IsWhatAllBeginWith) {
  EXPECT_EQ(LongestCommonPrefix({}), "");
  EXPECT_EQ(LongestCommonPrefix({"speed"}), "speed");
  EXPECT_EQ(LongestCommonPrefix({"round(", "round_down(", "round_up("}), "round");
  EXPECT_EQ(LongestCommonPrefix({"speed", "speedOfLight"}), "speed");
  EXPECT_EQ(LongestCommonPrefix({"max(", "pi"}), "");
}

}  // namespace
}  // namespace Quarn
