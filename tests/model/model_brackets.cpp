#include <cstddef>
#include <string>
#include <vector>

#include "tests/model/model_text.h"

namespace Quarn::model {
namespace {

const char kOpening[] = "(<[";
const char kClosing[] = ")>]";

// The three counters, of which at most one is not 0: inside one kind of bracket the others are
// characters like any other.
struct Depths {
  int open[3] = {0, 0, 0};

  int Kind() const {
    for (int kind = 0; kind < 3; ++kind) {
      if (open[kind] != 0) return kind;
    }
    return -1;
  }
};

// The kind of bracket that c is in `brackets`, or -1.
int KindOf(char c, const char* brackets) {
  for (int kind = 0; kind < 3; ++kind) {
    if (brackets[kind] == c) return kind;
  }
  return -1;
}

// "[]" needs no test: its "[" opens a bracket before anybody asks for an operator.
bool IsSeparator(char c, Separator separator) {
  if (separator == Separator::kComma) return c == ',';
  return PriorityOf(std::string(1, c)) != 0;
}

void AddPiece(std::vector<std::string>& pieces, std::string& piece) {
  if (!piece.empty()) pieces.push_back(piece);
  piece.clear();
}

// Counts c when it matters inside the bracket that is open.
void CountInside(Depths& depths, char c) {
  const int kind = depths.Kind();
  if (c == kOpening[kind]) ++depths.open[kind];
  if (c == kClosing[kind]) --depths.open[kind];
}

}  // namespace

int PriorityOf(const std::string& text) {
  if (text == "[]") return 5;
  if (text == "!") return 4;
  if (text == "^") return 3;
  if (text == "*" || text == "/") return 2;
  if (text == "+" || text == "-") return 1;
  return 0;
}

bool CutTopLevel(const std::string& text, Separator separator, std::vector<std::string>& pieces,
                 std::string& error) {
  Depths depths;
  std::string piece;
  for (char c : text) {
    if (depths.Kind() >= 0) {
      CountInside(depths, c);
      piece += c;
      continue;
    }
    if (KindOf(c, kClosing) >= 0) {
      AddError(error, "\tError : Too many closing '" + std::string(1, c) + "'");
      return false;
    }
    if (IsSeparator(c, separator)) {
      AddPiece(pieces, piece);
      if (separator == Separator::kOperator) pieces.push_back(std::string(1, c));
      continue;
    }
    if (KindOf(c, kOpening) >= 0) depths.open[KindOf(c, kOpening)] = 1;
    piece += c;
  }
  if (depths.Kind() >= 0) {
    AddError(error, "\tError : Unterminated '" + std::string(1, kOpening[depths.Kind()]) + "'");
    return false;
  }
  AddPiece(pieces, piece);
  return true;
}

std::string Glue(const std::vector<std::string>& pieces, std::size_t start, std::size_t end) {
  std::string text;
  for (std::size_t i = start; i < end; ++i) text += pieces[i];
  return text;
}

std::size_t ChosenOperator(const std::vector<std::string>& pieces) {
  std::size_t chosen = 0;
  int best = 0;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const int priority = PriorityOf(pieces[i]);
    if (priority == 0 || (best != 0 && priority > best)) continue;
    best = priority;
    chosen = i;
  }
  return chosen;
}

bool HasIndexing(const std::string& text) {
  const std::size_t open = text.find('[');
  const std::size_t close = text.find(']');
  return open != std::string::npos && close != std::string::npos && open < close;
}

}  // namespace Quarn::model
