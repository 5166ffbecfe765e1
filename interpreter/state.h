// State is the whole interpreter: it owns every value that the user defines and the registries
// through which types make themselves known. No type is wired in but Reference and Scalar, which
// every State registers for itself; others are registered after construction, as Vector is by the
// program.
//   State state(out, in);
//   Vector::Register(state);
//   state.ProcessLine("v=<1, 2>;v+v");
// It writes to one stream and asks questions of another. A State is for one thread; several States
// on several threads do not disturb each other, but for the C library's one `rand`.
#pragma once

#include <initializer_list>
#include <iosfwd>
#include <memory>

#include "../utils/api.h"
#include "embedding.h"
#include "expression.h"
#include "limits.h"
#include "registry.h"

namespace Quarn {

struct Core;

class MIRLOW_API State {
 public:
  // Prints to standard output and reads standard input, or uses streams that must outlive it.
  State();
  State(std::ostream& out, std::istream& in);
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State();

  // ---- Lines ----

  // Carries out the commands of a line, which ";" separates, and prints what they have to say. A
  // command that fails prints its error and changes nothing; the next one is taken all the same.
  void ProcessLine(const s_str& line);
  // The first failure of that line, with its place in the line and the text that was printed; its
  // kind is kNone when no command failed. Valid until the next line.
  const Result& GetFailure() const;
  // What is printed may stay in the stream's buffer until then.
  void Flush();
  void PrintHelp();

  // ---- For a host program: nothing of this prints; values as plain C++ are in types/value.h ----

  // The value of an expression. Changes nothing, not even the last result.
  Result Compute(std::string_view expression);
  // The same for a text that is evaluated many times, and a symbol that is given numbers as often.
  Expression Prepare(std::string_view text);
  Variable GetVariable(std::string_view name);
  // The value of a symbol, "_" included; null when no symbol bears the name. It stays the symbol's:
  // Clone it to change it.
  s_refptr<Symbol> GetSymbol(std::string_view name) const;
  // Gives a name a copy of the value, in place of any that it had, and returns that copy. Fails for
  // a name that no symbol may bear or that no expression can ask for, and for null. Leaves the last
  // result.
  Result SetSymbol(std::string_view name, const s_refptr<Symbol>& value);
  // Makes a name a reference to the expression, which it follows from then on, and returns that.
  // Fails for the same names; an expression that fails is reported when the reference is evaluated.
  Result SetReference(std::string_view name, std::string_view expression);
  // False when no symbol bears the name. The last result is always there and cannot be erased.
  bool EraseSymbol(std::string_view name);

  // ---- Limits ----

  // What evaluations may use from now on; none has limits before.
  void SetLimits(const Limits& limits);
  const Limits& GetLimits() const;
  // Ends the evaluation or the line under way, with an error; without one it does nothing. From any
  // thread, and from signal handlers.
  void Interrupt();
  // Counts steps of an operator or function that takes long; when false, return a failure.
  bool Spend(std::uint64_t steps);

  // ---- Expressions ----

  // The value of an expression, bearing `name`; null, with at least one message added to `error`
  // unless a type failed without one, when it has none. A name that is not defined becomes a new
  // abstract symbol when `allow_new_symbol` and `name` is empty. A non-null value may come with a
  // warning in `error`.
  s_refptr<Symbol> ParseSymbol(const s_str& name, s_str expression, s_str& error,
                               s_bool allow_new_symbol);

  // Does a separator stand at `position` of the expression? If so, its text goes to `separator`.
  using SeparatorTest = std::function<s_bool(s_str::const_iterator position,
                                             const s_str& expression, s_str& separator)>;

  // Checks that the brackets of an expression are balanced and cuts it at each separator outside of
  // all brackets; separators become pieces of their own when they are kept. Empty pieces are left
  // out. False with one message added when the brackets are not balanced; then the pieces mean
  // nothing.
  s_bool CheckBrackets(s_ctnr<s_str>& pieces, const s_str& expression, SeparatorTest is_separator,
                       s_str& error, s_bool keep_separators) const;
  // The separator test that finds the operators of the language.
  s_bool IsOperatorAt(s_str::const_iterator position, const s_str& expression, s_str& op) const;

  // Applies an operator to values: resolves references, finds the implementation by the types, and
  // calls it. A binary operator on a reference that has no value yet gives a reference to the whole
  // operation. Null with a message added when there is no implementation, or when it failed.
  s_refptr<Symbol> ApplyBinaryOperator(std::string_view op, s_refptr<Symbol> left,
                                       s_refptr<Symbol> right, s_str& error);
  s_refptr<Symbol> ApplyRightUnaryOperator(std::string_view op, s_refptr<Symbol> operand,
                                           s_str& error);
  s_refptr<Symbol> ApplyLeftUnaryOperator(std::string_view op, s_refptr<Symbol> operand,
                                          s_str& error);

  // May a symbol bear this name? Letters and digits only, of ASCII whatever the locale; the empty
  // name may. Adds a message if not.
  static s_bool CheckName(std::string_view name, s_str& error);

  // ---- Registration: an entry for the same key takes the place of an earlier one, even of one
  // that is running, which is carried out to its end ----

  // The one way for types, operators and functions to get in; see registry.h about the rows.
  void AddType(const TypeRow& row);
  void AddBinary(std::initializer_list<BinaryRow> rows);
  // Written before their operand: -a.
  void AddRightUnary(std::initializer_list<UnaryRow> rows);
  // Written after their operand: a!.
  void AddLeftUnary(std::initializer_list<UnaryRow> rows);
  void AddFunctions(std::initializer_list<FunctionRow> rows);
  void AddFunction(const s_str& name, const s_ctnr<s_str>& argument_types, Function body);

  // ---- What it holds ----

  // The names of all symbols, "_" included; these and the registries are in ascending order.
  s_ctnr<s_str> GetSymbolNames() const;
  const Registry<TypeRow>& GetTypes() const;
  const BinaryRegistry& GetBinaryOperators() const;
  const UnaryRegistry& GetLeftUnaryOperators() const;
  const UnaryRegistry& GetRightUnaryOperators() const;
  const FunctionRegistry& GetFunctions() const;

  // Gives "_" a value; null makes it a null reference.
  void SetLastResult(s_refptr<Symbol> value);

  // The parts, for the types of this library.
  Core& GetCore() { return *core_; }

 private:
  std::unique_ptr<Core> core_;
};

}  // namespace Quarn
