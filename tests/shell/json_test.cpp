// Tests of tools/json: what is written is JSON, whatever it is made of.
#include "tools/json.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/session.h"

namespace Quarn {
namespace {

TEST(Json, HasEveryTextAsAString) {
  const struct {
    std::string text;
    const char* json;
  } kRows[] = {
      {"",                       "\"\""            },
      {"<1, 2>",                 "\"<1, 2>\""      },
      {"a\"b\\c/",               "\"a\\\"b\\\\c/\""},
      {std::string("\0\n\t\x1f", 4),                 R"("\u0000\u000a\u0009\u001f")"},
      {"~\x7f",                        "\"~\\u007f\""                                   },
      {"\xc3\xa9 \xe2\x82\xac",                        "\"\xc3\xa9 \xe2\x82\xac\""}, // two bytes, three bytes
      {"\xf0\x9f\x98\x80",                        "\"\xf0\x9f\x98\x80\""                                        },
 // no UTF-8: what goes on alone, what lacks bytes, long forms, a surrogate, too large, never a
  // byte
      {"\x80"
       "a",                        R"("\ufffda")"},
      {"\xc3",                        R"("\ufffd")"                                            },
      {"\xc3(",                        R"("\ufffd(")"},
      {"\xe2\x82",                        R"("\ufffd\ufffd")"                                         },
      {"\xc0\xaf",                        R"("\ufffd\ufffd")"},
      {"\xe0\x9f\xbf",                        R"("\ufffd\ufffd\ufffd")"                                     },
      {"\xed\xa0\x80",                        R"("\ufffd\ufffd\ufffd")"},
      {"\xf4\x90\x80\x80",                        R"("\ufffd\ufffd\ufffd\ufffd")"                                 },
      {"\xff",                        R"("\ufffd")"   },
  };
  for (const auto& row : kRows) {
    std::string json;
    AppendJsonString(json, row.text);
    EXPECT_EQ(json, row.json);
  }
}

TEST(Json, HasNumbersThatReadBackTheSame) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const struct {
    double number;
    const char* json;
  } kRows[] = {
      {3,                     "3"                  },
      {-0.5,                  "-0.5"               },
      {0.1 + 0.2,             "0.30000000000000004"},
      {1e300,                 "1e+300"             },
      {5e-324,                "5e-324"             },
      {kInfinity,             "null"               },
      {-kInfinity,            "null"               },
      {kInfinity - kInfinity, "null"               },
  };
  for (const auto& row : kRows) {
    std::string json;
    AppendJsonNumber(json, row.number);
    EXPECT_EQ(json, row.json);
  }
}

std::string ToJson(const s_refptr<Symbol>& value) {
  std::string json;
  AppendJsonValue(json, value);
  return json;
}

TEST(Json, HasListsOfNumbers) {
  const struct {
    const char* expression;
    const char* json;
  } kRows[] = {
      {"1/4",        "0.25"     },
      {"<1, 2.5>",   "[1,2.5]"  },
      {"<<1>, <2>>", "[[1],[2]]"},
      {"<1, &x>",    "[1,7]"    }, // what a reference stands for
      {"&x",         "7"        },
      {"<1/0, 1>",   "[null,1]" },
      {"unset",      "[]"       },
 // neither a number nor a list
      {"&nothing",   "null"     },
      {"&ring",      "null"     },
      {"abstract",   "null"     },
  };
  Session session;
  session.Type("x=7;ring&=ring+1;abstract;unset:Vector");
  for (const auto& row : kRows) EXPECT_EQ(ToJson(session.Parse(row.expression)), row.json);
  EXPECT_EQ(ToJson({}), "null");
}

TEST(Json, HasListsNestedToAnyDepth) {
  constexpr std::size_t kDepth = 300000;
  Session session;
  const std::string text = std::string(kDepth, '<') + "1" + std::string(kDepth, '>');
  EXPECT_EQ(ToJson(session.Parse(text)), std::string(kDepth, '[') + "1" + std::string(kDepth, ']'));
}

}  // namespace
}  // namespace Quarn
