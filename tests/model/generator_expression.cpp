#include "tests/model/generator_expression.h"

#include <cstddef>
#include <string>

namespace Quarn::model {

std::string ExpressionWriter::ScalarName() { return dice_.Pick({"a", "b", "x1", "a", "b", "c"}); }

std::string ExpressionWriter::VectorName() { return dice_.Pick({"v", "w", "v", "w", "m"}); }

std::string ExpressionWriter::ReferenceName() { return dice_.Pick({"r", "s", "t"}); }

std::string ExpressionWriter::AnyName() {
  switch (dice_.Below(8)) {
    case 0:
    case 1:
      return ScalarName();
    case 2:
    case 3:
      return VectorName();
    case 4:
    case 5:
      return ReferenceName();
    case 6:
      return dice_.Pick({"a", "v", "r", "y", "z"});
    default:
      return dice_.Pick({"_", "_", "_", "null", "e", "1e", "2", "min", "Scalar", "ab", "A", "y"});
  }
}

std::string ExpressionWriter::Blank() {
  if (!dice_.OneIn(6)) return "";
  if (dice_.OneIn(60)) return "\t";
  return dice_.Pick({" ", " ", " ", "  "});
}

std::string ExpressionWriter::Around(const std::string& text) {
  return Join({Blank(), text, Blank()});
}

std::string ExpressionWriter::Whole(std::size_t most) {
  return std::to_string(dice_.Below(most + 1));
}

std::string ExpressionWriter::Digits() {
  std::string digits;
  for (std::size_t left = 1 + dice_.Below(22); left > 0; --left) digits += Whole(9);
  return digits;
}

std::string ExpressionWriter::Number() {
  switch (dice_.Below(10)) {
    case 0:
      return Join({Digits(), dice_.OneIn(2) ? "." + Digits() : ""});
    case 1:
      return Join({Digits().substr(0, 3), "e", Whole(dice_.OneIn(8) ? 400 : 22)});
    case 2:
      return dice_.Pick({"2.5", "0.1", ".5", "5.", "3.95", "1.05", "0.5", "1.5", "0.3"});
    case 3:
      return dice_.Pick({"007", "00", "0.00001234", "0.0001", "1e15", "1e14", "999999999999999.5",
                         "1e308", "1e309", "123456789012345678", "1.e2", ".5e1"});
    case 4:
      if (dice_.OneIn(3)) return dice_.Pick({".", "e5", ".e1", "e0", "1e999"});
      if (dice_.OneIn(8)) {
        return dice_.Pick({"1.2.3", "1e", "1E5", "12a", "..", "1e5.0", "1e+5", "1e-2", "2 3"});
      }
      return Whole(9);
    default:
      return Whole(5);
  }
}

std::string ExpressionWriter::Any(std::size_t levels) {
  const std::size_t roll = dice_.Below(20);
  if (roll < 9) return Scalar(levels);
  if (roll < 15) return Vector(levels);
  if (roll < 16) return "&" + Around(Any(levels));
  if (roll < 17) return AnyName();
  return Odd(levels);
}

std::string ExpressionWriter::Scalar(std::size_t levels) {
  if (levels == 0) return dice_.OneIn(2) ? Number() : ScalarName();
  const std::size_t left = levels - 1;
  switch (dice_.Below(16)) {
    case 0:
    case 1:
    case 2:
    case 3:
      return Join({Scalar(left), Around(dice_.Pick({"+", "-", "*", "/"})), Scalar(left)});
    case 4:
      return "(" + Around(Scalar(left)) + ")";
    case 5:
      return Join({dice_.Pick({"-", "+", "- "}), Scalar(0)});
    case 6:
      return ScalarCall(left);
    case 7:
    case 8:
      return Indexing(left);
    case 9:
    case 10:
      return ReferenceName();
    case 11:
      if (dice_.OneIn(3)) return "_";
      return Join({ReferenceName(), dice_.Pick({"+", "*", "-", "/"}), Number()});
    case 12:
      return dice_.OneIn(3) ? FactorialText() : Number();
    case 13:
      return Number();
    default:
      return ScalarName();
  }
}

// Mostly of what ends soon: the others are outside of what can be compared.
std::string ExpressionWriter::FactorialText() {
  const std::string text = "!" + Blank();
  if (dice_.OneIn(60)) return text + Scalar(0);
  if (dice_.OneIn(10)) return text + dice_.Pick({"v", "<1>", "(1+2)", "(3.95)", "(r)", "&4", "_"});
  return text + dice_.Pick({"1", "2", "3", "4", "5", "10", "1.05", "3.95", "2.93", "20", "171"});
}

std::string ExpressionWriter::ScalarCall(std::size_t levels) {
  const std::string blank = dice_.OneIn(12) ? " " : "";
  switch (dice_.Below(4)) {
    case 0:
      return Join({dice_.Pick({"round", "round_up", "round_down"}), blank, "(",
                   Around(Scalar(levels)), ")"});
    case 1:
      return Join({dice_.Pick({"min", "max"}), blank, "(", Around(Scalar(levels)), ",",
                   Around(Scalar(levels)), ")"});
    case 2:
      return "rand" + blank + "()";
    default:
      return Join({"rand", blank, "(", Scalar(0), ",", Around(Scalar(0)), ")"});
  }
}

std::string ExpressionWriter::Element(std::size_t levels) {
  if (dice_.OneIn(12)) return "&" + Scalar(levels);
  if (dice_.OneIn(12)) return ReferenceName();
  return levels == 0 ? Number() : Scalar(levels - 1);
}

std::string ExpressionWriter::Elements(std::size_t count, std::size_t levels) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) text += ", ";
    text += Around(Element(levels));
  }
  return text;
}

std::string ExpressionWriter::OfLength(std::size_t count, std::size_t levels) {
  return "<" + Elements(count, levels) + ">";
}

// Of one length, so that what comes together usually fits; three most of all.
std::string ExpressionWriter::Vector(std::size_t levels) {
  if (levels == 0) return dice_.OneIn(3) ? OfLength(3, 0) : VectorName();
  return LongVector(levels - 1);
}

std::string ExpressionWriter::LongVector(std::size_t levels) {
  switch (dice_.Below(14)) {
    case 0:
    case 1:
    case 2:
      return OfLength(3, levels);
    case 3:
      return OfLength(dice_.Below(5), levels);
    case 4:
    case 5:
      return Join({Vector(levels), Around(dice_.Pick({"+", "-", "^"})), Vector(levels)});
    case 6:
      return Join({Scalar(0), Around("*"), Vector(levels)});
    case 7:
      return Join({Vector(levels), Around("*"), Scalar(0)});
    case 8:
      return Join({dice_.Pick({"-", "+"}), Vector(0)});
    case 9:
      return Join({"<", Vector(levels), ",", Around(Vector(levels)), ">"});
    case 10:
      return MixedVector(levels);
    case 11:
      return "(" + Around(Vector(levels)) + ")";
    case 12:
      return dice_.OneIn(2) ? ReferenceName() : "_";
    default:
      return VectorName();
  }
}

std::string ExpressionWriter::MixedVector(std::size_t levels) {
  const std::string first = dice_.OneIn(2) ? Scalar(0) : "&" + AnyName();
  const std::string second = dice_.OneIn(2) ? Vector(0) : AnyName();
  switch (dice_.Below(5)) {
    case 0:
      return "<" + first + ", " + second + ">";
    case 1:
      return "<" + second + "," + first + "," + Any(levels) + ">";
    case 2:
      return Join({"<&", ScalarName(), ", &", ReferenceName(), ">"});
    case 3:
      return dice_.Pick({"<>", "< >", "<,>", "<1,>", "<,1>", "<1, >", "<1,,2>", "<\t>", "<_>"});
    default:
      return Join({"<", Vector(0), ",", OfLength(dice_.Below(4), 0), ">"});
  }
}

std::string ExpressionWriter::Indexing(std::size_t levels) {
  if (dice_.OneIn(3)) return Join({Vector(0), "[", IndexText(levels), "]"});
  return Join({VectorName(), dice_.OneIn(10) ? " " : "", "[", Around(IndexText(levels)), "]"});
}

std::string ExpressionWriter::IndexText(std::size_t levels) {
  switch (dice_.Below(8)) {
    case 0:
      return "-" + Whole(4);
    case 1:
      return dice_.Pick({"0.5", "1.5", "2.6", "-0.4", "-0.5", "2.49999", "-1.5"});
    case 2:
      return dice_.Pick({"1e20", "-1e20", "1e300", "123456789012345678", "-1e15", "4294967296"});
    case 3:
      return dice_.Pick({"0/0", "a-a", "v", "r", "s", "<1>", "y", "-_", "_"});
    case 4:
      return dice_.OneIn(40) ? "1/0" : Scalar(levels);
    default:
      return Whole(3);
  }
}

}  // namespace Quarn::model
