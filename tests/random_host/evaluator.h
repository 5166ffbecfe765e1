// Evaluator says what an expression comes to beside a host's rows, by the plainest means: strings
// and recursion. A text is cut at its top level, split at the operator that is applied last, and
// both sides are evaluated the same way. Types are names; what is registered stands in maps. It has
// values of its own and shares no code with the library, and carries out the host's bodies too, so
// that it can list every call that the host should get.
//   Evaluator evaluator(description);
//   std::string error;
//   ValuePtr value = evaluator.Evaluate("x", "k1+2", error, false);
//   evaluator.GetCalls();
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/random_host/description.h"

namespace Quarn::random_host {

// An evaluation that has no end: a factorial, an index, or references in a ring.
class Endless : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class Kind { kSymbol, kScalar, kVector, kReference, kHost };

struct Value;
using ValuePtr = std::shared_ptr<Value>;

// Shared as the library's values are, and changed by nothing but a new name.
struct Value {
  Kind kind = Kind::kSymbol;
  std::string name;
  std::string text;  // what an abstract symbol shows, a reference's expression, a host's payload
  double number = 0;
  std::vector<ValuePtr> elements;
  const HostType* type = nullptr;  // of a host's value
};

class Evaluator {
 public:
  explicit Evaluator(const Description& description);

  // As the operations of Host.
  void Add(const Description& more);
  void Begin();
  const std::string& GetCalls() const { return calls_; }

  // Null when it fails. Throws Endless.
  ValuePtr Evaluate(const std::string& name, const std::string& expression, std::string& error,
                    bool allow_new_symbol);
  // Each evaluates a reference.
  std::string TypeOf(const ValuePtr& value);
  std::string TextOf(const ValuePtr& value);

  void SetSymbol(const std::string& name, const ValuePtr& value);
  void SetReference(const std::string& name, const std::string& expression);
  void EraseSymbol(const std::string& name) { symbols_.erase(name); }
  const std::map<std::string, ValuePtr>& GetSymbols() const { return symbols_; }

 private:
  using Values = std::vector<ValuePtr>;
  using Operator = std::function<ValuePtr(const Values& operands, std::string& error)>;
  using Function =
      std::function<bool(const Values& arguments, Values& results, std::string& error)>;
  using Constructor =
      std::function<ValuePtr(const std::string& name, const std::string& text, std::string& error)>;
  struct LiteralType {
    std::function<bool(const std::string& text)> accept;
    Constructor create;
  };

  // How deep evaluations are in one another, from its construction to its destruction.
  class Level {
   public:
    explicit Level(Evaluator& evaluator);
    ~Level() { --evaluator_.levels_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    Evaluator& evaluator_;
  };

  // What the State and Vector register.
  void AddLiterals();
  void AddArithmetic();
  void AddVectorOperators();
  void AddFunctions();

  void Add(const LiteralRow& row);
  void Add(const OperatorRow& row);
  void Add(const FunctionRow& row);

  // Expressions.
  ValuePtr EvaluateLeaf(const std::string& name, const std::string& text, std::string& error,
                        bool allow_new_symbol);
  bool EvaluateLiteral(const std::string& name, const std::string& text, std::string& error,
                       ValuePtr& value);
  ValuePtr EvaluateSymbol(const std::string& name, const std::string& text, std::string& error,
                          bool allow_new_symbol);
  ValuePtr EvaluateCall(const std::string& text, std::string& error);
  ValuePtr Call(const std::string& function, Values arguments, std::string& error);
  ValuePtr EvaluateIndexing(const std::string& name, const std::string& text, std::string& error);
  ValuePtr EvaluateOperator(const std::string& name, const std::vector<std::string>& pieces,
                            std::string& error);
  ValuePtr EvaluateVector(const std::string& name, const std::string& text, std::string& error);

  // Operators.
  ValuePtr ApplyBinary(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                       std::string& error);
  ValuePtr ApplyUnary(Position position, const std::string& op, const ValuePtr& operand,
                      std::string& error);
  ValuePtr NoMatch(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                   std::string& error);
  std::string OperandText(const ValuePtr& operand);
  ValuePtr MapElements(const ValuePtr& vector, std::string& error, const Operator& f);
  ValuePtr Pairwise(const std::string& op, const Values& operands, std::string& error);
  ValuePtr Cross(const Values& operands, std::string& error);

  // References.
  ValuePtr Follow(const Value& reference);
  ValuePtr Resolve(const ValuePtr& value);

  // The host's bodies.
  std::string Note(const Body& body, const std::vector<std::string>& operands,
                   const std::string& error);
  std::string Note(const Body& body, const Values& operands, const std::string& error);
  ValuePtr CreateFrom(const Body& body, const std::string& name, const std::string& text,
                      std::string& error);
  ValuePtr Carry(const Body& body, const Values& operands, std::string& error);
  bool CallBody(const Body& body, const Values& arguments, Values& results, std::string& error);
  ValuePtr Do(Outcome outcome, const Body& body, const std::string& call, const std::string& name,
              const Values& operands, std::string& error);
  ValuePtr Apply(const std::string& op, const Values& operands, std::string& error);
  ValuePtr New(const Body& body, const std::string& call, const std::string& name,
               const Values& operands) const;

  std::array<HostType, kTypes> types_;
  std::map<std::string, LiteralType> literals_;  // by type
  // By operator, then by the types of the operands.
  std::map<std::string, std::map<std::string, std::map<std::string, Operator>>> binary_;
  std::map<Position, std::map<std::string, std::map<std::string, Operator>>> unary_;
  std::map<std::string, std::map<std::string, Function>> functions_;  // by name, by signature
  std::map<std::string, ValuePtr> symbols_;

  std::string calls_;
  std::map<std::string, ValuePtr> kept_;  // by the body's label
  bool is_evaluating_ = false;
  int levels_ = 0;
};

ValuePtr NewSymbol(const std::string& name, const std::string& text);
ValuePtr NewScalar(const std::string& name, double number);
ValuePtr NewVector(const std::string& name, const std::vector<ValuePtr>& elements);
ValuePtr NewReference(const std::string& name, const std::string& expression);
ValuePtr Renamed(const ValuePtr& value, const std::string& name);  // the same object
ValuePtr Copied(const ValuePtr& value, const std::string& name);   // another one

// Adds a message and gives null.
ValuePtr Fail(std::string& error, const std::string& message);

}  // namespace Quarn::random_host
