// Model answers whole sessions of the calculator once more, by the plainest means there are:
// strings and recursion. An expression is cut at its top level, the texts left and right of the
// chosen operator are glued together, and each is cut again. It is slow, on purpose; its only use
// is to be compared with the program, to the last byte. It shares no code with the program.
//   std::deque<std::string> answers = {"y"};
//   Model model;
//   model.Run("x=1+2;~", answers);  // "\tDefining Scalar : x = 3\n\tWarning : ..."
// One Model is one session. For one thread only.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace Quarn::model {

// A line whose output the model does not foretell: it would not end, or it costs too much. What
// the Model holds afterwards is of no use; its session is over.
class Outside : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class Kind { kSymbol, kScalar, kVector, kReference };

struct Value;
// Values are shared and never changed; a new name makes a new value.
using ValuePtr = std::shared_ptr<const Value>;

struct Value {
  Kind kind = Kind::kSymbol;
  std::string name;
  std::string value_text;  // what an abstract symbol shows, whatever its name is by now
  double number = 0;
  std::vector<ValuePtr> elements;
  std::string expression;
};

ValuePtr NewSymbol(const std::string& name);
ValuePtr NewScalar(const std::string& name, double number);
ValuePtr NewVector(const std::string& name, const std::vector<ValuePtr>& elements);
ValuePtr NewReference(const std::string& name, const std::string& expression);
ValuePtr Renamed(const ValuePtr& value, const std::string& name);

class Model {
 public:
  // Stands for the standard library's rand: each call is one draw.
  using Random = std::function<int()>;

  Model();
  explicit Model(Random random);

  // Carries out one line and returns all that it prints. The question after "~" takes the first of
  // the answers, or an empty one when there is none left. Throws Outside.
  std::string Run(const std::string& line, std::deque<std::string>& answers);

 private:
  class Frame;
  // A reference led back to the one with this expression, which is being evaluated.
  struct Ring {
    std::string expression;
  };
  // What a reference stands for, or, where there is none, the expression that failed.
  struct Followed {
    ValuePtr value;
    std::string failed;
  };
  using Binary = ValuePtr (Model::*)(const ValuePtr&, const ValuePtr&, std::string&);
  using Unary = ValuePtr (Model::*)(const ValuePtr&, std::string&);
  struct BinaryRow;
  struct UnaryRow;
  static const BinaryRow kBinaryRows[];
  static const UnaryRow kUnaryRows[];

  // Commands.
  void RunPiece(const std::string& piece, std::deque<std::string>& answers);
  void DefineReference(const std::string& name, const std::string& expression);
  void Assign(const std::string& name, const std::string& expression);
  void Declare(const std::string& name, const std::string& type);
  void Delete(const std::string& name, std::deque<std::string>& answers);
  void EraseAll(std::deque<std::string>& answers);
  void Query(const std::string& name);
  void Calculate(const std::string& expression);
  bool CheckTarget(const std::string& name);
  ValuePtr EvaluateCommand(const std::string& name, const std::string& expression,
                           std::string& error, bool allow_new_symbol);
  void Define(const std::string& name, const std::string& type, const ValuePtr& value);
  void ForgetLast();
  void Print(const std::string& text);
  void ForgetRing();
  std::string ShownType(const ValuePtr& value);
  std::string ShownText(const ValuePtr& value);

  // Evaluation: null, with a message added, when it fails.
  ValuePtr Evaluate(const std::string& name, const std::string& expression, std::string& error,
                    bool allow_new_symbol);
  ValuePtr EvaluateLeaf(const std::string& name, const std::string& text, std::string& error,
                        bool allow_new_symbol);
  ValuePtr EvaluateKnown(const std::string& name, const ValuePtr& symbol, std::string& error);
  ValuePtr EvaluateCall(const std::string& text, std::string& error);
  ValuePtr Call(const std::string& function, const std::vector<ValuePtr>& arguments,
                std::string& error);
  ValuePtr EvaluateIndexing(const std::string& name, const std::string& text, std::string& error);
  ValuePtr EvaluateOperator(const std::string& name, const std::vector<std::string>& pieces,
                            std::string& error);
  ValuePtr EvaluateVector(const std::string& name, const std::string& text, std::string& error);
  bool CheckReferences(const std::vector<ValuePtr>& elements, const std::string& type,
                       std::string& error);

  // Operators.
  ValuePtr ApplyBinary(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                       std::string& error);
  ValuePtr ApplyRightUnary(const std::string& op, const ValuePtr& operand, std::string& error);
  ValuePtr ApplyLeftUnary(const std::string& op, const ValuePtr& operand, std::string& error);
  ValuePtr Defer(const std::string& op, const ValuePtr& left, const ValuePtr& right);
  ValuePtr NoMatch(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                   std::string& error);
  std::string OperandText(const ValuePtr& operand);

  // What the operators do.
  ValuePtr Multiply(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr Divide(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr Add(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr Subtract(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr ScaleFromLeft(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr ScaleFromRight(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr AddVectors(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr SubtractVectors(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr Pairwise(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                    std::string& error);
  ValuePtr Cross(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr CrossComponent(const ValuePtr& a, const ValuePtr& b, std::size_t i, std::size_t j,
                          std::string& error);
  ValuePtr Index(const ValuePtr& left, const ValuePtr& right, std::string& error);
  ValuePtr Copy(const ValuePtr& operand, std::string& error);
  ValuePtr Negate(const ValuePtr& operand, std::string& error);
  ValuePtr NegateVector(const ValuePtr& operand, std::string& error);
  ValuePtr Factorial(const ValuePtr& operand, std::string& error);
  double RandomBetween(double low, double high);

  // Values. A reference is evaluated each time that one of these meets it.
  std::string TypeOf(const ValuePtr& value);
  std::string TextOf(const ValuePtr& value);
  std::string VectorText(const ValuePtr& value);
  std::string ReferenceText(const ValuePtr& reference);
  std::string ElementText(const ValuePtr& element);
  Followed Follow(const ValuePtr& reference);
  ValuePtr Resolve(const ValuePtr& value);

  Random random_;
  std::map<std::string, ValuePtr> symbols_;  // the last result too, under "_"
  std::string output_;

  // These begin anew with each command.
  std::vector<std::string> evaluated_;  // the expressions of references under way, outermost first
  std::vector<std::string> written_;    // those whose values are being written
  bool shows_rings_ = false;            // is nothing evaluated for which a ring would be an error?
  std::size_t levels_ = 0;
  std::size_t work_ = 0;
};

}  // namespace Quarn::model
