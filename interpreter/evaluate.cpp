// The evaluation of expressions. The meaning is a recursion: cut the text at its top level, split
// it at the operator of lowest priority (the rightmost among equals), evaluate both sides, apply.
// What runs is the same in one pass from left to right: an operator waits until one that binds no
// tighter comes, or the end; then everything to its right is known. So at most one operator of each
// priority waits at a level, a chain of equals is folded as it is read, and every value and failure
// comes in the order of the recursion. Parentheses wait in the same list and cost no recursion
// either.
#include <memory>

#include "interpreter/messages.h"
#include "interpreter/state.h"

namespace Quarn {
namespace {

bool IsParenthesised(std::string_view text) { return text.front() == '(' && text.back() == ')'; }

// Is the piece a leaf with balanced brackets? If not, an evaluation tells what it is.
bool IsLeaf(const Piece& trimmed) {
  return !trimmed.IsEmpty() && trimmed.GetText().front() != '(' && trimmed.HoldsNoOperator();
}

}  // namespace

// One evaluation of one piece, with its share of the workspace.
class Evaluation {
 public:
  Evaluation(State& state, const Piece& piece, const s_str& name, s_str& error,
             bool allow_new_symbol)
      : state_(state),
        work_(state.workspace_),
        name_(name),
        error_(error),
        rest_(piece),
        allow_new_symbol_(allow_new_symbol),
        pending_base_(work_.pending.size()),
        outer_base_(work_.outer.size()),
        values_base_(work_.values.size()) {}
  ~Evaluation() {
    work_.pending.erase(work_.pending.begin() + Offset(pending_base_), work_.pending.end());
    work_.outer.erase(work_.outer.begin() + Offset(outer_base_), work_.outer.end());
    work_.values.erase(work_.values.begin() + Offset(values_base_), work_.values.end());
  }
  Evaluation(const Evaluation&) = delete;
  Evaluation& operator=(const Evaluation&) = delete;

  s_refptr<Symbol> Run();

  // What an evaluation keeps is not on the stack, where it may stand in thousands.
  [[gnu::noinline]] static std::unique_ptr<Evaluation> Make(State& state, const Piece& piece,
                                                            const s_str& name, s_str& error,
                                                            bool allow_new_symbol) {
    return std::make_unique<Evaluation>(state, piece, name, error, allow_new_symbol);
  }
  static void* operator new(std::size_t size) { return Pool::Allocate(size); }
  static void operator delete(void* block, std::size_t size) noexcept { Pool::Free(block, size); }

 private:
  static std::ptrdiff_t Offset(std::size_t base) { return static_cast<std::ptrdiff_t>(base); }

  bool EnterLevel(const Piece& level);
  [[gnu::noinline]] bool OpenParenthesis();
  void CloseParenthesis();
  bool ReadLeaf();
  void ReadOperator(std::uint8_t op);
  std::uint8_t GetNextOperator() const;
  bool IsLastDue(unsigned int next_priority) const;
  bool ApplyDue(unsigned int next_priority);
  bool ApplyLast();
  bool ApplyBinary(std::uint8_t op);
  bool ApplyUnary(std::size_t place, bool has_left);
  void PickUpFolded();
  s_refptr<Symbol> TakeResult();

  // Is the operand all there is? Then its value is the result, and bears the name.
  bool IsWhole() const {
    return outermost_ && operand_.GetBegin() == level_begin_ && operand_.GetEnd() == level_end_;
  }

  State& state_;
  Workspace& work_;
  const s_str& name_;
  s_str& error_;
  Piece rest_;     // what is still to be read of the level
  Piece operand_;  // what was read last: a leaf, parentheses, or nothing between two operators
  // The value behind the last pending operator. Where an operator was applied, it is where the left
  // operand was, which saves moving it back and forth along a chain.
  enum class Current : std::uint8_t { kNone, kRead, kFolded };
  Current current_ = Current::kNone;
  s_refptr<Symbol> left_;          // of an operator that is being applied in its own way
  s_refptr<Symbol> value_;         // what was read
  s_refptr<Symbol> spare_;         // an operand that was used up
  std::uint32_t level_begin_ = 0;  // the level: what the innermost parenthesis holds, or all
  std::uint32_t level_end_ = 0;
  bool outermost_ = true;  // has no parenthesis been opened but around the whole?
  bool allow_new_symbol_;  // only for what stands in no parentheses
  bool is_leaf_ = false;   // is the result a leaf, which named itself?
  const std::size_t pending_base_;
  const std::size_t outer_base_;
  const std::size_t values_base_;
};

bool Evaluation::EnterLevel(const Piece& level) {
  rest_ = level;
  rest_.Trim();
  level_begin_ = rest_.GetBegin();
  level_end_ = rest_.GetEnd();
  if (!rest_.IsEmpty()) return rest_.CheckBrackets(error_);
  AddError(error_, messages::EmptySymbol());
  return false;
}

bool Evaluation::OpenParenthesis() {
  if (IsWhole()) {
    allow_new_symbol_ = false;
    return EnterLevel(operand_.Inside());
  }
  outermost_ = false;
  work_.pending.emplace_back(Pending::kParenthesis, std::uint8_t{0}, false);
  work_.outer.push_back(rest_);
  return EnterLevel(operand_.Inside());
}

// The value of the parentheses becomes an operand of the level around them.
void Evaluation::CloseParenthesis() {
  work_.pending.pop_back();
  rest_ = work_.outer.back();
  work_.outer.pop_back();
}

[[gnu::always_inline]] inline bool Evaluation::ReadLeaf() {
  is_leaf_ = IsWhole();
  const s_str& name = is_leaf_ ? name_ : Symbol::NoName();
  state_.EvaluateLeaf(operand_, name, error_, is_leaf_ && allow_new_symbol_, spare_, value_);
  current_ = Current::kRead;
  return value_ ? true : false;
}

inline void Evaluation::ReadOperator(std::uint8_t op) {
  const auto priority = static_cast<std::uint8_t>(kPriorities[op].priority);
  work_.pending.emplace_back(priority, op, current_ != Current::kNone);
  if (current_ == Current::kRead) work_.values.push_back(std::move(value_));
  current_ = Current::kNone;
  rest_.DropFirst();
}

// The operator at which the reading stopped. REQUIRES: it did not stop at the end.
std::uint8_t Evaluation::GetNextOperator() const {
  return kOperatorOf[static_cast<unsigned char>(rest_.GetText().front())];
}

// Does the last operator that waits at this level bind at least as tightly as what comes next?
inline bool Evaluation::IsLastDue(unsigned int next_priority) const {
  return work_.pending.size() != pending_base_ && work_.pending.back().priority >= next_priority;
}

// Operands may be references, and what those evaluate may come here again: see leaf.cpp about the
// stack.
[[gnu::always_inline]] inline bool Evaluation::ApplyLast() {
  const std::uint8_t op = work_.pending.back().op;
  const bool has_left = work_.pending.back().has_left;
  work_.pending.pop_back();
  if (current_ == Current::kFolded) PickUpFolded();
  if (!has_left || current_ == Current::kNone) return ApplyUnary(op, has_left);
  current_ = Current::kFolded;
  s_refptr<Symbol>& left = work_.values.back();
  const BinaryImplementation* known = state_.FindRemembered(op, *left, *value_);
  if (!known || !known->in_place) return ApplyBinary(op);
  known->in_place(left, value_);
  spare_.Swap(value_);
  if (value_) value_ = {};
  return true;
}

[[gnu::always_inline]] inline bool Evaluation::ApplyDue(unsigned int next_priority) {
  while (IsLastDue(next_priority)) {
    if (!ApplyLast()) return false;
  }
  return true;
}

[[gnu::noinline]] bool Evaluation::ApplyBinary(std::uint8_t op) {
  left_ = std::move(work_.values.back());
  state_.ApplyBinary(op, left_, value_, error_);
  if (!left_) return false;
  if (!left_->GetName().IsEmpty()) left_->SetName(Symbol::NoName());
  work_.values.back() = std::move(left_);
  value_ = {};
  return true;
}

[[gnu::noinline]] bool Evaluation::ApplyUnary(std::size_t place, bool has_left) {
  const std::string_view op = kPriorities[place].text;
  if (current_ != Current::kNone) {
    value_ = state_.ApplyRightUnaryOperator(op, std::move(value_), error_);
  } else if (has_left) {
    PickUpFolded();
    value_ = state_.ApplyLeftUnaryOperator(op, std::move(value_), error_);
  } else {
    AddError(error_, messages::MissingOperands(op));
    return false;
  }
  if (!value_) return false;
  if (!value_->GetName().IsEmpty()) value_->SetName(Symbol::NoName());
  return true;
}

// Makes the last value of the list the one that was read last.
void Evaluation::PickUpFolded() {
  value_ = std::move(work_.values.back());
  work_.values.pop_back();
  current_ = Current::kRead;
}

s_refptr<Symbol> Evaluation::TakeResult() {
  if (current_ == Current::kFolded) PickUpFolded();
  if (!is_leaf_ && !name_.IsEmpty()) value_->SetName(name_);
  return std::move(value_);
}

s_refptr<Symbol> Evaluation::Run() {
  if (!EnterLevel(rest_)) return {};
  while (true) {
    // Blanks between two operators are nothing: they trim away from whichever side they fall to.
    rest_.CutBefore(CharacterClass::kOperator, operand_);
    operand_.Trim();
    if (!operand_.IsEmpty()) {
      if (IsParenthesised(operand_.GetText())) {
        if (!OpenParenthesis()) return {};
        continue;
      }
      if (!ReadLeaf()) return {};
    }
    while (rest_.IsEmpty()) {
      if (!ApplyDue(kLowestPriority)) return {};
      if (work_.outer.size() == outer_base_) return TakeResult();
      CloseParenthesis();
    }
    const std::uint8_t op = GetNextOperator();
    if (!ApplyDue(kPriorities[op].priority)) return {};
    ReadOperator(op);
  }
}

s_refptr<Symbol> State::Evaluate(const Piece& piece, const s_str& name, s_str& error,
                                 bool allow_new_symbol) {
  const Depth::Level level(depth_);
  if (!level.IsGranted()) return {};
  // Most arguments and elements are a leaf each, as many lines are, and need no more than this.
  const Piece trimmed = piece.Trimmed();
  if (IsLeaf(trimmed)) {
    s_refptr<Symbol> spare, value;
    EvaluateLeaf(trimmed, name, error, allow_new_symbol, spare, value);
    return value;
  }
  return Evaluation::Make(*this, piece, name, error, allow_new_symbol)->Run();
}

s_refptr<Symbol> State::EvaluateText(std::string_view text, const s_str& name, s_str& error,
                                     bool allow_new_symbol) {
  if (depth_.IsOutside()) {
    return RunOutermost(error, [&] { return EvaluateText(text, name, error, allow_new_symbol); });
  }
  if (text.size() > Source::kLongest) {
    AddError(error, messages::TooLong());
    return {};
  }
  const Source source(text, workspace_.brackets);
  return Evaluate(Piece(source), name, error, allow_new_symbol);
}

// Whatever failed on the way up failed for this one reason.
s_refptr<Symbol> State::ReportDepth(s_str& error, s_uint reported) {
  error = error.ExtractCount(0U, reported);
  AddError(error, messages::NestedTooDeeply());
  return {};
}

s_refptr<Symbol> State::EvaluateSilently(std::string_view text) {
  // Of its own, since what is evaluated may evaluate silently in its turn.
  s_str unheard;
  return EvaluateText(text, Symbol::NoName(), unheard);
}

s_refptr<Symbol> State::ParseSymbol(const s_str& name, s_str expression, s_str& error,
                                    s_bool allow_new_symbol) {
  return EvaluateText(expression.GetView(), name, error, allow_new_symbol ? true : false);
}

}  // namespace Quarn
