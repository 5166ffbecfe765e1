// Text as the language sees it: blanks, names, numbers, and the cut of an expression at its top
// level. Every function is plain, knows no values, and is written for being checked by eye.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Quarn::model {

// Removes blanks at both ends. A tab is no blank here.
std::string Trim(const std::string& text);

// The texts between the delimiters. Empty ones are dropped, except the last, which always stays.
std::vector<std::string> Cut(const std::string& text, char delimiter);

// "nan", "inf+", "inf-", else 15 significant digits.
std::string NumberText(double value);

// What a stream reads from the start of the text; 0 when it can read nothing.
double ReadNumber(const std::string& text);

// Is the text a number literal? No digit is asked for: ".", "e5" and "" are.
bool IsNumber(const std::string& text);

// Only ASCII letters and digits; the empty text passes.
bool IsAlphanumeric(const std::string& text);

// Appends a message; a line break goes first when there is a message already.
void AddError(std::string& error, const std::string& message);

// 0 for a text that is no operator; a larger number binds tighter.
int PriorityOf(const std::string& text);

enum class Separator { kOperator, kComma };

// Cuts the text outside of all brackets. Operators become pieces of their own, commas are dropped;
// pieces are not trimmed and never empty. False, with one message added, when a bracket is wrong.
bool CutTopLevel(const std::string& text, Separator separator, std::vector<std::string>& pieces,
                 std::string& error);

// The texts of some pieces, from `start` up to `end`.
std::string Glue(const std::vector<std::string>& pieces, std::size_t start, std::size_t end);

// The place of the operator that is applied last: the rightmost of those that bind loosest. One of
// several pieces is always an operator.
std::size_t ChosenOperator(const std::vector<std::string>& pieces);

// Does the first "]" stand after the first "["?
bool HasIndexing(const std::string& text);

}  // namespace Quarn::model
