// Tests of tools/report: what a command did, read off what it printed.
#include "tools/report.h"

#include <gtest/gtest.h>

#include "tests/support/session.h"

namespace Quarn {
namespace {

// "kind|type|name|text|message|position+length", without what is empty at its end.
std::string Dump(const Report& report) {
  std::string dump = std::string(GetKindName(report.kind)) + '|' + report.type + '|' + report.name +
                     '|' + report.text + '|' + report.message + '|';
  if (report.place != Place()) {
    dump += std::to_string(report.place.position) + '+' + std::to_string(report.place.length);
  }
  return dump.substr(0, dump.find_last_not_of('|') + 1);
}

// Of the last command, in a session that answers "y" once.
std::string DumpOf(const std::string& before, const std::string& command) {
  Session session("y\n");
  session.Type(before);
  const std::string output = session.Type(command);
  return Dump(Describe(session.GetState(), command, output));
}

TEST(Report, TellsWhatACommandDid) {
  const struct {
    const char* before;
    const char* command;
    const char* dump;
  } kRows[] = {
      {"",           "1+2",         "value|Scalar||3"                                  },
      {"",           "x=1+2",       "definition|Scalar|x|3"                            },
      {"",           " x = <1, 2>", "definition|Vector|x|<1, 2>"                       },
      {"x=1",        "r &=x+1",     "definition|Reference|r|2"                         },
      {"x=1;r&=x+1", "r",           "value|Scalar||2"                                  },
      {"",           "x:Scalar",    "definition|Scalar|x|nan"                          },
      {"",           "r:Reference", "definition|Reference|r|null"                      },
      {"",           "x",           "definition|Symbol|x|x"                            },
      {"x",          "x",           "value|Symbol||x"                                  },
      {"",           "=5",          "definition|Scalar||5"                             },
      {"",           "x=min(1, 2)", "definition|Scalar|x|1"                            },
      {"",           "r&=r = 5",    "definition|Reference|r|r = 5"                     }, // once
      {"x=1",        "?x",          "query|Scalar|x|1"                                 },
      {"4",          "?_",          "query|Scalar|_|4"                                 },
      {"x=1",        "~x",          "deletion||x||Scalar 'x' erased"                   },
      {"x=1",        "~",           "deletion||||All symbols erased"                   },
      {"x=1;~",      "~",           "deletion||||All symbols erased"                   }, // at the end
      {"",           "~x",          "nothing||x||'x' is undefined"                     },
      {"",           "x:=3",        "nothing"                                          },
      {"a",          "x=a",         "warning||||Warning : 'Symbol=Symbol' does nothing"},
      {"",           "1+zz",        "error||||Error : Unknown symbol 'zz'|2+2"         },
      {"",           "x=zz",        "error||||Error : Unknown symbol 'zz'|2+2"         },
      {"",           "?zz",         "error||||Error : Unknown symbol 'zz'|1+2"         },
      {"",           "~x=1",
       "error||||Error : Only alphanumeric names are allowed for "
       "symbols, in '~x'|0+2"                                                          },
      {"",           "x:Nothing",   "error||||Error : Unknown type 'Nothing'|2+7"      },
      {"",           "<1>+2",
       "error||||Error : No match for operator 'Vector + Scalar' in : "
       "<1> + 2|3+1"                                                                   },
  };
  for (const auto& row : kRows) EXPECT_EQ(DumpOf(row.before, row.command), row.dump) << row.command;
}

TEST(Report, OfADeclinedQuestionIsNothing) {
  Session session("n\n");
  const std::string output = session.Type("~");
  EXPECT_EQ(Dump(Describe(session.GetState(), "~", output)), "nothing");
}

TEST(Report, OfTheHelpIsItsText) {
  Session session;
  const std::string output = session.Type("?");
  const Report report = Describe(session.GetState(), "?", output);
  EXPECT_EQ(GetKindName(report.kind), "help");
  EXPECT_EQ(report.text, output);
}

TEST(IsError, LooksAtTheStartsOfLines) {
  const struct {
    const char* output;
    bool is_error;
  } kRows[] = {
      {"\tError : Empty symbol\n",          true },
      {"\tNoted\n\tError : Empty symbol\n", true },
      {"",                                  false},
      {"\tError :",                         false},
      {"\tSymbol : Error : \n",             false},
      {"\t\tError : \n",                    false},
      {"\tWarning : 'x'\n",                 false},
      {"\t'x' is undefined\n",              false},
  };
  for (const auto& row : kRows) EXPECT_EQ(IsError(row.output), row.is_error) << row.output;
}

TEST(JoinLines, MakesOneLineOfAMessage) {
  EXPECT_EQ(JoinLines("\tError : One\n\t        \tand two\n"), "Error : One and two");
  EXPECT_EQ(JoinLines(""), "");
  EXPECT_EQ(JoinLines("\n\t \n"), "");
}

}  // namespace
}  // namespace Quarn
