#include "tools/symbol_rows.h"

#include <algorithm>
#include <cwchar>

#include "interpreter/state.h"
#include "tools/colours.h"
#include "types/value.h"

namespace Quarn {
namespace {

constexpr std::size_t kMark = 2;  // columns of "* "
constexpr std::size_t kGap = 2;

// A character of the locale: its bytes, and how wide it is shown. What cannot be shown is "?".
struct Character {
  std::string_view bytes;
  std::size_t size;
  std::size_t columns;
};

Character ReadCharacter(std::string_view text) {
  constexpr Character kUnshown = {"?", 1, 1};
  std::mbstate_t state = {};
  wchar_t wide = 0;
  const std::size_t size = std::mbrtowc(&wide, text.data(), text.size(), &state);
  if (size == 0 || size > text.size()) return kUnshown;
  const int columns = wcwidth(wide);
  if (columns < 0) return {"?", size, 1};
  return {text.substr(0, size), size, static_cast<std::size_t>(columns)};
}

std::size_t MeasureColumn(const std::vector<SymbolRow>& rows, std::string SymbolRow::*column,
                          std::size_t most) {
  std::size_t width = 0;
  for (const SymbolRow& row : rows) width = std::max(width, (row.*column).size());
  return std::min(width, most);
}

std::string Pad(std::string text, std::size_t columns) {
  if (text.size() < columns) text.append(columns - text.size(), ' ');
  return text;
}

bool HasRow(const std::vector<SymbolRow>& rows, const SymbolRow& row) {
  const auto found =
      std::lower_bound(rows.begin(), rows.end(), row,
                       [](const SymbolRow& a, const SymbolRow& b) { return a.name < b.name; });
  return found != rows.end() && *found == row;
}

}  // namespace

std::vector<SymbolRow> ListSymbols(const State& state) {
  std::vector<SymbolRow> rows;
  for (const s_str& name : state.GetSymbolNames()) {
    if (name.GetView() == "_") continue;
    const s_refptr<Symbol> value = state.GetSymbol(name.GetView());
    rows.push_back({name.Get(), value->GetDeclaredType().Get(), ToText(value)});
  }
  return rows;
}

std::string CutToColumns(std::string_view text, std::size_t columns) {
  std::string cut;
  std::size_t used = 0;
  std::size_t fitting = 0;  // bytes that leave a column for "~"
  while (!text.empty()) {
    const Character character = ReadCharacter(text);
    if (used + character.columns > columns)
      return cut.substr(0, fitting) + (columns > 0 ? "~" : "");
    cut += character.bytes;
    used += character.columns;
    if (used < columns) fitting = cut.size();
    text.remove_prefix(character.size);
  }
  return cut;
}

// Names and types are ASCII.
std::vector<std::string> FormatTable(const std::vector<SymbolRow>& rows,
                                     const std::vector<SymbolRow>& before, const TableLook& look) {
  if (rows.empty()) return {CutToColumns("  no symbols", look.columns) + "\n"};
  const std::size_t names = MeasureColumn(rows, &SymbolRow::name, look.columns / 2);
  const std::size_t types = MeasureColumn(rows, &SymbolRow::type, look.columns / 4);
  const std::size_t used = kMark + names + kGap + types + kGap;
  std::vector<std::string> lines;
  for (const SymbolRow& row : rows) {
    const std::string type = Pad(CutToColumns(row.type, types), types + kGap);
    std::string line = HasRow(before, row) ? "  " : "* ";
    line += Pad(CutToColumns(row.name, names), names + kGap);
    line += look.is_coloured ? Paint(type, kFaintColour) : type;
    line += CutToColumns(row.value, look.columns > used ? look.columns - used : 0);
    lines.push_back(line + "\n");
  }
  return lines;
}

}  // namespace Quarn
