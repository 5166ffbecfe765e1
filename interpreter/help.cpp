// The help screen.
#include "interpreter/commands.h"

namespace Quarn {
namespace {

enum Indent { kNone, kSingle, kDouble };

struct HelpPiece {
  Indent indent;
  const char* text;
};

// Printed as it stands, misspellings and the blanks on empty lines included: people know it so.
// clang-format off
constexpr HelpPiece kHelp[] = {
    {kNone,   "\tHelp :\n"},
    {kNone,   "------------------------------\n\n"},
    {kSingle, "Available syntaxes :\n"},
    {kDouble, "Variable:Type : (re-)defines a symbol of name 'Variable'\n"},
    {kDouble, "                and of type 'Type', not initialized.\n"},
    {kDouble, "Variable=Expression : (re-)defines a symbol of name 'Variable'\n"},
    {kDouble, "                      and assigns it the value of 'Expression'.\n"},
    {kDouble, "                      The type of this symbol is deduced from the\n"},
    {kDouble, "                      type of 'Expression'.\n"},
    {kDouble, "Expression : prints the result of 'Expression'\n"},
    {kDouble, "?Variable : prints the content of the symbol 'Variable'.\n"},
    {kDouble, "~Variable : deletes the symbol 'Variable'.\n"},
    {kDouble, "~ : deletes all symbols (starts anew).\n"},
    {kDouble, "_ : recalls the last result.\n"},
    {kDouble, "\n"},
    {kSingle, "Expressions :\n"},
    {kDouble, "An expression is a set of operators acting on symbols.\n"},
    {kDouble, "All expressions are space invariant, that is you can place any\n"},
    {kDouble, "number of spaces ' ' between operators and symbols without harm.\n"},
    {kDouble, "Note of course that, for two symbols 'a' and 'b' :\n"},
    {kDouble, "                      ab != a b\n"},
    {kDouble, "The former declares a new symbol 'ab', while the latter is illegal.\n"},
    {kDouble, "\n"},
    {kSingle, "Operators :\n"},
    {kDouble, "Most operators are binary, that is they take two arguments :\n"},
    {kDouble, "            arg1 operator arg2\n"},
    {kDouble, "but you also have left-unary operators :\n"},
    {kDouble, "            arg1 operator\n"},
    {kDouble, "and right-unary operators :\n"},
    {kDouble, "            operator arg1\n"},
    {kDouble, "Operators have a defined priority, like in mathematics where\n"},
    {kDouble, "multiplication has priority over addition or substraction.\n"},
    {kDouble, "If you want to force priority of a certain operator, you can\n"},
    {kDouble, "surround it and its arguments with parenthesis '(' and ')'.\n"},
    {kDouble, "\n"},
    {kSingle, "Built-in types :\n"},
    {kDouble, "Symbol : Abstract type, no value, no operators.\n"},
    {kDouble, "Scalar : Real number (double precision).\n"},
    {kDouble, "         Available operators : *, /, + and -.\n"},
    {kDouble, "Vector : 1-dimensional container of arbitrary (but fixed) length.\n"},
    {kDouble, "         Available operators : + and - (plus ^ for 3-vectors).\n"},
    {kDouble, "         You can create a vector using :\n"},
    {kDouble, "                     <elt1, elt2, elt3, ... >\n"},
    {kDouble, "         where 'eltX' are elements of the vector.\n"},
    {kDouble, "         Vectors are homogeneous, that is they can only contain\n"},
    {kDouble, "         one type of data at the same time.\n"},
    {kDouble, "         You can access individual elements using :\n"},
    {kDouble, "                          vector[index]\n"},
    {kDouble, "         or equivalently :\n"},
    {kDouble, "                          vector[]index\n"},
    {kDouble, "         where 'vector' is your vector, and 'index' a scalar\n"},
    {kDouble, "         value or expression.\n"},
    {kDouble, "Reference : String value containing an expression 'exp'. Whenever\n"},
    {kDouble, "            one uses a reference in an expression, the expression\n"},
    {kDouble, "            'exp' is evaluated and its result is used in place of\n"},
    {kDouble, "            the reference. You can create a reference on any\n"},
    {kDouble, "            expression using :\n"},
    {kDouble, "                            &expression\n"},
    {kDouble, "            and the following is available for assignment :\n"},
    {kDouble, "                         ref &= expression\n"},
};
// clang-format on

constexpr std::string_view kIndents[] = {"", "   ", "      "};

}  // namespace

void Commands::PrintHelp() {
  for (const HelpPiece& piece : kHelp) {
    Print(kIndents[piece.indent]);
    Print(piece.text);
  }
}

}  // namespace Quarn
