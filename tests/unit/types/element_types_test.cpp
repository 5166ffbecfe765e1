// Tests of ElementTypes: which values may stand in one vector.
#include "types/element_types.h"

#include <gtest/gtest.h>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"

namespace Quarn {
namespace {

// "ok", or what is said of the values of expressions, which "|" separates.
std::string Judge(Session& session, const s_str& expressions) {
  ElementTypes types;
  Values elements;
  s_str error;
  for (const s_str& expression : expressions.Cut("|")) {
    elements.PushBack(session.Parse(expression.Get()));
    if (!types.Accept(*elements[elements.GetSize() - s_uint(1U)], error)) return error.Get();
  }
  return types.AcceptReferences(elements, error) ? "ok" + error.Get() : error.Get();
}

class ElementTypesTest : public testing::Test {
 protected:
  ElementTypesTest() {
    Word::Register(session_.GetState());
    session_.Type("x=1;v=<1, 2>;r&=x;w&=v;lost&=zz");
  }

  Session session_;
};

TEST_F(ElementTypesTest, MayBeAnyOneTypeAndReferencesToIt) {
  s_str error;
  EXPECT_TRUE(ElementTypes().AcceptReferences({}, error)) << "there are none";
  for (const char* expressions : {"1", "1|2|x", "'a|'b", "<1, 2>|v", "1|r", "r|1", "r|1|r|x"}) {
    EXPECT_EQ(Judge(session_, expressions), "ok") << expressions;
  }
}

// A reference counts with its type, which does not say how long a vector is, and waits until all
// others have come.
TEST_F(ElementTypesTest, MustNotDiffer) {
  const struct {
    const char* expressions;
    std::string first;
    std::string second;
  } kRows[] = {
      {"1|'a",            "Scalar",   "Word"     },
      {"1|v",             "Scalar",   "2-Vector" },
      {"v|<1>",           "2-Vector", "1-Vector" },
      {"r",               "",         "Scalar"   },
      {"r|r",             "",         "Scalar"   },
      {"lost",            "",         "Reference"},
      {"1|lost",          "Scalar",   "Reference"},
      {"'a|r",            "Word",     "Scalar"   },
      {"v|w",             "2-Vector", "Vector"   },
      {"w|1|r|<1, 2, 3>", "Scalar",   "3-Vector" },
      {"w|1|r",           "Scalar",   "Vector"   },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Judge(session_, row.expressions),
              "\tError : Non-homogeneous Vectors are not allowed.\n\t        Trying to mix " +
                  row.first + " with " + row.second)
        << row.expressions;
  }
}

}  // namespace
}  // namespace Quarn
