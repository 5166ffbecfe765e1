// Tests of tools/symbol_rows: which symbols the table has, and how it fits.
#include "tools/symbol_rows.h"

#include <gtest/gtest.h>

#include <clocale>

#include "tests/support/session.h"

namespace Quarn {
namespace {

std::string Format(const std::vector<SymbolRow>& rows, const std::vector<SymbolRow>& before,
                   const TableLook& look) {
  std::string table;
  for (const std::string& line : FormatTable(rows, before, look)) table += line;
  return table;
}

TEST(SymbolRows, HaveEverySymbolAndItsDeclaredType) {
  Session session;
  session.Type("x=3;v=<1, 2>;r&=2*x;q&=nothing;a;f=min(4, 5);=7;1+1");
  EXPECT_EQ(Format(ListSymbols(session.GetState()), {}, {}),
            "*    Scalar     7\n"  // the empty name
            "* a  Symbol     a\n"
            "* f  Scalar     4\n"
            "* q  Reference  nothing\n"
            "* r  Reference  6\n"
            "* v  Vector     <1, 2>\n"
            "* x  Scalar     3\n");
}

TEST(SymbolRows, MarkWhatChanged) {
  Session session;
  session.Type("x=1;r&=x+1;same=5;gone=1;type=1");
  const std::vector<SymbolRow> before = ListSymbols(session.GetState());
  session.Type("x=2;new=3;~gone;type:Symbol");
  EXPECT_EQ(Format(ListSymbols(session.GetState()), before, {}),
            "* new   Scalar     3\n"
            "* r     Reference  3\n"
            "  same  Scalar     5\n"
            "* type  Symbol     type\n"
            "* x     Scalar     2\n");
}

TEST(SymbolRows, FitIntoTheColumns) {
  const std::vector<SymbolRow> rows = {
      {"aVeryLongName", "Reference", "123456789"}
  };
  EXPECT_EQ(Format(rows, rows, {.columns = 80}), "  aVeryLongName  Reference  123456789\n");
  EXPECT_EQ(Format(rows, rows, {.columns = 30}), "  aVeryLongName  Refere~  123~\n");
  EXPECT_EQ(Format(rows, rows, {.columns = 20}), "  aVeryLong~  Refe~  \n");
  EXPECT_EQ(Format({}, rows, {}), "  no symbols\n");
}

TEST(SymbolRows, AreColouredOnRequest) {
  const std::vector<SymbolRow> rows = {
      {"x", "Scalar", "1"}
  };
  EXPECT_EQ(Format(rows, {}, {.is_coloured = true}), "* x  \033[2mScalar  \033[0m1\n");
}

TEST(CutToColumns, CutsBetweenCharacters) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  const struct {
    const char* text;
    std::size_t columns;
    const char* cut;
  } kRows[] = {
      {"abc",                      3, "abc"                     },
      {"abcd",                     3, "ab~"                     },
      {"ab",                       0, ""                        },
      {"",                         3, ""                        },
      {"\xc3\xa9\xc3\xa9",         2, "\xc3\xa9\xc3\xa9"        },
      {"\xc3\xa9\xc3\xa9\xc3\xa9", 2, "\xc3\xa9~"               },
      {"\xe6\x97\xa5\xe6\x9c\xac", 4, "\xe6\x97\xa5\xe6\x9c\xac"}, // two columns each
      {"\xe6\x97\xa5\xe6\x9c\xac", 3, "\xe6\x97\xa5~"           },
      {"a\033[2Jb\tc\xff",         9, "a?[2Jb?c?"               }, // nothing that the terminal obeys
  };
  for (const auto& row : kRows) EXPECT_EQ(CutToColumns(row.text, row.columns), row.cut);
  std::setlocale(LC_CTYPE, "C");
}

}  // namespace
}  // namespace Quarn
