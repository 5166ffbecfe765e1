// A State over string streams with every built-in type, and what it prints and evaluates.
//   Session session("y\n");         // the answers to the questions it asks
//   session.Type("x=1;x+1");        // "\tDefining Scalar : x = 1\n\tScalar : 2\n"
//   session.Evaluate("x+1");        // "Scalar : 2"
//   session.Evaluate("zz");         // "\tError : Unknown symbol 'zz'"
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "interpreter/state.h"
#include "types/vector.h"

namespace Quarn {

class Session {
 public:
  explicit Session(const std::string& answers = "") : in_(answers), state_(out_, in_) {
    Vector::Register(state_);
  }

  State& GetState() { return state_; }

  // What a line prints.
  std::string Type(const std::string& line) {
    out_.str("");
    state_.ProcessLine(line);
    return out_.str();
  }
  // What the last of several lines prints.
  std::string TypeLast(const std::string& lines) {
    std::istringstream stream(lines);
    std::string output;
    for (std::string line; std::getline(stream, line);) output = Type(line);
    return output;
  }

  // The type and the text of an expression's value, or what went wrong. A warning stands before the
  // value.
  std::string Evaluate(const std::string& expression, const std::string& name = "",
                       bool allow_new_symbol = false) {
    s_str error;
    const s_refptr<Symbol> value = state_.ParseSymbol(name, expression, error, allow_new_symbol);
    if (!value) return error.Get();
    return error.Get() + value->GetType().Get() + " : " + value->ToString().Get();
  }
  // The value itself; its errors are lost.
  s_refptr<Symbol> Parse(const std::string& expression, const std::string& name = "") {
    s_str error;
    return state_.ParseSymbol(name, expression, error, false);
  }

 private:
  std::ostringstream out_;
  std::istringstream in_;
  State state_;
};

// A row of a table of lines: those that are typed into a new session, a newline between two, and
// what the last of them prints.
struct LinesRow {
  std::string lines;
  std::string output;
};
template <std::size_t N>
void ExpectOutput(const LinesRow (&rows)[N]) {
  for (const LinesRow& row : rows)
    EXPECT_EQ(Session().TypeLast(row.lines), row.output) << row.lines;
}

// A row of a table of expressions: one, and what Evaluate says of it.
struct ValueRow {
  std::string expression;
  std::string value;
};
template <std::size_t N>
void ExpectValues(Session& session, const ValueRow (&rows)[N]) {
  for (const ValueRow& row : rows) {
    EXPECT_EQ(session.Evaluate(row.expression), row.value) << row.expression;
  }
}

// A row of a table of expressions whose operator finds no implementation: the operator between the
// types, then between the texts.
struct NoMatchRow {
  std::string expression;
  std::string types;
  std::string texts;
};
template <std::size_t N>
void ExpectNoMatches(Session& session, const NoMatchRow (&rows)[N]) {
  for (const NoMatchRow& row : rows) {
    EXPECT_EQ(session.Evaluate(row.expression),
              "\tError : No match for operator '" + row.types + "' in :\n\t        \t" + row.texts)
        << row.expression;
  }
}

}  // namespace Quarn
