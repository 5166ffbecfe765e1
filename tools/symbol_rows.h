// The symbols of a State as a table: name, type, value.
//   * rate  Scalar  6
//     v     Vector  <1, 2>
// A star marks what changed since the table before.
#pragma once

#include <string>
#include <vector>

namespace Quarn {

class State;

struct SymbolRow {
  std::string name;
  std::string type;  // as declared
  std::string value;

  bool operator==(const SymbolRow&) const = default;
};

// In ascending order, without the last result.
std::vector<SymbolRow> ListSymbols(const State& state);

struct TableLook {
  std::size_t columns = 80;  // no line is wider
  bool is_coloured = false;
};

// The lines of the table, each with a newline; one that says so when there are no symbols. Control
// characters are shown as "?".
std::vector<std::string> FormatTable(const std::vector<SymbolRow>& rows,
                                     const std::vector<SymbolRow>& before, const TableLook& look);

// As much of the text as fits into so many columns; "~" at its end where something is missing.
std::string CutToColumns(std::string_view text, std::size_t columns);

}  // namespace Quarn
