// Machine runs programs: a loop over instructions, a stack of operands, and a stack of frames, one
// for each expression under way. Where an instruction needs the value of a reference, the frame of
// that is pushed, and the instruction starts again when the answer is there; so neither nesting nor
// references use the stack of the process. Only what a type calls back into does.
//
// The errors of a line are added to the text of the caller; those of a reference are discarded.
// What ends a whole command goes past all references that are under way: a ring, or nesting too
// deep.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "interpreter/budget.h"
#include "interpreter/depth.h"
#include "interpreter/element_types.h"
#include "interpreter/reader.h"
#include "interpreter/symbol_table.h"
#include "interpreter/text_writer.h"
#include "utils/stack.h"

namespace Quarn {

// The value of an expression that was evaluated.
struct Evaluated {
  Operand value;
  // Does the value bear the name that was asked for? An object knows by itself.
  bool is_named = true;
};

// Where an evaluation failed, and how.
struct Diagnosis {
  Failure failure = Failure::kNone;
  Place place = {};
};

class Machine {
 public:
  Machine(State& state, Registries& registries, SymbolTable& symbols)
      : state_(state), registries_(registries), symbols_(symbols), cells_(*this, symbols) {}
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  // The value of a text, bearing `name`. False with messages added, and a diagnosis, when it has
  // none. A name without a value becomes a new abstract symbol if allowed and `name` is empty.
  bool Evaluate(std::string_view text, const s_str& name, bool allows_new, Evaluated& result,
                s_str& error, Diagnosis& diagnosis);
  // The value of a program that was read from a text to be kept; false, and why, when it has none.
  bool Evaluate(const Program& program, std::string_view text, Operand& result, Result& failure);
  // Reads a text to be run any number of times, until something is registered.
  void Read(std::string_view text, Program& program);

  // The value that a reference stands for.
  Answer Follow(Cell& cell);

  // The same, or why it stands for nothing.
  Result Evaluate(Cell& cell);

  // The operators on values; null with messages added when they fail.
  s_refptr<Symbol> ApplyBinary(std::string_view op, s_refptr<Symbol> left, s_refptr<Symbol> right,
                               s_str& error);
  s_refptr<Symbol> ApplyUnary(Code kind, std::string_view op, s_refptr<Symbol> operand,
                              s_str& error);

  // The cell of an expression; null for an empty one.
  CellPtr GetCell(std::string_view expression);
  void PrefetchCell(std::string_view expression) const { cells_.Prefetch(expression); }
  // A reference to an expression; an empty one makes it a null reference.
  s_refptr<Symbol> NewReference(const s_str& name, std::string_view expression);

  // What evaluations may use. The rest is for work that takes long or grows: false when all that is
  // under way has to end.
  Budget& GetBudget() { return budget_; }
  bool Spend(std::uint64_t steps);
  bool IsIdle() const { return depth_.IsIdle(); }
  bool FitsText(std::size_t size);
  // What has ended all; the message about it, after which it is over.
  Failure GetAbort() const { return abort_; }
  s_str TakeAbort();

  // For tests: evaluates each reference whenever it is asked for. Only the time differs: it doubles
  // with each step of a chain.
  void KeepNothing() { keeps_values_ = false; }

 private:
  // What follows an instruction: the next one; another frame; a failure; nothing.
  enum class Step : std::uint8_t { kNext, kSuspended, kFailed, kEnd };

  // How an operand was resolved: to a value; to a null reference, where its expression fails or
  // leads to one; to nothing, where it is a null reference itself.
  enum class Resolved : std::uint8_t { kValue, kNoValue, kNothing };

  // The operands of an operator, described in a message or in the expression of a reference.
  struct Description {
    std::string_view op;
    Code kind = Code::kBinary;
    bool is_deferral = false;
    std::vector<Operand> operands = {};
    std::size_t stage = 0;  // how many types and texts are there
    s_str types[2] = {};
    s_str texts[2] = {};
    std::optional<TextWriter> writer = {};
  };

  // An expression that is being evaluated.
  struct Frame {
    const Program* program = nullptr;
    std::string_view text;
    std::uint32_t next = 0;      // instruction
    std::uint32_t stage = 0;     // of that instruction: how much of it is done
    std::uint32_t operands = 0;  // how many there were before
    std::uint32_t lists = 0;
    const s_str* name = nullptr;
    std::string_view op;      // of an operator that is applied on its own
    CellPtr cell;             // null for a line
    Cell* reader = nullptr;   // the innermost cell under way
    bool has_answer = false;  // to what was asked, in answer_
    bool is_following = false;
    bool is_impure = false;
    Failure failure = Failure::kValue;  // if it fails
    Operand value;           // the resolved left operand, or the reference that is followed
    s_str* error = nullptr;  // of the caller of a line; of a reference, made when there is one
    std::unique_ptr<s_str> own_error;
    std::unique_ptr<Description> description;
  };

  // A list whose elements are being evaluated.
  struct List {
    s_refptr<Elements> elements;
    ElementTypes types;  // unless they are numbers
    bool are_numbers = true;
  };

  // One call from outside. There may be others further down the stack of the process.
  class Entry;

  // Is the evaluation within the limits? If not, it is aborted.
  bool FitsLimits();

  Frame& Top() { return frames_[0]; }
  Frame& PushFrame(const Program& program, std::string_view text, const s_str& name);
  void PopFrame();
  // Whoever is evaluated, if anybody, keeps no value.
  void MarkImpure() {
    if (!frames_.IsEmpty()) Top().is_impure = true;
  }
  // The text stays where it is while types are called.
  s_str& GetError();

  // Drops what the outermost call left, and gives back what grew beyond a megabyte.
  void CleanUp();
  std::size_t GetBytesKept() const;
  void GiveBack();

  // Runs until the frames are as many as before, or a line is at its end. False when that, or what
  // was asked for, failed.
  bool Run(std::size_t base);
  Step RunFrame();
  const Instruction* RunNumbers(const Instruction* at, Frame& frame);
  void UnwindTo(std::size_t base);
  static bool KeepRing(Cell& cell, Cell& awaited) noexcept;
  bool IsPureRing(std::size_t base) const;
  void AddAbort(s_str& error);
  void ReportAbort(s_str& error, s_uint reported, Diagnosis& diagnosis);
  s_str NameRing(Cell& cell);
  Diagnosis Diagnose() const;
  Place GetPlace(const Frame& frame) const;

  // References. Null or false when the answer is still to come, or when all that is under way ends:
  // Stop tells which.
  const Answer* Ask(Cell& cell);
  Step Stop() const { return abort_ == Failure::kNone ? Step::kSuspended : Step::kFailed; }
  bool PushCell(Cell& cell);
  void Read(Cell& cell);
  Step FinishCell(Outcome outcome);
  Step FollowOn();
  Step Deliver(Answer answer);
  bool IsFreshNumber(const Cell* cell) const;
  bool Resolve(const Operand& operand, Operand& value, Resolved& kind);
  bool GetType(const Operand& operand, s_str& type);

  // Instructions.
  Step RunSlowly(const Instruction& instruction);
  Step PushSymbol(const Instruction& instruction);
  bool IsAppliedAtOnce(const Instruction& instruction) const;
  bool IsLookedAtOnly(const Symbol& object, const Instruction& next) const;
  Step FailToFind(std::string_view text, const Instruction& instruction);
  Step WarnAboutSymbol();
  Step PushLiteral(const Instruction& instruction);
  Step PushReference(const Instruction& instruction);
  Step AddElement();
  Step EndList(const Instruction& instruction);
  Step CheckReferences();
  Step FailOnTypes();
  Step Fail(Failure failure, const s_str& message);
  std::string_view TextOf(const Instruction& instruction) const;

  // Operators and functions.
  Step Binary(std::size_t op);
  const RegisteredBinary* FindCommon(std::size_t op, const Operand& left,
                                     const Operand& right) const;
  // Uses the operands up.
  Step Invoke(const RegisteredBinary& entry, Operand& left, Operand& right);
  Step Unary(Code kind, std::size_t op);
  Step Call(const Instruction& instruction);
  bool CallOnNumbers(const Instruction& instruction, Frame& frame);
  bool ResolveArguments(std::size_t count);
  Step CallOverload(const Registries::NamedFunction& function, std::size_t count);
  Step FinishCall(s_refptr<Symbol> result);
  std::string_view GetOp(std::size_t op) {
    return op < kOperators ? kPriorities[op].text : Top().op;
  }
  BinaryOperator FindBody(std::string_view op, const Symbol& left, const Symbol& right);
  UnaryOperator FindBody(Code kind, std::string_view op, const Symbol& operand);
  s_refptr<Symbol> RunBinary(std::string_view op, const s_refptr<Symbol>& left,
                             const s_refptr<Symbol>& right, s_str& error);
  s_refptr<Symbol> RunUnary(Code kind, std::string_view op, const s_refptr<Symbol>& operand,
                            s_str& error);
  s_refptr<Symbol> RunAlone(const Program& program, std::span<const Operand> operands,
                            std::string_view op, s_str& error);

  Step Describe(std::size_t op, Code kind, bool is_deferral);
  bool DescribeOperands(Description& description);
  bool DescribeText(Description& description, const Operand& operand, s_str& text);
  Step FailToMatch(const Description& description);
  Step Defer(const Description& description);

  State& state_;
  Registries& registries_;
  SymbolTable& symbols_;
  Cells cells_;

  Stack<Operand> operands_;
  Stack<Frame> frames_;
  Stack<List> lists_;
  ReaderStorage reader_storage_;
  std::vector<std::unique_ptr<Program>> programs_;  // of lines, to be used again
  std::size_t used_programs_ = 0;
  Program scratch_;  // of the cell that is being read

  Answer answer_;                   // to what the top frame asked
  Failure abort_ = Failure::kNone;  // why the whole evaluation ends
  CellPtr ring_;                    // that was met twice, or is known to lead to one that is
  bool ring_is_known_ = false;
  bool ring_is_nested_ = false;  // in what a type called back
  unsigned int walk_ = 0;
  Depth depth_;
  bool keeps_values_ = true;
  Budget budget_;
};

}  // namespace Quarn
