// Tests of Reader: the program of an expression, one instruction after the other.
#include "interpreter/reader.h"

#include <gtest/gtest.h>

#include <string>

#include "interpreter/core.h"
#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

std::string NumberText(double number) { return s_str(ToText(s_double(number))).Get(); }

// One instruction, "2", "x", "+", "-1" with one operand, "+2" with a number on its right.
std::string Dump(const Instruction& instruction, std::string_view text, const Registries& known) {
  const std::string op(instruction.op < kOperators ? kPriorities[instruction.op].text : "");
  const auto part = [&] {
    return std::string(text.substr(instruction.position, instruction.part.length));
  };
  switch (instruction.code) {
    case Code::kEnd:
      return ".";
    case Code::kNumber:
      return NumberText(instruction.number);
    case Code::kSymbol:
      return part();
    case Code::kLiteral:
      return "'" + part() + "'";
    case Code::kReference:
      return "&" + part();
    case Code::kBinary:
      return op;
    case Code::kBinaryNumber:
      return op + NumberText(instruction.number);
    case Code::kLeftUnary:
      return "(" + op + ")after";
    case Code::kRightUnary:
      return "(" + op + ")before";
    case Code::kBeginList:
      return "<";
    case Code::kElement:
      return "element";
    case Code::kNumberElement:
      return "element:" + NumberText(instruction.number);
    case Code::kEndList:
      return ">";
    case Code::kCall:
      return known.GetFunction(instruction.part.id).name->Get() + "/" +
             std::to_string(instruction.part.length);
    default:
      return "?";
  }
}

std::string Read(Session& session, std::string_view text, std::size_t most = 1000) {
  const Registries& known = session.GetState().GetCore().registries;
  ReaderStorage storage;
  const ReadOptions options;
  Reader reader(known, storage, text, options);
  std::string dump;
  Program program;
  bool has_more = true;
  while (has_more) {
    program.Clear();
    has_more = reader.Read(program, most);
    for (const Instruction& instruction : program.code) {
      dump += dump.empty() ? "" : " ";
      dump += instruction.code == Code::kFail ? "!" + program.extra->message.Get().substr(9)
                                              : Dump(instruction, text, known);
    }
  }
  return dump;
}

struct ReadRow {
  const char* text;
  const char* program;
};

TEST(Reader, PutsOperatorsInTheOrderOfTheirEvaluation) {
  const ReadRow kRows[] = {
      {"1",       "1 ."              },
      {" x ",     "x ."              },
      {"1+2",     "1 +2 ."           },
      {"1+2*x",   "1 2 x * + ."      },
      {"1*2+x",   "1 *2 x + ."       },
      {"a-b-c",   "a b - c - ."      },
      {"a-(b-c)", "a b c - - ."      },
      {"(((a)))", "a ."              },
      {"-a^b",    "a b ^ (-)before ."},
      {"2*-3",    "2 (*)after -3 ."  }, // a sign is an operator like others
      {"!4",      "4 (!)before ."    },
      {"4!",      "4 (!)after ."     },
      {"_+1",     "_ +1 ."           },
  };
  Session session;
  for (const auto& row : kRows) EXPECT_EQ(Read(session, row.text), row.program) << row.text;
}

TEST(Reader, ReadsLiteralsCallsAndIndices) {
  const ReadRow kRows[] = {
      {"<1, x, 2>", "< element:1 x element element:2 > ."},
      {"<<1>>",     "< < element:1 > element > ."        },
      {"<>",        "< > ."                              },
      {"&x",        "&x ."                               },
      {"& x+1",     "&x +1 ."                            },
      {"e5",        "'e5' ."                             },
      {"min(1, x)", "1 x min/2 ."                        },
      {"rand()",    "rand/0 ."                           },
      {"min(,1,)",  "1 min/1 ."                          }, // empty parts are left out
      {"v[1+x]",    "v 1 x + [] ."                       },
      {"v[0][1]",   "v []0 ."                            }, // what follows the first index is not looked at
      {"'a b",      "''a b' ."                           },
  };
  Session session;
  Word::Register(session.GetState());
  for (const auto& row : kRows) EXPECT_EQ(Read(session, row.text), row.program) << row.text;
}

TEST(Reader, PutsAMistakeWhereTheEvaluationMeetsItAndEndsThere) {
  const ReadRow kRows[] = {
      {"",         "!Empty symbol"                                         },
      {"1+( )*x",  "1 !Empty symbol"                                       },
      {"x+1)",     "!Too many closing ')'"                                 },
      {"x+(1",     "!Unterminated '('"                                     },
      {"x+(1>)",   "x !Too many closing '>'"                               },
      {"+",        "!Operator '+' is missing its operands"                 },
      {"x*+y",     "x (*)after y + ."                                      },
      {"x+[]",     "x !Operator '[]' is missing its operands"              },
      {"no(x)+1",  "!Undefined function 'no'"                              },
      {"x+v[]",    "x !Illegal use of '[.]' with empty argument"           },
      {"[1]",      "!Illegal use of '[.]' on empty object"                 },
      {"x+1 2",    "x !Unable to parse expression '1 2', no operator found"},
      {"<x, >",    "< x element !Empty symbol"                             },
      {"min(x, (", "!Unterminated '('"                                     },
      {"v[min(1]", "!Undefined function 'v[min'"                           },
  };
  Session session;
  for (const auto& row : kRows) EXPECT_EQ(Read(session, row.text), row.program) << row.text;
}

TEST(Reader, AsksTheTypesOnce) {
  Session session;
  RegisterDigits(session.GetState(), "Digits");
  Word::Register(session.GetState());  // which is asked, and does not know it
  EXPECT_EQ(Read(session, "1.5+12+x"),
            "1.5 !Ambiguous constructor : '12'.\n\t        Possible candidates : Digits, Scalar");
}

TEST(Reader, HandsOutALongExpressionInParts) {
  Session session;
  for (const char* text : {"x+y*z-(a-b)", "max(x,(y),<z>)", "<<a>,<b, c>>", "x+y)", "x+[]"}) {
    for (std::size_t most = 1; most < 6; ++most) {
      std::string parts = Read(session, text, most);
      for (std::size_t at; (at = parts.find(" . ")) != std::string::npos;) parts.erase(at, 2);
      EXPECT_EQ(parts, Read(session, text)) << most;
    }
  }
}

}  // namespace
}  // namespace Quarn
