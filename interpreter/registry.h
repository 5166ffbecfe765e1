// What a type hands to the interpreter: the shapes of its callables, and the rows in which they
// come. No code. A type fills rows and passes them to the Add operations of State; see types/ for
// models.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string_view>

#include "../utils/s_ctnr.h"
#include "symbol.h"

namespace Quarn {

class Elements;
class Operand;
class State;

// Arguments, results, elements: any list of values.
using Values = s_ctnr<s_refptr<Symbol>>;

// A new value of the type that bears the name and is not initialised.
using Creator = s_refptr<Symbol> (*)(const s_str& name);

// Is this text, without blanks around it, a literal of the type? Asked once for each text that is
// neither a number of the usual form nor holds an operator, when an expression is read.
using LiteralTest = s_bool (*)(std::string_view text);
// Builds the value of a literal; a failure gives null and adds its message to the error text.
using TextConstructor = s_refptr<Symbol> (*)(State&, const s_str& name, const s_str& text,
                                             s_str& error);

// Two ways for literals whose parts the interpreter can read by itself; REQUIRES, for both: they
// agree with the literal test and the constructor from text.
// A number that a text begins with, and where it ends; null when there is none.
struct NumberPrefix {
  const char* end;
  double number;
};
// Reads a number of the usual form that begins at `begin`, as far as it goes. What follows a number
// decides whether the text is one.
using NumberReader = NumberPrefix (*)(const char* begin, const char* end);
// The value of a literal in brackets, whose elements are expressions of one type.
using ListConstructor = s_refptr<Symbol> (*)(const s_str& name, s_refptr<Elements> elements);

// Operators get resolved operands of exactly the types of their row, and return a new unnamed
// value; null, with a message added to the error text, is a failure.
using UnaryOperator = std::function<s_refptr<Symbol>(s_refptr<Symbol> operand, s_str& error)>;
using BinaryOperator =
    std::function<s_refptr<Symbol>(s_refptr<Symbol> left, s_refptr<Symbol> right, s_str& error)>;

// Functions append their results and return true, or return false with a message added.
using Function =
    std::function<s_bool(State&, const Values& arguments, Values& results, s_str& error)>;

// The same on plain numbers, for operators and functions on Scalars that neither fail nor need the
// State: no object is made for them.
using UnaryOnNumbers = double (*)(double);
using BinaryOnNumbers = double (*)(double, double);
// The same on operands, for operators of the types of this library: nothing when it fails.
using BinaryOnOperands = std::optional<Operand> (*)(State&, const Operand& left,
                                                    const Operand& right, s_str& error);
// By how many arguments it takes; the others are null.
struct FunctionOnNumbers {
  double (*of_none)() = nullptr;
  UnaryOnNumbers of_one = nullptr;
  BinaryOnNumbers of_two = nullptr;
};

// Pure: the same result for the same arguments, and no side effects. A reference that called it may
// keep its value until something that it read changes.
enum class Purity : bool { kImpure, kPure };

// A type, for State::AddType.
struct TypeRow {
  s_str name;  // as GetType returns it
  // How values of the type are made; see the callables above.
  Creator create = nullptr;
  LiteralTest is_literal = nullptr;  // null: the type has no literals
  TextConstructor create_from = nullptr;
  // The characters with which literals begin; other texts are not looked at. Empty: any.
  s_str literal_starts = {};
  NumberReader read_number = nullptr;
  ListConstructor create_list = nullptr;
  // Is a literal one character and an expression, which a reference keeps?
  bool keeps_expression = false;
  Purity purity = Purity::kPure;  // of the constructor from text
};

// An operator with one operand, for State::AddRightUnary or State::AddLeftUnary.
struct UnaryRow {
  s_str op;       // one of the operators of the language
  s_str operand;  // type
  UnaryOperator body;
  UnaryOnNumbers on_numbers = nullptr;
  Purity purity = Purity::kPure;
};

// An operator between two operands, for State::AddBinary.
struct BinaryRow {
  s_str left;   // type
  s_str op;     // one of the operators of the language
  s_str right;  // type
  BinaryOperator body;
  BinaryOnNumbers on_numbers = nullptr;
  BinaryOnOperands on_operands = nullptr;
  Purity purity = Purity::kPure;
};

// A function for one list of argument types, for State::AddFunctions.
struct FunctionRow {
  s_str name;               // letters, digits and "_" as a user writes them
  s_ctnr<s_str> arguments;  // types; {""} for a call with empty parentheses
  Function body;
  FunctionOnNumbers on_numbers = {};
  // Unlike operators, functions must say so.
  Purity purity = Purity::kImpure;
};

// A registered callable, with the purity of its row.
struct RegisteredUnary {
  UnaryOperator body;
  UnaryOnNumbers on_numbers;
  Purity purity;
};
struct RegisteredBinary {
  BinaryOperator body;
  BinaryOnNumbers on_numbers;
  BinaryOnOperands on_operands;
  Purity purity;
};
struct RegisteredFunction {
  Function body;
  FunctionOnNumbers on_numbers;
  Purity purity;
};

// The order of registries: by text, asked with a text of any kind.
struct TextLess {
  using is_transparent = void;
  static std::string_view View(const s_str& text) { return text.GetView(); }
  static std::string_view View(std::string_view text) { return text; }
  static std::string_view View(const char* text) { return text; }
  template <class A, class B>
  bool operator()(const A& a, const B& b) const {
    return View(a) < View(b);
  }
};
// What is found by name, in ascending order.
template <class T>
using Registry = std::map<s_str, T, TextLess>;

// Operators by their text, then by the types of their operands from left to right; functions by
// name, then by signature: "(Scalar, Scalar)".
using UnaryRegistry = Registry<Registry<RegisteredUnary>>;
using BinaryRegistry = Registry<Registry<Registry<RegisteredBinary>>>;
using FunctionRegistry = Registry<Registry<RegisteredFunction>>;

}  // namespace Quarn
