#include <cstddef>
#include <cstdlib>
#include <deque>
#include <limits>
#include <string>
#include <utility>

#include "tests/model/model.h"
#include "tests/model/model_frame.h"
#include "tests/model/model_help.h"
#include "tests/model/model_text.h"

namespace Quarn::model {
namespace {

// CheckName: false, with one message added, for a name that nothing may be stored under. The empty
// name has no character to refuse.
bool CheckName(const std::string& name, std::string& error) {
  if (name == "_") {
    AddError(error, "\tError : Reference to last result '_' is not assignable");
    return false;
  }
  if (!IsAlphanumeric(name)) {
    AddError(error, "\tError : Only alphanumeric names are allowed for symbols, in '" + name + "'");
    return false;
  }
  return true;
}

ValuePtr NewOfType(const std::string& type, const std::string& name) {
  if (type == "Symbol") return NewSymbol(name);
  if (type == "Scalar") return NewScalar(name, std::numeric_limits<double>::quiet_NaN());
  if (type == "Vector") return NewVector(name, {});
  if (type == "Reference") return NewReference(name, "");
  return nullptr;
}

}  // namespace

Model::Model() : Model([] { return std::rand(); }) {}

Model::Model(Random random) : random_(std::move(random)) { ForgetLast(); }

std::string Model::Run(const std::string& line, std::deque<std::string>& answers) {
  output_.clear();
  for (const std::string& piece : Cut(line, ';')) {
    levels_ = 0;
    work_ = 0;
    RunPiece(piece, answers);
  }
  return output_;
}

// The signs are looked for in the whole piece, wherever they stand, before its first character is.
void Model::RunPiece(const std::string& piece, std::deque<std::string>& answers) {
  if (piece.empty() || piece.substr(0, 2) == "//") return;
  const std::size_t none = std::string::npos;
  const std::size_t equal = piece.find('=');
  const std::size_t colon = piece.find(':');
  const std::size_t ampersand = piece.find('&');
  if (equal != none && colon != none && colon + 1 == equal) return;
  if (equal != none && ampersand != none && ampersand + 1 == equal) {
    return DefineReference(Trim(piece.substr(0, ampersand)), piece.substr(equal + 1));
  }
  if (equal != none) return Assign(Trim(piece.substr(0, equal)), piece.substr(equal + 1));
  if (colon != none) return Declare(Trim(piece.substr(0, colon)), Trim(piece.substr(colon + 1)));
  if (piece[0] == '~') return Delete(piece.substr(1), answers);
  if (piece[0] == '?') return Query(piece.substr(1));
  Calculate(piece);
}

void Model::DefineReference(const std::string& name, const std::string& expression) {
  if (!CheckTarget(name)) return;
  Define(name, "Reference", NewReference(name, expression));
}

void Model::Assign(const std::string& name, const std::string& expression) {
  if (!CheckTarget(name)) return;
  std::string error;
  const ValuePtr value = EvaluateCommand(name, expression, error, false);
  // A warning alone is a refusal too.
  if (!error.empty()) return Print(error + "\n");
  if (value) Define(name, OwnType(value->kind), value);
}

void Model::Declare(const std::string& name, const std::string& type) {
  if (!CheckTarget(name)) return;
  const ValuePtr value = NewOfType(type, name);
  if (!value) return Print("\tError : Unknown type '" + type + "'\n");
  Define(name, type, value);
}

void Model::Delete(const std::string& name, std::deque<std::string>& answers) {
  const auto symbol = symbols_.find(name);
  if (name.empty()) {
    EraseAll(answers);
  } else if (symbol == symbols_.end()) {
    Print("\t'" + name + "' is undefined\n");
  } else {
    Print("\t" + ShownType(symbol->second) + " '" + name + "' erased\n");
    symbols_.erase(symbol);
  }
  ForgetLast();
}

void Model::EraseAll(std::deque<std::string>& answers) {
  Print("\tWarning : This command will erase all symbols.\n");
  Print("\t          Are you sure ? ([y|Enter]/n) ");
  std::string answer;
  if (!answers.empty()) {
    answer = answers.front();
    answers.pop_front();
  }
  if (!answer.empty() && answer != "y" && answer != "Y") return;
  symbols_.clear();
  Print("\tAll symbols erased\n");
}

// A query that succeeds forgets the last result, one that fails keeps it.
void Model::Query(const std::string& name) {
  if (name.empty()) {
    Print(HelpScreen());
    return ForgetLast();
  }
  const auto symbol = symbols_.find(name);
  if (symbol == symbols_.end()) return Print("\tError : Unknown symbol '" + name + "'\n");
  const std::string type = ShownType(symbol->second);
  Print("\t" + type + " : " + ShownText(symbol->second) + "\n");
  ForgetLast();
}

void Model::Calculate(const std::string& expression) {
  std::string error;
  const ValuePtr value = EvaluateCommand("", expression, error, true);
  if (!value) return Print(error + "\n");
  if (!value->name.empty() && symbols_.count(value->name) == 0) {
    if (CheckTarget(value->name)) Define(value->name, ShownType(value), value);
    return;
  }
  const std::string type = ShownType(value);
  Print("\t" + type + " : " + ShownText(value) + "\n");
  symbols_["_"] = value;
}

bool Model::CheckTarget(const std::string& name) {
  std::string error;
  if (CheckName(name, error)) return true;
  Print(error + "\n");
  return false;
}

// A command whose evaluation meets a ring has this one message, whatever came before it.
ValuePtr Model::EvaluateCommand(const std::string& name, const std::string& expression,
                                std::string& error, bool allow_new_symbol) {
  try {
    return Evaluate(name, expression, error, allow_new_symbol);
  } catch (const Ring& ring) {
    ForgetRing();
    error = "\tError : Reference '" + ring.expression + "' leads back to itself";
    return nullptr;
  }
}

// The value is in the table before its text is asked for, so a reference may find itself.
void Model::Define(const std::string& name, const std::string& type, const ValuePtr& value) {
  symbols_[name] = value;
  Print("\tDefining " + type + " : " + ShownText(value) + "\n");
  symbols_["_"] = value;
}

void Model::ForgetLast() { symbols_["_"] = NewReference("", ""); }

void Model::Print(const std::string& text) { output_ += text; }

std::string Model::ShownType(const ValuePtr& value) {
  try {
    return TypeOf(value);
  } catch (const Ring&) {
    ForgetRing();
    return OwnType(value->kind);
  }
}

// A reference that meets a ring while it is shown counts as one that fails.
std::string Model::ShownText(const ValuePtr& value) {
  shows_rings_ = true;
  try {
    const std::string text = TextOf(value);
    shows_rings_ = false;
    return text;
  } catch (const Ring&) {
    ForgetRing();
    return (value->name.empty() ? "" : value->name + " = ") + value->expression;
  }
}

// Nothing is under way any more.
void Model::ForgetRing() {
  evaluated_.clear();
  written_.clear();
  shows_rings_ = false;
}

}  // namespace Quarn::model
