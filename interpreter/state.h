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

#include <array>
#include <initializer_list>
#include <iosfwd>
#include <memory>
#include <unordered_map>
#include <vector>

#include "interpreter/depth.h"
#include "interpreter/dispatch.h"
#include "interpreter/embedding.h"
#include "interpreter/registry.h"
#include "interpreter/symbol_table.h"
#include "interpreter/workspace.h"
#include "utils/text_hash.h"

namespace Quarn {

// How a binary operator is carried out.
struct BinaryImplementation {
  // As it was registered, and the way around that for one that works in place; else null.
  const BinaryOperator* body;
  InPlaceOperator::Body in_place;
};

// Which overload was called for which types of arguments.
using FunctionDispatch = CallDispatch<Registry<Function>, Function>;

class State {
 public:
  // Prints to standard output and reads from standard input, or does so with streams that must
  // outlive it.
  State();
  State(std::ostream& out, std::istream& in);
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  // ---- Lines ----

  // Carries out the commands of a line, which ";" separates, and prints what they have to say. A
  // command that fails prints its error and changes nothing; the next one is taken all the same.
  // What is printed may stay in the stream's buffer.
  void ProcessLine(const s_str& line);
  // Writes out what was printed so far: for work that may never come back.
  void Flush();
  void PrintHelp();

  // ---- For a host program: nothing of this prints; values as plain C++ are in types/value.h ----

  // What an expression comes to. Changes nothing, not even the last result.
  Result Compute(std::string_view expression);
  // The value of a symbol, "_" included; null when no symbol bears the name. It stays the symbol's:
  // Clone it to change it.
  s_refptr<Symbol> GetSymbol(std::string_view name) const;
  // Gives a name a copy of the value, in place of any that it had, and returns that copy. Fails for
  // a name that no symbol may bear or that no expression can ask for, and for null. Leaves the last
  // result.
  Result SetSymbol(std::string_view name, const s_refptr<Symbol>& value);
  // False when no symbol bears the name. The last result is always there and cannot be erased.
  bool EraseSymbol(std::string_view name);

  // ---- Expressions ----

  // The value of an expression, bearing `name`; null, with at least one message added to `error`,
  // when it has none. A name that is not defined becomes a new abstract symbol when
  // `allow_new_symbol` and `name` is empty. A non-null value may come with a warning in `error`.
  s_refptr<Symbol> ParseSymbol(const s_str& name, s_str expression, s_str& error,
                               s_bool allow_new_symbol);
  // The same for a piece of a text that is being evaluated already, as a LiteralInPlace gets it.
  s_refptr<Symbol> Evaluate(const Piece& piece, const s_str& name, s_str& error,
                            bool allow_new_symbol = false);
  // The same for a text in place, which must stay until the call returns.
  s_refptr<Symbol> EvaluateText(std::string_view text, const s_str& name, s_str& error,
                                bool allow_new_symbol = false);

  // The same, unnamed, where nobody hears of a failure.
  s_refptr<Symbol> EvaluateSilently(std::string_view text);

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
  // Written behind their operand: a!.
  void AddLeftUnary(std::initializer_list<UnaryRow> rows);
  void AddFunctions(std::initializer_list<FunctionRow> rows);
  // One name may carry several lists of argument types.
  void AddFunction(const s_str& name, const s_ctnr<s_str>& argument_types, Function body);

  // ---- What it holds ----

  // Operators by their text, then by the types of their operands from left to right.
  using UnaryRegistry = Registry<Registry<UnaryOperator>>;
  using BinaryRegistry = Registry<Registry<Registry<BinaryOperator>>>;
  using FunctionRegistry = Registry<Registry<Function>>;

  // Each can be walked by name, in ascending order; the names of symbols are got first.
  const SymbolTable& GetSymbols() const { return symbols_; }
  const Registry<TypeRow>& GetTypes() const { return types_; }
  const BinaryRegistry& GetBinaryOperators() const { return binary_; }
  const UnaryRegistry& GetLeftUnaryOperators() const { return left_unary_; }
  const UnaryRegistry& GetRightUnaryOperators() const { return right_unary_; }
  // By name, then by signature: "(Scalar, Scalar)".
  const FunctionRegistry& GetFunctions() const { return functions_; }

  // Gives "_" a value; null makes it a null reference.
  void SetLastResult(s_refptr<Symbol> value);

  // The levels of evaluation inside evaluation; see depth.h.
  Depth& GetDepth() { return depth_; }

 private:
  friend class Evaluation;

  static bool IsName(std::string_view text);
  bool IsWithinReach(std::string_view name) const;
  void AddUnary(UnaryRegistry& registry, std::initializer_list<UnaryRow> rows);
  template <class Body>
  void Put(Registry<Body>& bodies, Registry<Body>& fresh);
  void DropReplaced();

  // The kinds of leaf; each gives null with a message when it fails. REQUIRES: `value` is null.
  void EvaluateLeaf(const Piece& leaf, const s_str& name, s_str& error, bool allow_new_symbol,
                    s_refptr<Symbol>& spare, s_refptr<Symbol>& value) {
    const LiteralInPlace build = GetLiteralStart(leaf).only;
    if (build && build(*this, name, leaf, error, spare, value)) return;
    EvaluateOtherLeaf(leaf, name, error, allow_new_symbol, spare, value);
  }
  void EvaluateOtherLeaf(const Piece& leaf, const s_str& name, s_str& error, bool allow_new_symbol,
                         s_refptr<Symbol>& spare, s_refptr<Symbol>& value);
  bool BuildOneOf(const std::vector<const TypeRow*>& types, const Piece& leaf, const s_str& name,
                  s_str& error, s_refptr<Symbol>& spare, s_refptr<Symbol>& value);
  s_refptr<Symbol> EvaluateNoLiteral(const Piece& leaf, const s_str& name, s_str& error,
                                     bool allow_new_symbol);
  s_refptr<Symbol> CopySymbol(const Symbol& symbol, const s_str& name, s_str& error);
  s_refptr<Symbol> Call(const Piece& leaf, std::uint32_t open, s_str& error);
  s_refptr<Symbol> CallOverload(const s_str& name, const Registry<Function>& overloads,
                                CallLists& lists, s_str& error);
  const Function* FindOverload(const s_str& name, const Registry<Function>& overloads,
                               Values& arguments, s_str& error) const;
  s_refptr<Symbol> Index(const Piece& leaf, std::uint32_t open, std::uint32_t close,
                         const s_str& name, s_str& error);

  // Runs what nothing else is evaluated around, and reports it when the stack did not suffice.
  template <class Work>
  [[gnu::noinline]] s_refptr<Symbol> RunOutermost(s_str& error, Work work) {
    DropReplaced();
    const Depth::Level level(depth_);
    const s_uint reported = error.GetSize();
    s_refptr<Symbol> value = work();
    workspace_.GiveBack();
    return level.IsGranted() ? value : ReportDepth(error, reported);
  }
  static s_refptr<Symbol> ReportDepth(s_str& error, s_uint reported);

  // By the operator's place in kPriorities. The result takes the place of the left operand; the
  // right one may be used up, or is left as it was.
  void ApplyBinary(std::size_t op, s_refptr<Symbol>& left, s_refptr<Symbol>& right, s_str& error);
  const BinaryImplementation* FindRemembered(std::size_t op, const Symbol& left,
                                             const Symbol& right) const {
    const FixedType type = left.GetFixedType();
    return type ? binary_dispatch_.Find(op, type.Get(), right.GetFixedType().Get()) : nullptr;
  }
  const UnaryOperator* SearchUnary(const UnaryRegistry& registry, std::string_view op,
                                   s_refptr<Symbol>& operand) const;
  void Remember(std::string_view op, const Symbol& left, const Symbol& right,
                const BinaryOperator& body);
  s_refptr<Symbol> SearchBinary(std::string_view op, const s_refptr<Symbol>& left,
                                const s_refptr<Symbol>& right, s_str& error);
  s_refptr<Symbol> Defer(std::string_view op, const Symbol& left, const Symbol& right);

  void ProcessCommand(std::string_view command);
  void ProcessEquals(std::string_view before, std::string_view expression);
  void DefineReference(std::string_view name, std::string_view expression);
  void Assign(std::string_view name, std::string_view expression);
  void Declare(std::string_view name, std::string_view type);
  void Delete(std::string_view name);
  void DeleteAll();
  void Query(std::string_view name);
  void PrintExpression(std::string_view expression);

  void Define(const s_str& name, const s_str& type, const s_refptr<Symbol>& value);
  bool PassesNameCheck(std::string_view name);
  void Print(std::string_view text);
  void PrintMessage(s_str message);
  void PrintValue(std::string_view before, std::string_view type, const Symbol& value);

  SymbolTable symbols_;
  Registry<TypeRow> types_;
  BinaryRegistry binary_;
  UnaryRegistry left_unary_;
  UnaryRegistry right_unary_;
  FunctionRegistry functions_;
  // The same by name, for calls.
  std::unordered_map<std::string_view, const FunctionRegistry::value_type*, TextHash, TextEqual>
      function_index_;

  // The types that may have a literal beginning with a character, in ascending order. Others are
  // not asked; one that is alone there looks at the text in place, if it can.
  struct LiteralStart {
    LiteralInPlace only = nullptr;
    std::vector<const TypeRow*> types;
  };
  const LiteralStart& GetLiteralStart(const Piece& leaf) const {
    return literals_[static_cast<unsigned char>(leaf.GetText().front())];
  }
  std::array<LiteralStart, 256> literals_;
  std::vector<std::shared_ptr<void>> replaced_;  // bodies that may be running
  Dispatch<BinaryImplementation> binary_dispatch_;
  FunctionDispatch function_dispatch_;
  Workspace workspace_;
  Depth depth_;
  s_str line_;  // room for the line of output that is being composed

  std::ostream& out_;
  std::istream& in_;
};

}  // namespace Quarn
