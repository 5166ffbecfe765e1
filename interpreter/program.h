// Program is what an expression means: flat instructions in the order of evaluation, each with the
// position in the text that it came from. It holds no values of symbols, so that it can be run any
// number of times; it is good until a type, an operator or a function is registered.
//   1+2*x   Number 1, Number 2, Symbol x *, Binary +
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "interpreter/embedding.h"
#include "utils/pool_allocator.h"
#include "utils/s_str.h"

namespace Quarn {

class Cell;
class SymbolTable;
struct Name;
struct TypeRow;

// Operands are pushed on the machine's operand stack; operators take theirs from there.
enum class Code : std::uint8_t {
  kEnd,            // of the program, or of the part of it that was read so far
  kFail,           // a syntax error, where the evaluation meets it
  kNumber,         // pushes a number
  kSymbol,         // pushes a copy of a symbol that is looked up by its text
  kName,           // the same, known by its place in the symbol table
  kLiteral,        // pushes what a type makes of a text
  kReference,      // pushes a reference to the expression in a text
  kCell,           // the same, with the cell of the expression, which the program shares
  kBinary,         // replaces two operands
  kBinaryNumber,   // the same with a number as the right one
  kBinaryName,     // the same with a symbol as the right one, known by its place
  kLeftUnary,      // replaces one operand
  kRightUnary,     // the same
  kBeginList,      // begins a list of elements
  kElement,        // takes an operand as the next element
  kNumberElement,  // adds a number to the list
  kEndList,        // pushes the value of the list
  kCall,           // replaces the arguments of a function
  kPause,          // after many instructions: checks for limits and interruptions
};

struct Part {
  // Of the text (kSymbol, kLiteral, kReference), or the number of arguments (kCall).
  std::uint32_t length;
  // kLiteral: the place of the type in Program::types; kCall: that of the function in the
  // registries.
  std::uint32_t id;
};

struct Instruction {
  Code code;
  std::uint8_t op = 0;      // of the operators: place in kPriorities
  bool is_whole = false;    // of kSymbol, kName, kLiteral, kReference: is it the whole expression?
  bool allows_new = false;  // of kSymbol, kName: may it become a new abstract symbol?
  std::uint32_t position;   // in the text
  union {
    double number;        // kNumber, kBinaryNumber, kNumberElement
    Name* name;           // kName, kBinaryName
    const TypeRow* type;  // kEndList
    Cell* cell;           // kCell
    Part part;            // the others
  };
};
static_assert(sizeof(Instruction) == 16);

struct Program {
  // What few programs need.
  struct Extra {
    std::vector<const TypeRow*> types;  // of literals
    // Of kFail, which is always the last instruction.
    s_str message;
    Place place;
    Failure failure = Failure::kForm;

    void Clear() {
      types.clear();
      message.Clear();
      failure = Failure::kForm;
    }
  };
  Extra& GetExtra() {
    if (!extra) extra = std::make_unique<Extra>();
    return *extra;
  }

  // Makes it empty.
  void Clear() {
    code.clear();
    if (extra) extra->Clear();
  }
  // Releases the names and cells that the instructions hold, and makes it empty.
  void Release(SymbolTable& names) {
    if (!code.empty() || extra) ReleaseInstructions(names);
  }

  std::vector<Instruction, PoolAllocator<Instruction>> code;
  std::unique_ptr<Extra> extra;

 private:
  void ReleaseInstructions(SymbolTable& names);
};

}  // namespace Quarn
