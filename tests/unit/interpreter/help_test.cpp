// Tests of the help screen: the whole of it, and when it is shown.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "tests/support/session.h"

namespace Quarn {
namespace {

// Lines that look empty between the sections hold six blanks.
const std::string kSyntaxes = R"(	Help :
------------------------------

   Available syntaxes :
      Variable:Type : (re-)defines a symbol of name 'Variable'
                      and of type 'Type', not initialized.
      Variable=Expression : (re-)defines a symbol of name 'Variable'
                            and assigns it the value of 'Expression'.
                            The type of this symbol is deduced from the
                            type of 'Expression'.
      Expression : prints the result of 'Expression'
      ?Variable : prints the content of the symbol 'Variable'.
      ~Variable : deletes the symbol 'Variable'.
      ~ : deletes all symbols (starts anew).
      _ : recalls the last result.
)";

const std::string kExpressions = R"(   Expressions :
      An expression is a set of operators acting on symbols.
      All expressions are space invariant, that is you can place any
      number of spaces ' ' between operators and symbols without harm.
      Note of course that, for two symbols 'a' and 'b' :
                            ab != a b
      The former declares a new symbol 'ab', while the latter is illegal.
)";

const std::string kOperatorTexts = R"(   Operators :
      Most operators are binary, that is they take two arguments :
                  arg1 operator arg2
      but you also have left-unary operators :
                  arg1 operator
      and right-unary operators :
                  operator arg1
      Operators have a defined priority, like in mathematics where
      multiplication has priority over addition or substraction.
      If you want to force priority of a certain operator, you can
      surround it and its arguments with parenthesis '(' and ')'.
)";

const std::string kTypes = R"(   Built-in types :
      Symbol : Abstract type, no value, no operators.
      Scalar : Real number (double precision).
               Available operators : *, /, + and -.
      Vector : 1-dimensional container of arbitrary (but fixed) length.
               Available operators : + and - (plus ^ for 3-vectors).
               You can create a vector using :
                           <elt1, elt2, elt3, ... >
               where 'eltX' are elements of the vector.
               Vectors are homogeneous, that is they can only contain
               one type of data at the same time.
               You can access individual elements using :
                                vector[index]
               or equivalently :
                                vector[]index
               where 'vector' is your vector, and 'index' a scalar
               value or expression.
      Reference : String value containing an expression 'exp'. Whenever
                  one uses a reference in an expression, the expression
                  'exp' is evaluated and its result is used in place of
                  the reference. You can create a reference on any
                  expression using :
                                  &expression
                  and the following is available for assignment :
                               ref &= expression
)";

const std::string kEmptyLine = "      \n";
const std::string kHelp =
    kSyntaxes + kEmptyLine + kExpressions + kEmptyLine + kOperatorTexts + kEmptyLine + kTypes;

TEST(Help, IsPrintedAsItStands) {
  std::ostringstream out;
  std::istringstream in;
  State(out, in).PrintHelp();
  EXPECT_EQ(out.str(), kHelp);
}

TEST(Help, BeginsWithItsTitleALineAndAnEmptyLine) {
  std::istringstream lines(Session().Type("?"));
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line, "\tHelp :");
  std::getline(lines, line);
  EXPECT_EQ(line, std::string(30, '-'));
  std::getline(lines, line);
  EXPECT_EQ(line, "");
}

TEST(Help, HasThreeLinesOfSixBlanks) {
  std::istringstream lines(Session().Type("?"));
  int count = 0;
  for (std::string line; std::getline(lines, line);) count += line == "      ";
  EXPECT_EQ(count, 3);
}

TEST(Help, IsShownForAQuestionMarkAlone) {
  const LinesRow kRows[] = {
      {"?",       kHelp                                      },
      {"1;?;2",   "\tScalar : 1\n" + kHelp + "\tScalar : 2\n"},
      {"x=1\n?x", "\tScalar : x = 1\n"                       },
      {"? ",      "\tError : Unknown symbol ' '\n"           },
      {"?x",      "\tError : Unknown symbol 'x'\n"           },
  };
  ExpectOutput(kRows);
}

TEST(Help, ForgetsTheLastResult) {
  EXPECT_EQ(Session().TypeLast("5\n?\n_"), "\tReference : null\n");
}

}  // namespace
}  // namespace Quarn
