// Tests of tools/error_watch: what counts as an error, and that all is passed on.
#include "tools/error_watch.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>

namespace Quarn {
namespace {

TEST(ErrorWatch, NoticesLinesThatBeginAsErrorsDo) {
  const struct {
    const char* text;
    bool is_error;
  } kRows[] = {
      {"\tError : Empty symbol\n",               true },
      {"\tScalar : 2\n\tError : Empty symbol\n", true },
      {"\tError : ",                             true },
      {"",                                       false},
      {"\tScalar : 2\n",                         false},
      {"\tError :",                              false},
      {"\tSymbol : Error : \n",                  false}, // not at the start
      {" \tError : \n",                          false},
      {"\t\tError : \n",                         false},
      {"\tWarning : 'Symbol=Symbol' does\n",     false},
      {"\t'x' is undefined\n",                   false},
  };
  for (const auto& row : kRows) {
    std::stringbuf target;
    ErrorWatch watch(target);
    std::ostream(&watch) << row.text;
    EXPECT_EQ(watch.HasSeenError(), row.is_error) << row.text;
    EXPECT_EQ(target.str(), row.text);
  }
}

TEST(ErrorWatch, NoticesAnErrorThatComesInParts) {
  std::stringbuf target;
  ErrorWatch watch(target);
  std::ostream out(&watch);
  out << "\tScalar : 1\n\tErr";
  out.put('o');
  EXPECT_FALSE(watch.HasSeenError());
  out << "r : Empty symbol\n";
  EXPECT_TRUE(watch.HasSeenError());
  EXPECT_EQ(target.str(), "\tScalar : 1\n\tError : Empty symbol\n");
}

// An answer ends the question's line where nobody printed it.
TEST(ErrorWatch, TakesAFlushForTheEndOfALine) {
  std::stringbuf target;
  ErrorWatch watch(target);
  std::ostream out(&watch);
  out << "Are you sure ? " << std::flush << "\tError : Unknown symbol 'x'\n";
  EXPECT_TRUE(watch.HasSeenError());
}

}  // namespace
}  // namespace Quarn
