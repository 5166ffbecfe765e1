// Reader turns the text of an expression into a Program. It is the one place that knows the
// grammar. Nothing is evaluated; the literal tests of types are asked here, once.
//
// The meaning of an expression is a recursion: cut the text at its top level, split it at the
// operator of lowest priority (the rightmost among equals), evaluate both sides, apply. The reader
// goes once from left to right and gives the same result: an operator is pending until one follows
// that binds no tighter, or the end. So at most one operator of each priority is pending at a
// level, and a mistake of form becomes an instruction at the very place where the recursion would
// meet it. Since nothing after it is ever evaluated, reading ends there.
//
// Levels (parentheses, arguments, elements, an indexed object and its index) are kept on an
// explicit stack, and the text is never copied: any nesting is read in linear time.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "interpreter/bracket_index.h"
#include "interpreter/limits.h"
#include "interpreter/program.h"
#include "interpreter/registries.h"
#include "utils/stack.h"

namespace Quarn {

class SymbolTable;

// Storage that readers share; like the indexes in it, they are destroyed in reverse order of
// construction.
struct ReaderStorage {
  // An operator whose right operand is still to be read.
  struct Pending {
    std::uint8_t priority;
    std::uint8_t op;
    bool has_left;
    std::uint32_t position;
  };

  enum class LevelKind : std::uint8_t {
    kWhole,
    kParentheses,
    kArguments,
    kElements,
    kObject,
    kIndex
  };

  // A stretch of the text that is read as an expression. Of a list it is one part after the other.
  struct Level {
    std::uint32_t at;  // what is still to be read of it
    std::uint32_t end;
    std::uint32_t bracket;  // the first bracket that opens at or after `at`, by its place
    LevelKind kind;
    bool has_operand;  // is there an operand after the last pending operator?
    bool is_whole;     // does nothing stand around it but parentheses?
    bool allows_new;   // and not even those
    bool is_between_parts;
    bool is_whole_leaf;  // is the whole expression this list?
    // At most one of each priority.
    std::uint8_t pending_count;
    Pending pending[kPriorityCount];
    std::uint32_t position;  // of what opened it
    std::uint32_t list_at;   // the rest of a list, or the index that follows an object
    std::uint32_t list_end;
    std::uint32_t list_bracket;  // the first bracket that opens at or after `list_at`
    std::uint32_t count;         // of arguments read
    union {
      std::size_t function;  // its place in the registries
      const TypeRow* type;
    };
  };

  std::vector<Bracket> brackets;
  Stack<Level> levels;

  std::size_t GetBytes() const { return brackets.size() * sizeof(Bracket) + levels.GetBytes(); }
  std::size_t GetBytesKept() const {
    return brackets.capacity() * sizeof(Bracket) + levels.GetBytesKept();
  }
  void GiveBack();
};

// How a text is to be read.
struct ReadOptions {
  // May the whole expression be the name of a new abstract symbol?
  bool allows_new = false;
  // Is the text known to hold no operator and balanced brackets, at its top level?
  bool is_leaf = false;
  // Where symbols are looked up when the program is kept; they then become kName.
  SymbolTable* names = nullptr;
  // The most levels of brackets.
  std::uint64_t nesting = Limits::kNone;
  // The stretch of the text that is read, and the index of the brackets of all of it. Without one,
  // the whole text is read.
  const BracketIndex* brackets = nullptr;
  std::uint32_t begin = 0;
  std::uint32_t end = 0;
};

class Reader {
 public:
  // What the last instruction leaves, which decides who names it: an operator's result is named by
  // the evaluation, a literal or symbol bears its name already, a function's result keeps its own.
  enum class Root : std::uint8_t { kOperation, kLeaf, kCall };

  // The text and the options must outlive the reader, and the registries must not change
  // meanwhile.
  // REQUIRES: fewer than 2^32 - 1 characters.
  Reader(const Registries& registries, ReaderStorage& storage, std::string_view text,
         const ReadOptions& options);
  Reader(const Registries&, ReaderStorage&, std::string_view, ReadOptions&&) = delete;
  ~Reader();
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  // Adds instructions until the text is read or there are about `most`, and ends them by kEnd or
  // kFail. True when there is more to read, which goes on from an empty `code`. A program that is
  // kept is read as a whole, and pauses as often.
  bool Read(Program& program, std::size_t most);
  // Of what was read, once that is all.
  Root GetRoot() const { return root_; }

 private:
  using Level = ReaderStorage::Level;
  using LevelKind = ReaderStorage::LevelKind;
  using Pending = ReaderStorage::Pending;
  // What follows a step: the rest of the level whose operand was read, the first operand of what
  // was opened, nothing since all is read, or nothing since there is a mistake.
  enum class Step : std::uint8_t { kRest, kOperand, kDone, kFailed };

  Level& Top() { return storage_.levels[0]; }
  char At(std::uint32_t position) const { return *(text_.data() + position); }
  std::uint32_t ToPosition(const char* at) const {
    return static_cast<std::uint32_t>(at - text_.data());
  }
  std::string_view Text(std::uint32_t begin, std::uint32_t end) const {
    return {text_.data() + begin, end - begin};
  }

  // Levels.
  bool IsTooDeep();
  Level& Open(LevelKind kind, std::uint32_t position);
  bool Enter(Level& level, std::uint32_t begin, std::uint32_t end, std::uint32_t bracket);
  bool EnterChecked(Level& level, std::uint32_t begin, std::uint32_t end, std::uint32_t bracket);
  bool IsBetweenPartners(std::uint32_t begin, std::uint32_t end, std::uint32_t bracket) const;
  bool CheckBrackets(std::uint32_t begin, std::uint32_t end, std::uint32_t bracket) {
    return brackets_.IsPlain() || CheckEachBracket(begin, end, bracket);
  }
  bool CheckEachBracket(std::uint32_t begin, std::uint32_t end, std::uint32_t bracket);
  Step OpenParentheses(std::uint32_t begin, std::uint32_t end, std::uint32_t bracket);
  Step OpenList(Level& level, std::uint32_t begin, std::uint32_t end, std::uint32_t bracket);
  Step Close();
  Step NextPart();
  bool ReadNumberPart(Level& level);
  Step EndList(const Level& level);

  // Operands and operators.
  Step ReadOperands();
  NumberPrefix ReadNumber(std::uint32_t begin, std::uint32_t end) const;
  Step ReadOther(Level& level, std::uint32_t begin);
  Step ReadRest();
  bool ReadOperator(Level& level, std::uint32_t at);
  Step ReadEnd();
  bool ApplyDue(Level& level, unsigned int next_priority);
  bool ApplyToOne(Level& level, const Pending& operation);
  bool IsWhole(const Level& level) const;

  // What stands between operators and is not in parentheses.
  Step ReadLeaf(std::uint32_t begin, std::uint32_t end, std::uint32_t bracket);
  Step ReadLiteral(const TypeRow& type, std::uint32_t begin, std::uint32_t end,
                   std::uint32_t bracket);
  void ReadSymbol(std::uint32_t begin, std::uint32_t end, bool is_whole);
  Step ReadCall(std::uint32_t begin, std::uint32_t end, std::uint32_t open, std::uint32_t bracket);
  Step ReadIndexing(std::uint32_t begin, std::uint32_t open, std::uint32_t close,
                    std::uint32_t bracket);
  Step ReadIndex(std::uint32_t open, std::uint32_t close, std::uint32_t bracket);
  bool IsPlainName(std::string_view text) const;
  bool FailAmbiguous(const Registries::LiteralStart& start, std::uint32_t begin, std::uint32_t end);

  std::uint32_t Skip(std::uint32_t begin, std::uint32_t end, std::uint32_t& bracket,
                     CharacterClass stop) const;
  std::uint32_t SkipBlanks(std::uint32_t begin, std::uint32_t end) const;
  std::uint32_t FindBracket(std::uint32_t bracket, std::uint32_t position) const;
  std::uint32_t FindListEnd(std::uint32_t open, std::uint32_t bracket, std::uint32_t end) const;
  std::uint32_t FindNext(char c, std::uint32_t begin, std::uint32_t end);

  Instruction& Emit(Code code, std::uint32_t position) {
    EmitNumber(code, position, 0);
    return program_->code.back();
  }
  void EmitNumber(Code code, std::uint32_t position, double number) {
    program_->code.push_back({.code = code, .position = position, .number = number});
  }
  void EmitBinary(std::uint8_t op, std::uint32_t position);
  void EmitElement();
  bool Fail(const s_str& message, std::uint32_t begin, std::uint32_t end,
            Failure failure = Failure::kForm);

  const Registries& registries_;
  ReaderStorage& storage_;
  const std::string_view text_;
  const ReadOptions& options_;
  bool is_leaf_;  // until the first operand
  const std::size_t level_base_;
  const BracketIndex own_brackets_;  // of nothing, when the text has one already
  const BracketIndex& brackets_;
  const std::uint32_t begin_;
  const std::uint32_t end_;
  Program* program_ = nullptr;
  Root root_ = Root::kOperation;
  std::size_t most_ = 0;
  bool is_begun_ = false;
  // The next "(", "[" and "]" from where they were asked for last; reading goes only forward.
  struct Found {
    std::uint32_t from = 1;
    std::uint32_t position = 0;
  };
  Found next_[3];
};

}  // namespace Quarn
