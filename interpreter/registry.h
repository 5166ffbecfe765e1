// What a type hands to the interpreter: the shapes of its callables, and the rows in which they
// come. No code. A type fills rows and passes them to the Add operations of State; see types/ for
// models.
#pragma once

#include <functional>
#include <map>
#include <string_view>

#include "interpreter/symbol.h"
#include "utils/s_ctnr.h"

namespace Quarn {

class Piece;
class State;

// Arguments, results, elements: any list of values.
using Values = s_ctnr<s_refptr<Symbol>>;

// A new value of the type that bears the name and is not initialised.
using Creator = s_refptr<Symbol> (*)(const s_str& name);

// Is this text, without blanks around it, a literal of the type?
using LiteralTest = s_bool (*)(const s_str& text);
// Builds the value of a literal; a failure gives null and adds its message to the error text.
using TextConstructor = s_refptr<Symbol> (*)(State&, const s_str& name, const s_str& text,
                                             s_str& error);

// Both at once for a text that still stands in its line, which is spared the copy, and the second
// search for brackets where a literal holds expressions. False when the text is no literal;
// otherwise `value`, which comes in as null, is what the constructor would have given, null again
// for a failure. Must agree with the two above. `spare` is null, or a value that nothing uses any
// more, which may become the result if nobody else holds it.
using LiteralInPlace = bool (*)(State&, const s_str& name, const Piece& piece, s_str& error,
                                s_refptr<Symbol>& spare, s_refptr<Symbol>& value);

// Operators get resolved operands of exactly the types of their row, and return a new unnamed
// value; null, with a message added to the error text, is a failure.
using UnaryOperator = std::function<s_refptr<Symbol>(s_refptr<Symbol> operand, s_str& error)>;
using BinaryOperator =
    std::function<s_refptr<Symbol>(s_refptr<Symbol> left, s_refptr<Symbol> right, s_str& error)>;

// A binary operator that cannot fail and leaves its result where its left operand was, as the
// arithmetic of numbers does. In a chain of them, no value is passed on and none is made: the
// evaluator knows one that it finds in a BinaryOperator, and calls it directly.
struct InPlaceOperator {
  // Makes `left` the unnamed result: the same object, made over, when nobody else holds it. Leaves
  // `right`.
  using Body = void (*)(s_refptr<Symbol>& left, const s_refptr<Symbol>& right);

  // As a BinaryOperator.
  s_refptr<Symbol> operator()(s_refptr<Symbol> left, const s_refptr<Symbol>& right, s_str&) const {
    body(left, right);
    return left;
  }

  Body body;  // what it does
};

// Functions append their results and return true, or return false with a message added.
using Function =
    std::function<s_bool(State&, const Values& arguments, Values& results, s_str& error)>;

// A type, for State::AddType.
struct TypeRow {
  s_str name;  // as GetType returns it
  // How values of the type are made; see the callables above.
  Creator create;
  LiteralTest is_literal = nullptr;  // null: the type has no literals
  TextConstructor create_from = nullptr;
  LiteralInPlace build_in_place = nullptr;  // null: the text is copied
  // The characters with which literals begin; other texts are not looked at. Empty: any.
  s_str literal_starts = {};
};

// An operator with one operand, for State::AddRightUnary or State::AddLeftUnary.
struct UnaryRow {
  // One of the operators of the language, which a build with assertions checks.
  s_str op;
  s_str operand;  // type
  UnaryOperator body;
};

// An operator between two operands, for State::AddBinary.
struct BinaryRow {
  s_str left;           // type
  s_str op;             // one of the operators of the language
  s_str right;          // type
  BinaryOperator body;  // what it does
};

// A function for one list of argument types, for State::AddFunctions.
struct FunctionRow {
  s_str name;               // letters, digits and "_" as a user writes them
  s_ctnr<s_str> arguments;  // types; {""} for a call with empty parentheses
  Function body;            // what it does
};

// The order of registries: by text, asked with a text of any kind.
struct TextLess {
  // Any kind of text, as a view.
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

}  // namespace Quarn
