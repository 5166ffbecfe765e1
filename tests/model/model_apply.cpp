#include <string>
#include <utility>
#include <vector>

#include "tests/model/model.h"
#include "tests/model/model_frame.h"
#include "tests/model/model_text.h"

namespace Quarn::model {

struct Model::BinaryRow {
  const char* left;
  const char* op;
  const char* right;
  Binary apply;
};

struct Model::UnaryRow {
  const char* op;
  const char* operand;
  Unary apply;
};

const Model::BinaryRow Model::kBinaryRows[] = {
    {"Scalar", "*",  "Scalar", &Model::Multiply       },
    {"Scalar", "/",  "Scalar", &Model::Divide         },
    {"Scalar", "+",  "Scalar", &Model::Add            },
    {"Scalar", "-",  "Scalar", &Model::Subtract       },
    {"Scalar", "*",  "Vector", &Model::ScaleFromLeft  },
    {"Vector", "*",  "Scalar", &Model::ScaleFromRight },
    {"Vector", "+",  "Vector", &Model::AddVectors     },
    {"Vector", "-",  "Vector", &Model::SubtractVectors},
    {"Vector", "^",  "Vector", &Model::Cross          },
    {"Vector", "[]", "Scalar", &Model::Index          },
};

// Operators that are written before their operand. None is written behind it.
const Model::UnaryRow Model::kUnaryRows[] = {
    {"!", "Scalar", &Model::Factorial   },
    {"+", "Scalar", &Model::Copy        },
    {"-", "Scalar", &Model::Negate      },
    {"+", "Vector", &Model::Copy        },
    {"-", "Vector", &Model::NegateVector},
};

// An operand is resolved only when there is something left to look up with it: the left one for an
// operator that is known, the right one for a left type that is known.
ValuePtr Model::ApplyBinary(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                            std::string& error) {
  const Frame frame(*this, "");
  bool known = false;
  for (const BinaryRow& row : kBinaryRows) known = known || row.op == op;
  if (!known) return NoMatch(op, left, right, error);
  const ValuePtr left_value = Resolve(left);
  if (!left_value) return NoMatch(op, left, right, error);
  if (IsReference(left_value)) return Defer(op, left, right);
  const std::string left_type = OwnType(left_value->kind);
  known = false;
  for (const BinaryRow& row : kBinaryRows) {
    known = known || (row.op == op && row.left == left_type);
  }
  if (!known) return NoMatch(op, left, right, error);
  const ValuePtr right_value = Resolve(right);
  if (!right_value) return NoMatch(op, left, right, error);
  if (IsReference(right_value)) return Defer(op, left, right);
  const std::string right_type = OwnType(right_value->kind);
  for (const BinaryRow& row : kBinaryRows) {
    if (row.op != op || row.left != left_type || row.right != right_type) continue;
    return (this->*row.apply)(left_value, right_value, error);
  }
  return NoMatch(op, left, right, error);
}

ValuePtr Model::ApplyRightUnary(const std::string& op, const ValuePtr& operand,
                                std::string& error) {
  const Frame frame(*this, "");
  bool known = false;
  for (const UnaryRow& row : kUnaryRows) known = known || row.op == op;
  const ValuePtr value = known ? Resolve(operand) : nullptr;
  for (const UnaryRow& row : kUnaryRows) {
    if (!value || row.op != op || row.operand != OwnType(value->kind)) continue;
    return (this->*row.apply)(value, error);
  }
  const std::string type = TypeOf(operand);
  const std::string text = OperandText(operand);
  AddError(error, "\tError : No match for operator '" + op + " " + type + "' in :\n\t        \t" +
                      op + " " + text);
  return nullptr;
}

ValuePtr Model::ApplyLeftUnary(const std::string& op, const ValuePtr& operand, std::string& error) {
  const std::string type = TypeOf(operand);
  const std::string text = OperandText(operand);
  AddError(error, "\tError : No match for operator '" + type + " " + op + "' in :\n\t        \t" +
                      text + " " + op);
  return nullptr;
}

ValuePtr Model::Defer(const std::string& op, const ValuePtr& left, const ValuePtr& right) {
  const std::string left_text = OperandText(left);
  const std::string right_text = OperandText(right);
  return NewReference("", "(" + left_text + ")" + op + "(" + right_text + ")");
}

// The order of these four evaluations shows when a reference draws random numbers.
ValuePtr Model::NoMatch(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                        std::string& error) {
  const std::string left_type = TypeOf(left);
  const std::string right_type = TypeOf(right);
  const std::string left_text = OperandText(left);
  const std::string right_text = OperandText(right);
  AddError(error, "\tError : No match for operator '" + left_type + " " + op + " " + right_type +
                      "' in :\n\t        \t" + left_text + " " + op + " " + right_text);
  return nullptr;
}

std::string Model::OperandText(const ValuePtr& operand) {
  if (!operand->name.empty()) return "";
  // Another text may be being written, of a value that holds what is evaluated here.
  const std::vector<std::string> outer = std::exchange(written_, {});
  const bool showed_rings = std::exchange(shows_rings_, false);
  const std::string text = TextOf(operand);
  written_ = outer;
  shows_rings_ = showed_rings;
  return text;
}

}  // namespace Quarn::model
