// Tests of vector literals: how they are cut, what their elements may be, what is refused.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"

namespace Quarn {
namespace {

std::string Mixed(const std::string& first, const std::string& second) {
  return "\tError : Non-homogeneous Vectors are not allowed.\n\t        Trying to mix " + first +
         " with " + second;
}

struct MixedRow {
  std::string expression;
  std::string first;
  std::string second;
};

TEST(VectorLiteral, IsCutAtItsOwnCommas) {
  Session session;
  session.Type("v=<10, 20>");
  const ValueRow kRows[] = {
      {"<1,2>",                  "Vector : <1, 2>"          },
      {"< 1 , 2 >",              "Vector : <1, 2>"          },
      {"<min(1, 2), max(1, 2)>", "Vector : <1, 2>"          },
      {"<v[0], v[1]>",           "Vector : <10, 20>"        },
      {"<(1), (2)>",             "Vector : <1, 2>"          },
      {"<<1, 2>, <3, 4>>",       "Vector : <<1, 2>, <3, 4>>"},
      {"<1+1, -2, !3>",          "Vector : <2, -2, 6>"      },
      {"<1,,2>",                 "Vector : <1, 2>"          }, // empty parts are left out
      {"<1,>",                   "Vector : <1>"             },
      {"<,1>",                   "Vector : <1>"             },
      {"<,>",                    "Vector : <>"              },
      {"<>",                     "Vector : <>"              },
  };
  ExpectValues(session, kRows);
}

TEST(VectorLiteral, FailsWithItsFirstElementThatFails) {
  Session session;
  const ValueRow kRows[] = {
      {"<1, zz, yy>", "\tError : Unknown symbol 'zz'"                                 },
      {"<zz>",        "\tError : Unknown symbol 'zz'"                                 },
      {"< >",         "\tError : Empty symbol"                                        },
      {"<1, >",       "\tError : Empty symbol"                                        },
      {"<1, , 2>",    "\tError : Empty symbol"                                        },
      {"<1, (2>",     "\tError : Unterminated '('"                                    },
      {"<1)>",        "\tError : Too many closing ')'"                                },
      {"<1, [2>",     "\tError : Unterminated '['"                                    },
      {"<zz, (>",     "\tError : Unterminated '('"                                    },
      {"<1, +>",      "\tError : Operator '+' is missing its operands"                },
      {"<1>, <2>",    "\tError : Too many closing '>'"                                },
      {"<1><2>",      "\tError : Too many closing '>'"                                },
      {"<1",          "\tError : Unterminated '<'"                                    },
      {"1>",          "\tError : Too many closing '>'"                                },
      {"<1>2",        "\tError : Unable to parse expression '<1>2', no operator found"},
      {"<1, 2 3>",    "\tError : Unable to parse expression '2 3', no operator found" },
  };
  ExpectValues(session, kRows);
}

TEST(VectorLiteral, RefusesElementsOfDifferentTypes) {
  Session session;
  session.Type("a;v=<3, 4>;r&=v;s&=1;dead&=zz");
  const MixedRow kRows[] = {
      {"<1, <2, 3>>",         "Scalar",   "2-Vector" },
      {"<<2, 3>, 1>",         "2-Vector", "Scalar"   },
      {"<<1, 2>, <1, 2, 3>>", "2-Vector", "3-Vector" },
      {"<<1>, <>>",           "1-Vector", "0-Vector" },
      {"<1, 2, a, <3>>",      "Scalar",   "Symbol"   },
      {"<1, <<2>, 3>>",       "1-Vector", "Scalar"   }, // the inner one fails first
      {"<1, r>",              "Scalar",   "Vector"   }, // a reference by the type of its value
      {"<v, s>",              "2-Vector", "Scalar"   },
      {"<v, r>",              "2-Vector", "Vector"   }, // which does not tell the length
      {"<1, dead>",           "Scalar",   "Reference"},
      {"<dead, 1>",           "Scalar",   "Reference"},
      {"<r, 1, <2>>",         "Scalar",   "1-Vector" }, // references are looked at last
      {"<1, dead, <2>>",      "Scalar",   "1-Vector" },
  };
  for (const MixedRow& row : kRows) {
    EXPECT_EQ(session.Evaluate(row.expression), Mixed(row.first, row.second)) << row.expression;
  }
}

TEST(VectorLiteral, OfReferencesAloneHasNoTypeToAgreeWith) {
  Session session;
  session.Type("s&=1;v=<1>;dead&=zz");
  const MixedRow kRows[] = {
      {"<s>",     "", "Scalar"   },
      {"<s, s>",  "", "Scalar"   },
      {"<&v, s>", "", "Vector"   },
      {"<dead>",  "", "Reference"},
      {"<_>",     "", "Reference"},
      {"<&>",     "", "Reference"},
  };
  session.GetState().SetLastResult({});
  for (const MixedRow& row : kRows) {
    EXPECT_EQ(session.Evaluate(row.expression), Mixed(row.first, row.second)) << row.expression;
  }
}

TEST(VectorLiteral, KeepsReferencesAsReferences) {
  Session session;
  session.Type("x=1;v=<0, &x>");
  EXPECT_EQ(session.Type("?v"), "\tVector : v = <0, 1>\n");
  session.Type("x=5");
  EXPECT_EQ(session.Type("?v;v[1]+1"), "\tVector : v = <0, 5>\n\tScalar : 6\n");
  session.Type("x=<7>");
  EXPECT_EQ(session.Type("?v"), "\tVector : v = <0, <7>>\n");
  session.Type("~x");
  EXPECT_EQ(session.Type("?v"), "\tVector : v = <0, x>\n");
}

TEST(VectorLiteral, HoldsCopiesOfSymbols) {
  Session session;
  session.Type("x=1;v=<x, x>;x=2");
  EXPECT_EQ(session.Type("?v"), "\tVector : v = <1, 1>\n");
  session.Type("a;w=<a>");
  EXPECT_EQ(session.Type("?w"), "\tVector : w = <a>\n");
}

TEST(VectorLiteral, MayHoldAnyOneType) {
  Session session;
  Word::Register(session.GetState());
  EXPECT_EQ(session.Evaluate("<'a, 'b+'c>"), "Vector : <a, bc>");
  EXPECT_EQ(session.Evaluate("<'a, 1>"), Mixed("Word", "Scalar"));
  EXPECT_EQ(session.Evaluate("<'a>+<'b>"), "Vector : <ab>");
}

TEST(VectorLiteral, IsAnyTextBetweenAngleBrackets) {
  Session session;
  const TypeRow& type = session.GetState().GetTypes().find(std::string_view("Vector"))->second;
  for (const char* text : {"<>", "<1>", "<a><b>", "<(>"}) {
    EXPECT_TRUE(type.is_literal(text)) << text;
  }
  for (const char* text : {"", "<", ">", "1", "<1> ", " <1>", "a<1>", "<1>a"}) {
    EXPECT_FALSE(type.is_literal(text)) << text;
  }
}

TEST(VectorLiteral, IsBuiltFromATextAsFromALine) {
  Session session;
  s_str error;
  EXPECT_EQ(Vector::CreateFrom(session.GetState(), "v", "<1, <2>[0]>", error)->ToString().Get(),
            "v = <1, 2>");
  EXPECT_EQ(error.Get(), "");
  EXPECT_FALSE(Vector::CreateFrom(session.GetState(), "v", "<1, <2>>", error));
  EXPECT_EQ(error.Get(), Mixed("Scalar", "1-Vector"));
  EXPECT_FALSE(Vector::CreateFrom(session.GetState(), "v", "<1, zz>", error));
  EXPECT_EQ(error.Get(), Mixed("Scalar", "1-Vector") + "\n\tError : Unknown symbol 'zz'");
  EXPECT_FALSE(Vector::CreateFrom(session.GetState(), "v", "<(>", error));
  EXPECT_TRUE(error.EndsWith("\n\tError : Unterminated '('"));
}

TEST(VectorLiteral, ATextThatIsNoneIsRefused) {
  Session session;
  for (const char* text :
       {"", "<", ">", "1", "a<1>b", "<1", "1>", " <1>", "<1> ", "((", "<(", ")>("}) {
    s_str error;
    EXPECT_FALSE(Vector::CreateFrom(session.GetState(), "v", text, error)) << text;
    EXPECT_EQ(error.Get(), std::string("\tError : Unable to parse expression '") + text +
                               "', no operator found");
  }
}

}  // namespace
}  // namespace Quarn
