// Tests of the order of evaluation: what is evaluated, how often, and what no more.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"

namespace Quarn {
namespace {

// tap(n) gives n and notes it down.
class EvaluationOrder : public testing::Test {
 protected:
  EvaluationOrder() { RegisterTap(session_.GetState(), log_); }

  // What is noted while a line is carried out.
  std::string LogOf(const std::string& line) {
    log_.clear();
    session_.Type(line);
    return log_;
  }
  // The same while an expression is evaluated and not printed.
  std::string LogOfParsing(const std::string& expression, const std::string& name = "") {
    log_.clear();
    session_.Parse(expression, name);
    return log_;
  }

  std::string log_;
  Session session_;
};

TEST_F(EvaluationOrder, IsFromLeftToRight) {
  const ValueRow kRows[] = {
      {"tap(1)+tap(2)*tap(3)",          "1 2 3 "  },
      {"tap(1)*tap(2)+tap(3)",          "1 2 3 "  },
      {"tap(1)-(tap(2)-tap(3))-tap(4)", "1 2 3 4 "},
      {"-tap(1)*-tap(2)",               "1 "      }, // "-tap(1)*" is the left side
      {"min(tap(1), tap(2))",           "1 2 "    },
      {"<tap(1), tap(2), <tap(3)>>",    "1 2 3 "  },
      {"tap(tap(1)+tap(2))",            "1 2 3 "  },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(LogOfParsing(row.expression), row.value) << row.expression;
  }
  EXPECT_EQ(LogOfParsing("min(tap(min(tap(1), tap(2))), tap(3))"), "1 2 1 3 ");
}

TEST_F(EvaluationOrder, EndsAtTheFirstFailure) {
  const ValueRow kRows[] = {
      {"zz+tap(1)",                 ""  },
      {"tap(1)+zz+tap(2)",          "1 "},
      {"tap(1)+(2!)+tap(2)",        "1 "},
      {"min(tap(1), zz, tap(2))",   "1 "},
      {"min(zz, tap(1))",           ""  },
      {"nothing(tap(1))",           ""  }, // the function is looked for first
      {"<tap(1), zz, tap(2)>",      "1 "},
      {"<tap(1), <1>, tap(2)>",     "1 "}, // a type that does not fit is a failure too
      {"(tap(1)+tap(2)",            ""  }, // brackets are matched before anything else
      {"tap(1)+tap(2))",            ""  },
      {"tap(1)+(zz+tap(2))+tap(3)", "1 "},
      {"+-tap(1)",                  ""  },
      {"tap(1)*-tap(2)",            "1 "},
      {"tap(1)/<1>+tap(2)",         "1 "},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(LogOfParsing(row.expression), row.value) << row.expression;
  }
}

TEST_F(EvaluationOrder, AnIndexComesBehindItsObject) {
  session_.Type("o&=<tap(1), 5>;i&=tap(0);none&=tap(7)+zz");
  EXPECT_EQ(LogOfParsing("o[i]"), "1 0 ");
  EXPECT_EQ(LogOfParsing("o[zz]"), "");
  EXPECT_EQ(LogOfParsing("zz[i]"), "");
}

TEST_F(EvaluationOrder, AReferenceIsEvaluatedOnceForEachUse) {
  session_.Type("r&=tap(1)");
  const ValueRow kRows[] = {
      {"r",         ""      }, // a copy of the reference, no more
      {"(r)",       ""      },
      {"&tap(1)",   ""      },
      {"-r",        "1 "    },
      {"r+2",       "1 "    },
      {"2+r",       "1 "    },
      {"r+r",       "1 1 "  },
      {"r+r*r",     "1 1 1 "},
      {"min(r, r)", "1 1 "  },
      {"<1, r>",    "1 "    }, // for its type
      {"<r, 1, r>", "1 1 "  },
      {"<5, 7>[r]", "1 "    },
  };
  for (const auto& row : kRows)
    EXPECT_EQ(LogOfParsing(row.expression), row.value) << row.expression;
}

TEST_F(EvaluationOrder, PrintingAsksForTheTypeAndThenForTheText) {
  session_.Type("r&=tap(1)");
  const ValueRow kRows[] = {
      {"r",         "1 1 "}, // type, text
      {"?r",        "1 1 "},
      {"&tap(2)",   "2 2 "},
      {"r+1",       "1 "  }, // the value, which is a number
      {"s&=tap(3)", "3 "  }, // declared as Reference: the text alone
      {"s=&tap(3)", "3 "  },
      {"s=r",       "1 1 "}, // might be abstract; then the text
      {"<1, r>",    "1 1 "}, // while it is made; then the text
      {"x=<1, r>",  "1 1 "},
      {"~r",        "1 "  }, // the type alone
  };
  for (const auto& row : kRows) EXPECT_EQ(LogOf(row.expression), row.value) << row.expression;
}

TEST_F(EvaluationOrder, AnUnnamedLookUpAsksNothing) {
  session_.Type("r&=tap(1)");
  EXPECT_EQ(LogOfParsing("r"), "");
  EXPECT_EQ(LogOfParsing("r", "x"), "1 ");
}

TEST_F(EvaluationOrder, AFailingMatchAsksForTypesAndThenForTexts) {
  session_.Type("l&=tap(1);r&=tap(2);v&=<tap(3)>;a");
  const ValueRow kRows[] = {
      {"l^r", "1 1 2 1 2 "  }, // resolved and not found; type type, text text
      {"l+v", "1 3 1 3 1 3 "}, // the left is found, the right is not
      {"a+r", "2 2 "        }, // the right is not resolved, only described
      {"l+a", "1 1 1 "      },
      {"!v",  "3 3 3 "      },
      {"l!",  "1 1 "        }, // there is no such operator for any type
  };
  for (const auto& row : kRows)
    EXPECT_EQ(LogOfParsing(row.expression), row.value) << row.expression;
}

TEST_F(EvaluationOrder, ADeferralAsksForTheLeftTextAndThenForTheRight) {
  session_.Type("dead&=tap(1)+zz;r&=tap(2)");
  EXPECT_EQ(LogOfParsing("dead+r"), "1 1 2 ");
  EXPECT_EQ(LogOfParsing("r+dead"), "2 1 2 1 ");
}

TEST_F(EvaluationOrder, ArgumentsAreResolvedWhenAllAreThere) {
  session_.Type("r&=tap(1)");
  EXPECT_EQ(LogOfParsing("min(r, tap(2))"), "2 1 ");
  EXPECT_EQ(LogOfParsing("min(r, zz)"), "");
}

TEST_F(EvaluationOrder, AChainOfReferencesCostsItsLength) {
  session_.Type("r0&=tap(1)+0");
  constexpr int kLength = 300;
  for (int i = 1; i <= kLength; ++i) {
    const std::string name = "r" + std::to_string(i);
    session_.GetState().ProcessLine(name + "&=r" + std::to_string(i - 1));
  }
  EXPECT_EQ(LogOfParsing("r300+0"), "1 ");
  EXPECT_EQ(LogOf("r300"), "1 1 ");
  EXPECT_EQ(LogOf("min(r300, 1)"), "1 ");
}

TEST_F(EvaluationOrder, EachLinkOfAChainIsEvaluatedOnce) {
  session_.Type("r0&=tap(0)");
  constexpr int kLength = 20;
  std::string expected = "20 ";
  for (int i = 1; i <= kLength; ++i) {
    const std::string number = std::to_string(i);
    session_.GetState().ProcessLine("r" + number + "&=max(tap(" + number + "), r" +
                                    std::to_string(i - 1) + ")");
    if (i > 1) expected += std::to_string(kLength - i + 1) + " ";
  }
  EXPECT_EQ(LogOfParsing("-r20"), expected + "0 ");
}

TEST_F(EvaluationOrder, ForeignValuesAreAskedTheSame) {
  std::string asked;
  const auto make = [&](const char* label) {
    return s_refptr<Symbol>(new Probe(asked, label, "Probe"));
  };
  s_str error;
  EXPECT_FALSE(session_.GetState().ApplyBinaryOperator("^", make("a"), make("b"), error));
  const std::string described = "type(a) type(b) text(a) text(b) ";
  EXPECT_TRUE(asked.ends_with(described)) << asked;
  EXPECT_EQ(asked.find("text"), asked.size() - std::string("text(a) text(b) ").size()) << asked;
}

}  // namespace
}  // namespace Quarn
