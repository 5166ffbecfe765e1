// Tests of command lines: queries, deletions, the last result, and results that bear a name.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/dump.h"
#include "tests/support/session.h"
#include "types/scalar.h"

namespace Quarn {
namespace {

const char kQuestion[] =
    "\tWarning : This command will erase all symbols.\n"
    "\t          Are you sure ? ([y|Enter]/n) ";
const char kErased[] = "\tAll symbols erased\n";
const char kNull[] = "\tReference : null\n";

TEST(Query, PrintsTheSymbolUnderItsName) {
  const LinesRow kRows[] = {
      {"x=1\n?x",      "\tScalar : x = 1\n"              },
      {"v=<1, 2>\n?v", "\tVector : v = <1, 2>\n"         },
      {"ab\n?ab",      "\tSymbol : ab\n"                 },
      {"r&=1+1\n?r",   "\tScalar : r = 2\n"              },
      {"r&=zz\n?r",    "\tReference : r = zz\n"          },
      {"?_",           kNull                             },
      {"3\n?_",        "\tScalar : 3\n"                  },
      {"x=3\n?_",      "\tScalar : x = 3\n"              }, // x itself
      {"?zz",          "\tError : Unknown symbol 'zz'\n" },
      {"x=1\n? x",     "\tError : Unknown symbol ' x'\n" },
      {"x=1\n?x ",     "\tError : Unknown symbol 'x '\n" },
      {"x=1\n?x+1",    "\tError : Unknown symbol 'x+1'\n"},
      {"? ",           "\tError : Unknown symbol ' '\n"  },
      {"??",           "\tError : Unknown symbol '?'\n"  },
  };
  ExpectOutput(kRows);
}

TEST(Definition, TakesANumberThatAHostHasLookedAt) {
  Session session;
  session.Type("y=2");
  EXPECT_EQ(session.GetState().GetSymbol("y")->ToString(), "y = 2");
  EXPECT_EQ(session.Type("x=y"), "\tDefining Scalar : x = 2\n");
}

TEST(LastResult, IsForgottenByAQueryThatSucceedsAndKeptByOneThatFails) {
  const LinesRow kRows[] = {
      {"x=1\n5\n?x\n_", kNull           },
      {"5\n?_\n_",      kNull           },
      {"5\n?zz\n_",     "\tScalar : 5\n"},
      {"5\n?\n_",       kNull           },
  };
  ExpectOutput(kRows);
}

TEST(LastResult, IsForgottenByEveryDeletion) {
  const LinesRow kRows[] = {
      {"x=1\n5\n~x\n_", kNull},
      {"5\n~zz\n_",     kNull},
      {"5\n~_\n_",      kNull},
      {"5\n~\n_",       kNull},
  };
  ExpectOutput(kRows);
}

TEST(LastResult, IsWhatWasDefinedOrPrinted) {
  const LinesRow kRows[] = {
      {"1+2\n_*2",     "\tScalar : 6\n"                               },
      {"x=4\n_",       "\tScalar : 4\n"                               },
      {"x=4\n_=5\n_",  "\tScalar : 4\n"                               },
      {"x:Scalar\n_",  "\tScalar : nan\n"                             },
      {"<1, 2>\n_+_",  "\tVector : <2, 4>\n"                          },
      {"5\na=<2, &_>", "\tDefining Vector : a = <2, 5>\n"             }, // shown before it changes
      {"5\nzz+1;_",    "\tError : Unknown symbol 'zz'\n\tScalar : 5\n"},
      {"5\n// 6\n_",   "\tScalar : 5\n"                               },
      {"5\nx:=6\n_",   "\tScalar : 5\n"                               },
  };
  ExpectOutput(kRows);
}

TEST(Deletion, ErasesOneSymbol) {
  const LinesRow kRows[] = {
      {"x=1\n~x",         "\tScalar 'x' erased\n"         },
      {"x=1\n~x\n?x",     "\tError : Unknown symbol 'x'\n"},
      {"v:Vector\n~v",    "\tVector 'v' erased\n"         },
      {"ab\n~ab",         "\tSymbol 'ab' erased\n"        },
      {"r&=1\n~r",        "\tScalar 'r' erased\n"         }, // the type of its value
      {"r&=zz\n~r",       "\tReference 'r' erased\n"      },
      {"~_",              "\tReference '_' erased\n"      },
      {"5\n~_",           "\tScalar '_' erased\n"         },
      {"~zz",             "\t'zz' is undefined\n"         },
      {"x=1\n~ x",        "\t' x' is undefined\n"         }, // a name with a blank
      {"x=1\n~x ",        "\t'x ' is undefined\n"         },
      {"x=1\n~ x\n?x",    "\tScalar : x = 1\n"            },
      {"x=1\n~~x",        "\t'~x' is undefined\n"         },
      {"x=1;y=2\n~x\n?y", "\tScalar : y = 2\n"            },
  };
  ExpectOutput(kRows);
}

TEST(DeletionOfAll, IsDoneAtYesAndEnter) {
  for (const char* answer : {"\n", "y\n", "Y\n", "", "y"}) {
    Session session(answer);
    session.Type("x=1;v=<1>;5");
    EXPECT_EQ(session.Type("~"), std::string(kQuestion) + kErased) << answer;
    EXPECT_EQ(Dump(session.GetState().GetSymbolNames()), "_|") << answer;
    EXPECT_EQ(session.Type("_"), kNull) << answer;
  }
}

TEST(DeletionOfAll, IsNotDoneAtAnythingElse) {
  for (const char* answer : {"n\n", "N\n", "yes\n", " y\n", "y \n", "\t\n", "no", "y\r\n"}) {
    Session session(answer);
    session.Type("x=1;5");
    EXPECT_EQ(session.Type("~"), kQuestion) << answer;
    EXPECT_EQ(session.Type("?x"), "\tScalar : x = 1\n") << answer;
    EXPECT_EQ(Dump(session.GetState().GetSymbolNames()), "_|x|") << answer;
  }
}

TEST(DeletionOfAll, ReadsOneLineForEachQuestion) {
  Session session("n\ny\nn\n");
  EXPECT_EQ(session.Type("x=1;~;~;x=2;~;?x"),
            std::string("\tDefining Scalar : x = 1\n") + kQuestion + kQuestion + kErased +
                "\tDefining Scalar : x = 2\n" + kQuestion + "\tScalar : x = 2\n");
}

TEST(DeletionOfAll, KeepsWhatIsRegistered) {
  Session session("y\n");
  session.Type("~");
  EXPECT_EQ(session.Type("min(1, 2)*<1>"), "\tVector : <1>\n");
}

// A function may give a value that bears a name of its own.
class NamedResult : public testing::Test {
 protected:
  NamedResult() {
    session_.GetState().AddFunction(
        "f", {""}, [this](State&, const Values&, Values& results, s_str&) -> s_bool {
          results.PushBack(s_refptr<Symbol>(new Scalar(name_, 7)));
          return true;
        });
  }

  s_str name_ = "x";
  Session session_;
};

TEST_F(NamedResult, IsADefinitionWhenTheNameIsFree) {
  EXPECT_EQ(session_.Type("f();_;?x"),
            "\tDefining Scalar : x = 7\n\tScalar : 7\n\tScalar : x = 7\n");
}

TEST_F(NamedResult, IsPrintedWhenTheNameIsTaken) {
  session_.Type("x=1");
  EXPECT_EQ(session_.Type("f();_;?x"), "\tScalar : x = 7\n\tScalar : 7\n\tScalar : x = 1\n");
}

TEST_F(NamedResult, IsRefusedWhenTheNameIsBad) {
  name_ = "a b";
  session_.Type("5");
  EXPECT_EQ(session_.Type("f();_"),
            "\tError : Only alphanumeric names are allowed for symbols, in 'a b'\n\tScalar : 5\n");
}

TEST_F(NamedResult, IsStoredUnderTheNameThatIsAssigned) {
  EXPECT_EQ(session_.Type("y=f();?x;?y"),
            "\tDefining Scalar : x = 7\n\tError : Unknown symbol 'x'\n\tScalar : x = 7\n");
}

TEST(Command, IsToldByItsFirstSigns) {
  const LinesRow kRows[] = {
      {"x=1\n?x;x+1;~x", "\tScalar : x = 1\n\tScalar : 2\n\tScalar 'x' erased\n"                  },
      {"x=<1, 2>;?x",    "\tDefining Vector : x = <1, 2>\n\tVector : x = <1, 2>\n"                },
      {"x=1;x:Foo;x",    "\tDefining Scalar : x = 1\n\tError : Unknown type 'Foo'\n\tScalar : 1\n"},
  };
  ExpectOutput(kRows);
}

}  // namespace
}  // namespace Quarn
