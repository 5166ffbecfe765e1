#include <cstddef>
#include <string>

#include "tests/model/generator_expression.h"

namespace Quarn::model {

std::string ExpressionWriter::Odd(std::size_t levels) {
  const std::size_t left = levels == 0 ? 0 : levels - 1;
  switch (dice_.Below(9)) {
    case 0:
      return Join(
          {Any(left), Around(dice_.Pick({"+", "-", "*", "/", "^", "!", "[]", "+"})), Any(left)});
    case 1:
      return Join({dice_.Pick({"+", "-", "*", "/", "^", "[]", "+"}), Blank(), AnyName()});
    case 2:
      return Join({Any(0), Blank(), dice_.Pick({"+", "-", "!", "*", "^", "[]", "!!"})});
    case 3:
      return OddSigns(left);
    case 4:
      return OddCall(left);
    case 5:
    case 6:
      return OddBrackets(left);
    case 7:
      return Join(
          {AnyName(), dice_.Pick({" ", "  ", "\t", ".", "_", "'", ",", "=", ":", "&"}), AnyName()});
    default:
      return dice_.Pick({"+",     "-",     "!",     "[]",       "()",   "( )", "(+)",  "( - )",
                         "([])",  "&",     "& ",    "&&",       "&&r",  "&+",  "[]2",  "[1]",
                         "[]+[]", "--a",   "a--b",  "- -a",     "2*-3", "*",   "-2^2", "v^w^v",
                         "1-2-3", "8/4/2", "&r+&s", "round_up", "_x",   "_1"});
  }
}

std::string ExpressionWriter::OddSigns(std::size_t levels) {
  const std::string signs = dice_.Pick({"--", "-+", "+-", "*-", "/-", "- -", "-*", "!-", "+ +"});
  if (dice_.OneIn(3)) return signs + Any(0);
  return Join({Any(levels), signs, Any(0)});
}

// Wrong in number, in type, in name, or in what stands around the parentheses.
std::string ExpressionWriter::OddCall(std::size_t levels) {
  const std::string function =
      dice_.Pick({"min", "max", "rand", "round", "round_up", "f", "a", "", "Min", "v[", "2", "r"});
  switch (dice_.Below(7)) {
    case 0:
      return function + "(" + Any(levels) + ")";
    case 1:
      return Join({function, "(", Any(0), ",", Any(levels), ",", Any(0), ")"});
    case 2:
      return function + dice_.Pick({"()", "( )", "(,)", "(,1)", "(1,)", "(1,,2)", "(1, )", "(+)"});
    case 3:
      return Join({function, "(", AnyName(), ",", Vector(0), ")"});
    case 4:
      return Join({function, "(", Scalar(0), ",", Scalar(0), ")",
                   dice_.Pick({"x", "(3)", "[0]", " 4", "<1>", ")"})});
    case 5:
      return Join({function, "(", dice_.Pick({"min", "round", "f"}), "(", Any(levels), "))"});
    default:
      return dice_.Pick({"rand(5,1)", "rand(0/0,1)", "rand(0,1/0)", "min(0/0,1)", "max(1,0/0)",
                         "min(r,s)", "max(_,1)", "round(&a)", "rand(&y,1)", "rand(0,100)"});
  }
}

std::string ExpressionWriter::OddBrackets(std::size_t levels) {
  const std::string inside = Any(levels);
  switch (dice_.Below(8)) {
    case 0:
      return dice_.Pick({"(", "[", "<", "((", "<("}) + inside;
    case 1:
      return inside + dice_.Pick({")", "]", ">", ")>", "]]"});
    case 2:
      return Join({dice_.Pick({"(", "[", "<"}), inside, dice_.Pick({")", "]", ">"})});
    case 3:
      return Join({VectorName(), "[", inside, "]", dice_.Pick({"[1]", "x", "", " 2", "<1>"})});
    case 4:
      return Join(
          {VectorName(), dice_.Pick({"[]", "[ ]", "[]2", "[", "[]]", "[[1]]", "[(1)]", "]["})});
    case 5:
      return "(" + inside + ")(" + AnyName() + ")";
    case 6:
      return dice_.Pick({"(<)", "<(1>", "([)]", "(a]", "<]>", "<[>", "<]>[0]", "(1>2", "<1>2>",
                         "<1,2>[0]<3>", "<1>(2)", "(v)[1]", "(a)+(b)", "((a))", "(((r)))"});
    default:
      return "((" + inside + "))";
  }
}

}  // namespace Quarn::model
