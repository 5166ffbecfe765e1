// Every text that the interpreter and the types report, one function each, and the rule by which
// they are collected; values are shown by command lines, and the help stands in help.cpp. Errors in
// what a user types are never exceptions: an operation that fails returns an empty value and adds
// its message to the caller's error text.
#pragma once

#include <string_view>

#include "interpreter/add_error.h"
#include "interpreter/embedding.h"
#include "utils/s_ctnr.h"
#include "utils/s_str.h"

namespace Quarn::messages {

// Brackets; `bracket` is one of ( < [ and ) > ].
s_str TooManyClosing(char bracket);
s_str Unterminated(char bracket);

// Expressions.
s_str EmptySymbol();
s_str AmbiguousConstructor(std::string_view text, const s_ctnr<s_str>& types);
s_str NoOperatorFound(std::string_view expression);
s_str MissingOperands(std::string_view op);
s_str UnknownSymbol(std::string_view name);
s_str UndefinedFunction(std::string_view name);
s_str NoMatchingFunction(const s_str& name, const s_str& signature, const s_ctnr<s_str>& overloads);
s_str NotOneReturnValue();
s_str EmptyIndex();
s_str IndexOnNothing();
// Of memory, or of what a host has set.
s_str LimitReached(Failure limit);
s_str EndlessFactorial(const s_str& number);
s_str EndlessIndex();
s_str LeadsBackToItself(std::string_view expression);  // of a reference in a ring
s_str TooLong();
s_str SymbolAssignedToSymbol();  // a warning

// Operators without an implementation for their operands: the types, then the operands' texts.
s_str NoBinaryMatch(std::string_view op, const s_str& left_type, const s_str& right_type,
                    const s_str& left, const s_str& right);
s_str NoRightUnaryMatch(std::string_view op, const s_str& type, const s_str& operand);
s_str NoLeftUnaryMatch(std::string_view op, const s_str& type, const s_str& operand);

// Command lines.
s_str LastResultNotAssignable();
s_str OnlyAlphanumericNames(std::string_view name);
s_str UnknownType(std::string_view type);

// What a host program asks for.
s_str NameOutOfReach(std::string_view name);
s_str NoValueToSet(std::string_view name);

// What command lines answer to deletions; the first is a question.
s_str EraseAllSymbols();
s_str AllSymbolsErased();
s_str SymbolErased(std::string_view type, std::string_view name);
s_str IsUndefined(std::string_view name);

// Vectors; `verb` says what cannot be done with two of different lengths.
s_str NonHomogeneous(const s_str& first_type, const s_str& second_type);
s_str DifferentLengths(std::string_view verb, s_uint left, s_uint right);
s_str OnlyFor3Vectors();
s_str CannotIndexEmpty();

}  // namespace Quarn::messages
