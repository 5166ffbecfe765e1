// Tests of command lines: what each kind of command is told by, what it prints, what it leaves.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/session.h"

namespace Quarn {
namespace {

std::string BadName(const std::string& name) {
  return "\tError : Only alphanumeric names are allowed for symbols, in '" + name + "'\n";
}
const char kNotAssignable[] = "\tError : Reference to last result '_' is not assignable\n";
const char kNull[] = "\tReference : null\n";

TEST(CheckName, TakesLettersAndDigitsOfAscii) {
  for (const char* name : {"a", "Z", "0", "9a", "abcXYZ019", ""}) {
    s_str error;
    EXPECT_TRUE(State::CheckName(name, error)) << name;
    EXPECT_EQ(error.Get(), "");
  }
  for (const char* name : {"a_b", "__", " ", "a ", "a.b", "a-b", "\t", "\xE9", "a\n", "'", "@", "[",
                           "`", "{", "/", ":"}) {
    s_str error;
    EXPECT_FALSE(State::CheckName(name, error)) << name;
    EXPECT_EQ(error.Get() + "\n", BadName(name));
  }
}

TEST(CheckName, RefusesTheLastResultInItsOwnWords) {
  s_str error = "\tError : before";
  EXPECT_FALSE(State::CheckName("_", error));
  EXPECT_EQ(error.Get() + "\n", std::string("\tError : before\n") + kNotAssignable);
}

TEST(Line, IsCutAtSemicolons) {
  const LinesRow kRows[] = {
      {"",              ""                                                                    },
      {";",             ""                                                                    },
      {";;1;;",         "\tScalar : 1\n"                                                      },
      {"a=1;b=2",       "\tDefining Scalar : a = 1\n\tDefining Scalar : b = 2\n"              },
      {"a=1;;b=2",      "\tDefining Scalar : a = 1\n\tDefining Scalar : b = 2\n"              },
      {"a=1;a+1;a=a+2", "\tDefining Scalar : a = 1\n\tScalar : 2\n\tDefining Scalar : a = 3\n"},
      {"zz+1;1",        "\tError : Unknown symbol 'zz'\n\tScalar : 1\n"                       },
      {"1; ;2",         "\tScalar : 1\n\tError : Empty symbol\n\tScalar : 2\n"                },
      {"min(1;2)",      "\tError : Unterminated '('\n\tError : Too many closing ')'\n"        },
      {" ",             "\tError : Empty symbol\n"                                            },
  };
  ExpectOutput(kRows);
}

TEST(Comment, EndsAtTheNextSemicolon) {
  const LinesRow kRows[] = {
      {"//",           ""                                                                  },
      {"// x=1",       ""                                                                  },
      {"// x=1\n?x",   "\tError : Unknown symbol 'x'\n"                                    },
      {"// note; x=1", "\tDefining Scalar : x = 1\n"                                       },
      {"1;// a;2",     "\tScalar : 1\n\tScalar : 2\n"                                      },
      {"//~",          ""                                                                  },
      {" // x",        "\tError : Operator '/' is missing its operands\n"                  },
      {"1 // x",       "\tError : No match for operator 'Scalar /' in :\n\t        \t1 /\n"},
      {"/",            "\tError : Operator '/' is missing its operands\n"                  },
  };
  ExpectOutput(kRows);
}

TEST(Assignment, StoresAndPrints) {
  const LinesRow kRows[] = {
      {"x=1+2",              "\tDefining Scalar : x = 3\n"                                    },
      {"  x  = 3 ",          "\tDefining Scalar : x = 3\n"                                    },
      {"x=1\nx=<1, 2>",      "\tDefining Vector : x = <1, 2>\n"                               },
      {"x=1\nx=x+1\n?x",     "\tScalar : x = 2\n"                                             },
      {"x:Vector\nx=&x\n?x", "\tReference : x = x\n"                                          },
      {"=5",                 "\tDefining Scalar : 5\n"                                        },
      {"=5\n_+1",            "\tScalar : 6\n"                                                 },
      {"x=min(1, 2)",        "\tDefining Scalar : 1\n"                                        },
      {"x=min(1, 2)\n?x",    "\tScalar : 1\n"                                                 },
      {"12=5\n?12",          "\tScalar : 12 = 5\n"                                            },
      {"x=1\ny=+x",          "\tDefining Scalar : y = 1\n"                                    },
      {"x=a=1",              "\tError : Unable to parse expression 'a=1', no operator found\n"},
      {"x==1",               "\tError : Unable to parse expression '=1', no operator found\n" },
      {"x=",                 "\tError : Empty symbol\n"                                       },
      {"x=&=1",              "\tDefining Reference : x = =1\n"                                },
      {"x=b:c",              "\tError : Unable to parse expression 'b:c', no operator found\n"},
  };
  ExpectOutput(kRows);
}

TEST(Assignment, RefusesBadNames) {
  const LinesRow kRows[] = {
      {"_=3",      kNotAssignable                   },
      {" _ =3",    kNotAssignable                   },
      {"a b=3",    BadName("a b")                   },
      {"a.b=3",    BadName("a.b")                   },
      {"my_var=1", BadName("my_var")                },
      {"\tx=3",    BadName("\tx")                   }, // only blanks are trimmed
      {"~x=3",     BadName("~x")                    },
      {"?x=3",     BadName("?x")                    },
      {"x: =3",    BadName("x:")                    },
      {"& =3",     BadName("&")                     },
      {"a+b=3",    BadName("a+b")                   },
      {"x=zz",     "\tError : Unknown symbol 'zz'\n"},
  };
  ExpectOutput(kRows);
}

TEST(Assignment, ThatFailsChangesNothing) {
  const LinesRow kRows[] = {
      {"x=1\n5\nx=zz+1\n?x", "\tScalar : x = 1\n"                        },
      {"x=1\n5\nx=zz+1\n_",  "\tScalar : 5\n"                            },
      {"a\n5\nx=a\n?x",      "\tError : Unknown symbol 'x'\n"            },
      {"a\n5\nx=a\n_",       "\tScalar : 5\n"                            },
      {"x=1\na\nx=a\n?x",    "\tScalar : x = 1\n"                        },
      {"x=y",                "\tError : Unknown symbol 'y'\n"            },
      {"a\nr&=a\nx=r",       "\tWarning : 'Symbol=Symbol' does nothing\n"},
  };
  ExpectOutput(kRows);
}

TEST(Assignment, BehindAColonIsIgnored) {
  const LinesRow kRows[] = {
      {"x:=3",          ""                                                                },
      {"x:=3\n?x",      "\tError : Unknown symbol 'x'\n"                                  },
      {"x=1\nx:=3\n?x", "\tScalar : x = 1\n"                                              },
      {":=",            ""                                                                },
      {"a b:=c&=d",     ""                                                                },
      {"5\nx:=3\n_",    "\tScalar : 5\n"                                                  },
      {"~:=",           ""                                                                },
      {"x=1:=2",        "\tError : Unable to parse expression '1:=2', no operator found\n"},
  };
  ExpectOutput(kRows);
}

TEST(ReferenceDefinition, StoresTheTextAsWritten) {
  const LinesRow kRows[] = {
      {"r&=a+1",              "\tDefining Reference : r = a+1\n"    },
      {"a=1\nr&=a+1",         "\tDefining Reference : r = 2\n"      },
      {"a=1\nr&=a+1\na=5\nr", "\tScalar : 6\n"                      },
      {"r&= a + 1 ",          "\tDefining Reference : r =  a + 1 \n"}, // blanks and all
      {"r=& a",               "\tDefining Reference : r = a\n"      },
      {"r=& a + 1 ",          "\tDefining Reference : r = (a)+(1)\n"},
      {" r & =1",             BadName("r &")                        },
      {" r &=1",              "\tDefining Reference : r = 1\n"      },
      {"r&=",                 "\tDefining Reference : null\n"       },
      {"r&= ",                "\tDefining Reference : r =  \n"      }, // a blank is an expression
      {"r&=(1",               "\tDefining Reference : r = (1\n"     },
      {"r=1\nr&=2\n?r",       "\tScalar : r = 2\n"                  },
      {"&=7",                 "\tDefining Reference : 7\n"          },
      {"r&=x=2",              "\tDefining Reference : r = x=2\n"    },
      {"r&=x:2",              "\tDefining Reference : r = x:2\n"    },
      {"_&=1",                kNotAssignable                        },
      {"a b&=1",              BadName("a b")                        },
      {"~r&=1",               BadName("~r")                         },
      {"r&&=1",               BadName("r&&")                        },
  };
  ExpectOutput(kRows);
}

TEST(Declaration, MakesAnUninitialisedSymbol) {
  const LinesRow kRows[] = {
      {"x:Scalar",          "\tDefining Scalar : x = nan\n"},
      {"x:Vector",          "\tDefining Vector : x = <>\n" },
      {"x:Symbol",          "\tDefining Symbol : x\n"      },
      {"x:Reference",       "\tDefining Reference : null\n"},
      {" x : Scalar ",      "\tDefining Scalar : x = nan\n"},
      {":Scalar",           "\tDefining Scalar : nan\n"    },
      {"x=1\nx:Vector\n?x", "\tVector : x = <>\n"          },
      {"x:Scalar\n_",       "\tScalar : nan\n"             },
  };
  ExpectOutput(kRows);
}

TEST(Declaration, RefusesUnknownTypesAndBadNames) {
  const LinesRow kRows[] = {
      {"x:Foo",          "\tError : Unknown type 'Foo'\n"     },
      {"x=1\nx:Foo\n?x", "\tScalar : x = 1\n"                 },
      {"5\nx:Foo\n_",    "\tScalar : 5\n"                     },
      {"x:",             "\tError : Unknown type ''\n"        },
      {"x:scalar",       "\tError : Unknown type 'scalar'\n"  },
      {"x:Scalar y",     "\tError : Unknown type 'Scalar y'\n"},
      {"x:y:Scalar",     "\tError : Unknown type 'y:Scalar'\n"},
      {"x:\tScalar",     "\tError : Unknown type '\tScalar'\n"},
      {"_:Scalar",       kNotAssignable                       },
      {"a b:Foo",        BadName("a b")                       }, // the name comes first
      {"?x:Scalar",      BadName("?x")                        },
      {"~x:Scalar",      BadName("~x")                        },
      {"&x:Scalar",      BadName("&x")                        },
  };
  ExpectOutput(kRows);
}

TEST(PlainExpression, PrintsTypeAndValue) {
  const LinesRow kRows[] = {
      {"1+2",        "\tScalar : 3\n"                                                 },
      {"x=1\nx",     "\tScalar : 1\n"                                                 },
      {"x=1\n+x",    "\tScalar : 1\n"                                                 },
      {"&1+2",       "\tScalar : 3\n"                                                 },
      {"&zz",        "\tReference : zz\n"                                             },
      {"& zz ",      "\tReference : zz\n"                                             },
      {"_",          kNull                                                            },
      {"ab",         "\tDefining Symbol : ab\n"                                       },
      {" ab ",       "\tDefining Symbol : ab\n"                                       },
      {"ab\nab",     "\tSymbol : ab\n"                                                },
      {"ab\n_",      "\tSymbol : ab\n"                                                },
      {"(ab)",       "\tError : Unknown symbol 'ab'\n"                                },
      {"a_b",        "\tError : Unable to parse expression 'a_b', no operator found\n"},
      {"zz+1",       "\tError : Unknown symbol 'zz'\n"                                },
      {" ?",         "\tError : Unable to parse expression '?', no operator found\n"  },
      {" ~",         "\tError : Unable to parse expression '~', no operator found\n"  },
      {"5\nzz+1\n_", "\tScalar : 5\n"                                                 },
  };
  ExpectOutput(kRows);
}

}  // namespace
}  // namespace Quarn
