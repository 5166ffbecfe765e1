// Tests of the leaves of an expression: literals, symbols, calls and indexing, in this order.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/lift.h"

namespace Quarn {
namespace {

const char kEmptyIndex[] = "\tError : Illegal use of '[.]' with empty argument";
const char kIndexOnNothing[] = "\tError : Illegal use of '[.]' on empty object";

std::string NoCall(const std::string& call, const std::string& candidates) {
  return "\tError : No matching function call to :\n\t\t  " + call +
         "\n\t\tPossible candidates :\n" + candidates;
}

std::string Ambiguous(const std::string& text, const std::string& types) {
  return "\tError : Ambiguous constructor : '" + text +
         "'.\n\t        Possible candidates : " + types;
}

TEST(Literal, ThatTwoTypesTakeIsAmbiguous) {
  Session session;
  RegisterDigits(session.GetState(), "Digits");
  EXPECT_EQ(session.Evaluate("12"), Ambiguous("12", "Digits, Scalar"));
  EXPECT_EQ(session.Evaluate(" ( 12 ) "), Ambiguous("12", "Digits, Scalar"));
  EXPECT_EQ(session.Evaluate("1.5"), "Scalar : 1.5");
  EXPECT_EQ(session.Evaluate("1.5+12"), Ambiguous("12", "Digits, Scalar"));
}

TEST(Literal, NamesItsCandidatesInAscendingOrder) {
  Session session;
  for (const char* type : {"Whole", "Digits", "Number", "all"}) {
    RegisterDigits(session.GetState(), type);
  }
  EXPECT_EQ(session.Evaluate("7"), Ambiguous("7", "Digits, Number, Scalar, Whole, all"));
}

TEST(Literal, IsNoLongerAmbiguousWhenATypeIsRegisteredWithoutIt) {
  Session session;
  RegisterDigits(session.GetState(), "Digits");
  session.GetState().AddType(
      {"Digits", [](const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); }});
  EXPECT_EQ(session.Evaluate("12"), "Scalar : 12");
}

TEST(Literal, OfATypeFromOutsideIsBuiltByIt) {
  Session session;
  Word::Register(session.GetState());
  const ValueRow kRows[] = {
      {"'ab",      "Word : ab"                   },
      {" ('ab) ",  "Word : ab"                   },
      {"'a b",     "Word : a b"                  },
      {"'ab+'cd",  "Word : abcd"                 },
      {"'(a+b)",   "Word : (a+b)"                },
      {"'f(1)",    "Word : f(1)"                 }, // a literal before it is a call
      {"'v[1]",    "Word : v[1]"                 },
      {"'",        "\tError : A word has letters"},
      {"'a+'",     "\tError : A word has letters"},
      {"<'a, '>",  "\tError : A word has letters"},
      {"<'a, 'b>", "Vector : <a, b>"             },
  };
  ExpectValues(session, kRows);
  EXPECT_EQ(session.Evaluate("'ab", "x"), "Word : x = ab");
}

TEST(Literal, ComesBeforeASymbolOfTheSameName) {
  Session session;
  session.Type("12=5");
  EXPECT_EQ(session.Evaluate("12"), "Scalar : 12");
  EXPECT_EQ(session.Type("?12"), "\tScalar : 12 = 5\n");
}

TEST(SymbolName, IsLookedUpAndCopied) {
  Session session;
  session.Type("a=2;1a=3;r&=a;5");
  const ValueRow kRows[] = {
      {"a",  "Scalar : 2"                                                  },
      {"1a", "Scalar : 3"                                                  },
      {"r",  "Scalar : 2"                                                  },
      {"_",  "Scalar : 5"                                                  },
      {"A",  "\tError : Unknown symbol 'A'"                                },
      {"aa", "\tError : Unknown symbol 'aa'"                               },
      {"__", "\tError : Unable to parse expression '__', no operator found"},
  };
  ExpectValues(session, kRows);
}

TEST(SymbolName, TheEmptyNameCannotBeAskedFor) {
  Session session;
  session.Type("=5");
  EXPECT_EQ(session.Evaluate(""), "\tError : Empty symbol");
}

TEST(Call, FindsTheOverloadByTheTypesOfItsArguments) {
  Session session;
  State& state = session.GetState();
  const auto answer = [](double number) {
    return [number](State&, const Values&, Values& results, s_str&) -> s_bool {
      results.PushBack(NewNumber(number));
      return true;
    };
  };
  state.AddFunctions({
      {"f", {""},                 answer(0)},
      {"f", {"Scalar"},           answer(1)},
      {"f", {"Vector"},           answer(2)},
      {"f", {"Scalar", "Vector"}, answer(3)},
      {"f", {"Reference"},        answer(4)},
      {"f", {"Symbol"},           answer(5)},
  });
  session.Type("a;r&=1;dead&=zz;null:Reference;abstract&=a");
  const ValueRow kRows[] = {
      {"f()",         "Scalar : 0"},
      {"f(,)",        "Scalar : 0"},
      {"f(1)",        "Scalar : 1"},
      {"f(1, <1>)",   "Scalar : 3"},
      {"f(<1>)",      "Scalar : 2"},
      {"f(r)",        "Scalar : 1"}, // a reference counts as its value
      {"f(&r)",       "Scalar : 1"},
      {"f(dead)",     "Scalar : 4"}, // without a value it is a Reference
      {"f(null)",     "Scalar : 4"},
      {"f(a)",        "Scalar : 5"},
      {"f(abstract)", "Scalar : 5"},
  };
  ExpectValues(session, kRows);
  const std::string candidates =
      "\t\t  f()\n\t\t  f(Reference)\n\t\t  f(Scalar)\n\t\t  f(Scalar, Vector)\n\t\t  f(Symbol)\n"
      "\t\t  f(Vector)";
  EXPECT_EQ(session.Evaluate("f(<1>, 1)"), NoCall("f(Vector, Scalar)", candidates));
  EXPECT_EQ(session.Evaluate("f(1, null)"), NoCall("f(Scalar, Reference)", candidates));
}

TEST(Call, HandsOverValuesForReferences) {
  Session session;
  std::string handed;
  const auto note = [&handed](State&, const Values& arguments, Values& results, s_str&) -> s_bool {
    handed.clear();
    for (const s_refptr<Symbol>& argument : arguments) {
      handed += argument->GetDeclaredType().Get() + " " + argument->ToString().Get() + ";";
    }
    results.PushBack(NewNumber(0));
    return true;
  };
  session.GetState().AddFunction("f", {"Scalar", "Vector", "Scalar"}, note);
  session.GetState().AddFunction("f", {"Reference"}, note);
  session.Type("r&=s+1;s=1;v&=<s, &s>;dead&=zz+1");
  EXPECT_EQ(session.Evaluate("f(r, v, &r)"), "Scalar : 0");
  EXPECT_EQ(handed, "Scalar 2;Vector <1, 1>;Scalar 2;");
  EXPECT_EQ(session.Evaluate("min(r, 5)+max(&s, 0)"), "Scalar : 3");
  EXPECT_EQ(session.Evaluate("f(dead)"), "Scalar : 0");
  EXPECT_TRUE(handed.starts_with("Reference ")) << handed;
}

TEST(Call, ListsTheCandidatesWithoutAFinalNewline) {
  Session session;
  session.Type("dead&=zz");
  const std::string min = "\t\t  min(Scalar, Scalar)";
  EXPECT_EQ(session.Evaluate("min(1)"), NoCall("min(Scalar)", min));
  EXPECT_EQ(session.Evaluate("min()"), NoCall("min()", min));
  EXPECT_EQ(session.Evaluate(" min (1, 2, 3) "), NoCall("min(Scalar, Scalar, Scalar)", min));
  EXPECT_EQ(session.Evaluate("min(_, 1)"), NoCall("min(Reference, Scalar)", min));
  EXPECT_EQ(session.Evaluate("min(dead, 1)"), NoCall("min(Reference, Scalar)", min));
  EXPECT_EQ(session.Evaluate("rand(1)"),
            NoCall("rand(Scalar)", "\t\t  rand()\n\t\t  rand(Scalar, Scalar)"));
}

TEST(Call, ReadsItsNameBeforeTheFirstParenthesis) {
  Session session;
  session.Type("v=<1, 2>");
  const ValueRow kRows[] = {
      {"min (2, 1)",    "Scalar : 1"                            },
      {"min(2, 1)rest", "Scalar : 1"                            }, // what follows is not looked at
      {"min(2, 1)(3)",  "Scalar : 1"                            },
      {"min(2, 1)[0]",  "Scalar : 1"                            },
      {"min(2,,1)",     "Scalar : 1"                            },
      {"min(2,1,)",     "Scalar : 1"                            },
      {"2(3)",          "\tError : Undefined function '2'"      },
      {"v(1)",          "\tError : Undefined function 'v'"      },
      {"Min(1, 2)",     "\tError : Undefined function 'Min'"    },
      {"a b(1)",        "\tError : Undefined function 'a b'"    },
      {"(1)a",          "\tError : Undefined function ''"       },
      {"v[(1)]",        "\tError : Undefined function 'v['"     }, // a call before an indexing
      {"v[min(0, 1)]",  "\tError : Undefined function 'v[min'"  },
      {"<1, 2>[(1)]",   "\tError : Undefined function '<1, 2>['"},
  };
  ExpectValues(session, kRows);
}

// Inside of "[" a "(" is nothing and need not be closed. The list then ends where the last ")" is,
// or else with the text.
TEST(Call, ANameMayOpenAnotherBracket) {
  Session session;
  session.GetState().AddFunction(
      "odd[", {"Scalar"}, [](State&, const Values& arguments, Values& results, s_str&) -> s_bool {
        results.PushBack(arguments[0U]->Clone());
        return true;
      });
  const ValueRow kRows[] = {
      {"odd[(1)]",  "Scalar : 1"                    },
      {"odd[(1)2]", "Scalar : 1"                    },
      {"odd[((1)]", "\tError : Unterminated '('"    },
      {"odd[(1]",   "\tError : Too many closing ']'"},
  };
  ExpectValues(session, kRows);
}

TEST(Call, FailsWithItsArguments) {
  Session session;
  const ValueRow kRows[] = {
      {"min(zz, yy)", "\tError : Unknown symbol 'zz'"         },
      {"min(1, yy)",  "\tError : Unknown symbol 'yy'"         },
      {"min(1, )",    "\tError : Empty symbol"                },
      {"min( )",      "\tError : Empty symbol"                },
      {"min(<1)",     "\tError : Unterminated '<'"            },
      {"min(1, 2]])", "\tError : Too many closing ']'"        },
      {"nothing(zz)", "\tError : Undefined function 'nothing'"},
      {"min(1, 2",    "\tError : Unterminated '('"            },
  };
  ExpectValues(session, kRows);
}

TEST(Call, FailsWithTheMessageOfTheFunction) {
  Session session;
  session.GetState().AddFunction(
      "f", {"Scalar"}, [](State&, const Values&, Values& results, s_str& error) -> s_bool {
        results.PushBack(NewNumber(1));
        error += "\tError : Not today";
        return false;
      });
  EXPECT_EQ(session.Evaluate("f(1)"), "\tError : Not today");
  EXPECT_EQ(session.Evaluate("1+f(1)+zz"), "\tError : Not today");
  EXPECT_EQ(session.Type("x=f(1);?x"), "\tError : Not today\n\tError : Unknown symbol 'x'\n");
}

TEST(Call, AFailureWithoutAMessageSaysNothing) {
  Session session;
  session.GetState().AddFunction(
      "f", {""}, [](State&, const Values&, Values&, s_str&) -> s_bool { return false; });
  EXPECT_EQ(session.Type("5;x=f();_"), "\tScalar : 5\n\tScalar : 5\n");
  EXPECT_EQ(session.Type("f()"), "\n");
}

TEST(Call, ItsResultKeepsTheNameItHas) {
  Session session;
  session.GetState().AddFunction("f", {""},
                                 [](State&, const Values&, Values& results, s_str&) -> s_bool {
                                   results.PushBack(s_refptr<Symbol>(new Scalar("y", 7)));
                                   return true;
                                 });
  EXPECT_EQ(session.Evaluate("f()"), "Scalar : y = 7");
  EXPECT_EQ(session.Evaluate("f()", "x"), "Scalar : y = 7");
  EXPECT_EQ(session.Evaluate("(f())", "x"), "Scalar : y = 7");
  EXPECT_EQ(session.Evaluate("f()+1", "x"), "Scalar : x = 8");
}

TEST(Indexing, GoesByTheFirstBrackets) {
  Session session;
  session.Type("v=<10, 20, 30>;w=<<1, 2>, <3, 4>>;i=1");
  const ValueRow kRows[] = {
      {"v[1]",         "Scalar : 20"               },
      {"v[i+1]",       "Scalar : 30"               },
      {"v[-1]",        "Scalar : 30"               },
      {" v [ i ] ",    "Scalar : 20"               },
      {"<5, 7>[1]",    "Scalar : 7"                },
      {"w[1]",         "Vector : <3, 4>"           },
      {"w[1][0]",      "Vector : <3, 4>"           }, // what follows is not looked at
      {"v[1]rest",     "Scalar : 20"               },
      {"v[1]+v[2]",    "Scalar : 50"               },
      {"v[v[0]]",      "\tError : Unterminated '['"},
      {"<v[0], 1>[1]", "\tError : Unterminated '<'"}, // "<v" is indexed
  };
  ExpectValues(session, kRows);
}

TEST(Indexing, NeedsAnIndexAndAnObject) {
  Session session;
  session.Type("v=<10, 20>");
  const ValueRow kRows[] = {
      {"v[]",    kEmptyIndex                     },
      {"v[]2",   kEmptyIndex                     },
      {"zz[]",   kEmptyIndex                     },
      {"[]2",    kEmptyIndex                     },
      {"[1]",    kIndexOnNothing                 },
      {"[ ]",    kIndexOnNothing                 },
      {"[1]v",   kIndexOnNothing                 },
      {"v[ ]",   "\tError : Empty symbol"        },
      {"zz[yy]", "\tError : Unknown symbol 'zz'" },
      {"v[yy]",  "\tError : Unknown symbol 'yy'" },
      {"v[1",    "\tError : Unterminated '['"    },
      {"v]1[",   "\tError : Too many closing ']'"},
  };
  ExpectValues(session, kRows);
  const NoMatchRow kNoMatches[] = {
      {"1[0]", "Scalar [] Scalar", "1 [] 0"              },
      {"v[v]", "Vector [] Vector", "<10, 20> [] <10, 20>"},
      {"v[_]", "Vector [] Vector", "<10, 20> [] <10, 20>"},
      {"_[_]", "Vector [] Vector", "<10, 20> [] <10, 20>"},
  };
  ExpectNoMatches(session, kNoMatches);
}

TEST(Indexing, TakesReferencesForTheirValues) {
  Session session;
  session.Type("v=<10, 20, 30>;r&=v;i&=1+1;dead&=zz");
  EXPECT_EQ(session.Evaluate("r[i]"), "Scalar : 30");
  EXPECT_EQ(session.Evaluate("&v[1]"), "Scalar : 20");
  EXPECT_EQ(session.Evaluate("v[dead]"), "Reference : (<10, 20, 30>)[](zz)");
  EXPECT_EQ(session.Evaluate("dead[1]"), "Reference : (zz)[](1)");
}

}  // namespace
}  // namespace Quarn
