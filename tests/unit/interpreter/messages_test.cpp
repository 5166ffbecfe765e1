// Tests of the messages: each text whole, and a line that brings each of them forth.
#include "interpreter/messages.h"

#include <gtest/gtest.h>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"

namespace Quarn {
namespace {

TEST(AddError, BeginsALineOnlyBehindAnotherMessage) {
  s_str error;
  AddError(error, "a");
  EXPECT_EQ(error.Get(), "a");
  AddError(error, "b");
  EXPECT_EQ(error.Get(), "a\nb");
  AddError(error, "c\nd");
  EXPECT_EQ(error.Get(), "a\nb\nc\nd");
}

TEST(Messages, SayWhatTheyAreGiven) {
  using namespace messages;
  EXPECT_EQ(TooManyClosing('>').Get(), "\tError : Too many closing '>'");
  EXPECT_EQ(Unterminated('<').Get(), "\tError : Unterminated '<'");
  EXPECT_EQ(EmptySymbol().Get(), "\tError : Empty symbol");
  EXPECT_EQ(NoOperatorFound("2 3").Get(),
            "\tError : Unable to parse expression '2 3', no operator found");
  EXPECT_EQ(MissingOperands("[]").Get(), "\tError : Operator '[]' is missing its operands");
  EXPECT_EQ(UnknownSymbol("ab").Get(), "\tError : Unknown symbol 'ab'");
  EXPECT_EQ(UndefinedFunction("").Get(), "\tError : Undefined function ''");
  EXPECT_EQ(NotOneReturnValue().Get(),
            "\tError : Multiple return values for function is not yet supported");
  EXPECT_EQ(EmptyIndex().Get(), "\tError : Illegal use of '[.]' with empty argument");
  EXPECT_EQ(IndexOnNothing().Get(), "\tError : Illegal use of '[.]' on empty object");
  EXPECT_EQ(LimitReached(Failure::kMemory).Get(), "\tError : Expression is nested too deeply");
  EXPECT_EQ(LeadsBackToItself("a+1").Get(), "\tError : Reference 'a+1' leads back to itself");
  EXPECT_EQ(TooLong().Get(), "\tError : Expression is too long");
  EXPECT_EQ(SymbolAssignedToSymbol().Get(), "\tWarning : 'Symbol=Symbol' does nothing");
  EXPECT_EQ(LastResultNotAssignable().Get(),
            "\tError : Reference to last result '_' is not assignable");
  EXPECT_EQ(OnlyAlphanumericNames("a b").Get(),
            "\tError : Only alphanumeric names are allowed for symbols, in 'a b'");
  EXPECT_EQ(UnknownType("Foo").Get(), "\tError : Unknown type 'Foo'");
  EXPECT_EQ(NameOutOfReach("7").Get(), "\tError : No expression can ask for a symbol named '7'");
  EXPECT_EQ(NoValueToSet("x").Get(), "\tError : No value to give to symbol 'x'");
  EXPECT_EQ(EraseAllSymbols().Get(),
            "\tWarning : This command will erase all symbols.\n"
            "\t          Are you sure ? ([y|Enter]/n) ");
  EXPECT_EQ(AllSymbolsErased().Get(), "\tAll symbols erased");
  EXPECT_EQ(SymbolErased("A", "a").Get(), "\tA 'a' erased");
  EXPECT_EQ(IsUndefined("a").Get(), "\t'a' is undefined");
  EXPECT_EQ(NonHomogeneous("A", "B").Get(),
            "\tError : Non-homogeneous Vectors are not allowed.\n"
            "\t        Trying to mix A with B");
  EXPECT_EQ(DifferentLengths("add", 2U, 3U).Get(),
            "\tError : Cannot add two Vectors of different length (2 and 3)");
  EXPECT_EQ(OnlyFor3Vectors().Get(),
            "\tError : The cross product '^' is only available for 3-Vectors");
  EXPECT_EQ(CannotIndexEmpty().Get(), "\tError : Cannot index an empty Vector");
  EXPECT_EQ(NoBinaryMatch("+", "A", "B", "a", "b").Get(),
            "\tError : No match for operator 'A + B' in :\n\t        \ta + b");
  EXPECT_EQ(NoRightUnaryMatch("-", "A", "a").Get(),
            "\tError : No match for operator '- A' in :\n\t        \t- a");
  EXPECT_EQ(NoLeftUnaryMatch("!", "A", "a").Get(),
            "\tError : No match for operator 'A !' in :\n\t        \ta !");
}

TEST(Messages, ListTheCandidates) {
  EXPECT_EQ(messages::AmbiguousConstructor("1", {"A", "B"}).Get(),
            "\tError : Ambiguous constructor : '1'.\n\t        Possible candidates : A, B");
  EXPECT_EQ(messages::NoMatchingFunction("f", "(A)", {"()", "(B)"}).Get(),
            "\tError : No matching function call to :\n\t\t  f(A)\n"
            "\t\tPossible candidates :\n\t\t  f()\n\t\t  f(B)");
}

TEST(Messages, OfReadingAnExpressionAreEachBroughtForthByOne) {
  Session session;
  RegisterDigits(session.GetState(), "Digits");
  session.Type("a;v=<1.0, 2.0>;r&=r+1.0");
  // clang-format off
  const ValueRow kRows[] = {
      {"1.0)", "\tError : Too many closing ')'"},
      {"1.0>", "\tError : Too many closing '>'"},
      {"1.0]", "\tError : Too many closing ']'"},
      {"(1.0", "\tError : Unterminated '('"},
      {"<1.0", "\tError : Unterminated '<'"},
      {"v[1.0", "\tError : Unterminated '['"},
      {"", "\tError : Empty symbol"},
      {"7",
       "\tError : Ambiguous constructor : '7'.\n"
       "\t        Possible candidates : Digits, Scalar"},
      {"2 3", "\tError : Unable to parse expression '2 3', no operator found"},
      {"+", "\tError : Operator '+' is missing its operands"},
      {"zz", "\tError : Unknown symbol 'zz'"},
      {"zz(1.0)", "\tError : Undefined function 'zz'"},
      {"round(v)",
       "\tError : No matching function call to :\n"
       "\t\t  round(Vector)\n"
       "\t\tPossible candidates :\n"
       "\t\t  round(Scalar)"},
      {"v[]", "\tError : Illegal use of '[.]' with empty argument"},
      {"[1.0]", "\tError : Illegal use of '[.]' on empty object"},
      {"r+1.0", "\tError : Reference 'r+1.0' leads back to itself"},
  };
  // clang-format on
  ExpectValues(session, kRows);
}

TEST(Messages, OfOperatorsAndVectorsAreEachBroughtForthByOne) {
  Session session;
  session.Type("v=<1, 2>");
  // clang-format off
  const ValueRow kRows[] = {
      {"v/v",
       "\tError : No match for operator 'Vector / Vector' in :\n"
       "\t        \t<1, 2> / <1, 2>"},
      {"!v", "\tError : No match for operator '! Vector' in :\n\t        \t! <1, 2>"},
      {"v!", "\tError : No match for operator 'Vector !' in :\n\t        \t<1, 2> !"},
      {"<1.0, v>",
       "\tError : Non-homogeneous Vectors are not allowed.\n"
       "\t        Trying to mix Scalar with 2-Vector"},
      {"v+<1.0>", "\tError : Cannot add two Vectors of different length (2 and 1)"},
      {"v-<1.0>", "\tError : Cannot substract two Vectors of different length (2 and 1)"},
      {"v^v", "\tError : The cross product '^' is only available for 3-Vectors"},
      {"<>[1.0]", "\tError : Cannot index an empty Vector"},
  };
  // clang-format on
  ExpectValues(session, kRows);
}

TEST(Messages, OfLinesAreEachBroughtForthByOne) {
  const LinesRow kRows[] = {
      {"_=1",   "\tError : Reference to last result '_' is not assignable\n"           },
      {"a b=1", "\tError : Only alphanumeric names are allowed for symbols, in 'a b'\n"},
      {"a:Foo", "\tError : Unknown type 'Foo'\n"                                       },
      {"?a",    "\tError : Unknown symbol 'a'\n"                                       },
      {"~a",    "\t'a' is undefined\n"                                                 },
      {"a;b=a", "\tDefining Symbol : a\n\tWarning : 'Symbol=Symbol' does nothing\n"    },
  };
  ExpectOutput(kRows);
}

TEST(Messages, OfFunctionsWithoutExactlyOneResultAreAlike) {
  Session session;
  for (unsigned int count : {0U, 2U, 3U}) {
    session.GetState().AddFunction(
        "give", {""}, [count](State&, const Values&, Values& results, s_str&) -> s_bool {
          for (unsigned int i = 0; i < count; ++i)
            results.PushBack(s_refptr<Symbol>(new Symbol("x")));
          return true;
        });
    EXPECT_EQ(session.Evaluate("give()"),
              "\tError : Multiple return values for function is not yet supported");
  }
}

TEST(Messages, OfAFailureStandBehindThoseThatWereThere) {
  Session session;
  for (const char* failing :
       {"", "zz", "1+", "(1", "v/2", "min(1)", "<1, <2>>", "<1>+<1, 2>", "<1>^<1>"}) {
    s_str alone, error = "\tError : before";
    EXPECT_FALSE(session.GetState().ParseSymbol("", failing, alone, false)) << failing;
    EXPECT_FALSE(session.GetState().ParseSymbol("", failing, error, false)) << failing;
    EXPECT_EQ(error.Get(), "\tError : before\n" + alone.Get());
  }
}

}  // namespace
}  // namespace Quarn
