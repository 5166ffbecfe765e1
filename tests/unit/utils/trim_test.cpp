// Tests of TrimSpaces: what it takes off, and that it copies nothing.
#include "utils/trim.h"

#include <gtest/gtest.h>

namespace Quarn {
namespace {

TEST(TrimSpaces, TakesSpacesOffBothEnds) {
  const struct {
    const char *text, *trimmed;
  } kRows[] = {
      {"",        ""     },
      {" ",       ""     },
      {"    ",    ""     },
      {"a",       "a"    },
      {"  a",     "a"    },
      {"a  ",     "a"    },
      {"  a b  ", "a b"  },
      {"\ta\t",   "\ta\t"}, // other white space stays
      {" \n ",    "\n"   },
  };
  for (const auto& row : kRows) EXPECT_EQ(TrimSpaces(row.text), row.trimmed) << row.text;
}

TEST(TrimSpaces, GivesAStretchOfTheSameText) {
  const std::string_view text = "  a  ";
  EXPECT_EQ(TrimSpaces(text).data(), text.data() + 2);
}

}  // namespace
}  // namespace Quarn
