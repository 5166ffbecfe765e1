// Expression is a text that was read once and is evaluated any number of times, with the values
// that its names have then. Variable is a symbol's place, for numbers that change all the time.
//   Variable x = state.GetVariable("x");
//   Expression square = state.Prepare("x*x");
//   for (double value : values) {
//     x.Set(value);
//     sum += square.EvaluateNumber().value_or(0);
//   }
// Neither may outlive its State, nor be used on another thread than it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "../utils/api.h"
#include "embedding.h"

namespace Quarn {

struct Core;
struct Name;
class State;

class MIRLOW_API Expression {
 public:
  Expression(Expression&&) noexcept;
  Expression& operator=(Expression&&) noexcept;
  ~Expression();

  // What is wrong with the text, with its place; there is no error if it is well formed. A name
  // that is missing now may be there when the expression is evaluated.
  const Result& GetMistake() const;
  bool IsWellFormed() const;
  const std::string& GetText() const;
  // The names of the symbols that the text reads, each once, in the order of the text; not those
  // that references in it read in their turn.
  std::vector<std::string> GetNames() const;

  // The value now: what State::Compute gives for the text.
  Result Evaluate();
  // The same, where a number is wanted: nothing when there is no value, or another one. A reference
  // to a number is one.
  std::optional<double> EvaluateNumber();
  // When there is no number, `otherwise` tells why: the failure, or the value of another type.
  std::optional<double> EvaluateNumber(Result& otherwise);

 private:
  friend class State;
  struct Body;

  Expression(Core& core, std::string_view text);

  std::unique_ptr<Body> body_;
};

// The place of one symbol.
class MIRLOW_API Variable {
 public:
  Variable(Variable&&) noexcept;
  Variable& operator=(Variable&&) noexcept;
  ~Variable();

  // May a symbol bear the name? If not, what follows does nothing.
  explicit operator bool() const { return name_ != nullptr; }
  // Gives the symbol a number, in place of any value; makes it if there is none.
  void Set(double number);
  // The number of the symbol; nothing when it has no value, or another one.
  std::optional<double> Get() const;

 private:
  friend class State;

  Variable(Core& core, std::string_view name);

  Core* core_;
  Name* name_;
};

}  // namespace Quarn
