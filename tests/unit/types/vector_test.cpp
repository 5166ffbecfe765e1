// Tests of Vector: its text, its types, its copies, and nesting of any depth.
#include "types/vector.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/lift.h"

namespace Quarn {
namespace {

constexpr unsigned int kManyLevels = 200000;

const Vector& AsVector(const s_refptr<Symbol>& value) { return static_cast<const Vector&>(*value); }

s_refptr<Symbol> VectorOf(const s_refptr<Symbol>& element) {
  return s_refptr<Symbol>(new Vector("", Values{element}));
}

s_refptr<Symbol> NestedVector(s_refptr<Symbol> core, unsigned int levels) {
  for (unsigned int i = 0; i < levels; ++i) core = VectorOf(core);
  return core;
}

TEST(Vector, IsMadeWithoutElements) {
  const Vector vector(s_str("v"));
  EXPECT_TRUE(vector.GetSize().IsNull());
  EXPECT_EQ(vector.ToString().Get(), "v = <>");
  EXPECT_EQ(vector.GetFullType().Get(), "0-Vector");
}

TEST(Vector, PrintsItsElementsInOrder) {
  Session session;
  const ValueRow kRows[] = {
      {"<1, 2, 3>",        "Vector : <1, 2, 3>"        },
      {"<1>",              "Vector : <1>"              },
      {"<>",               "Vector : <>"               },
      {"<<1, 2>, <3, 4>>", "Vector : <<1, 2>, <3, 4>>" },
      {"<<>, <>>",         "Vector : <<>, <>>"         },
      {"<1/0, 0/0, -1/0>", "Vector : <inf+, nan, inf->"},
      {"<1, &1+1>",        "Vector : <1, 2>"           },
      {"<1, &(1+1)>",      "Vector : <1, 2>"           },
  };
  ExpectValues(session, kRows);
  EXPECT_EQ(session.Evaluate("<1, 2>", "v"), "Vector : v = <1, 2>");
}

TEST(Vector, PrintsElementsAsTheyPrintThemselves) {
  const Values elements = {s_refptr<Symbol>(new Scalar("x", 1)),
                           s_refptr<Symbol>(new Vector(s_str("v"))),
                           s_refptr<Symbol>(new Symbol("ab"))};
  const Vector vector("w", elements);
  EXPECT_EQ(vector.ToString().Get(), "w = <x = 1, v = <>, ab>");
}

TEST(Vector, ShowsItsLengthInItsFullTypeAlone) {
  Session session;
  for (const char* literal : {"<1, 2, 3>", "<<1>, <2>, <3>>", "<&1, 2, 3>"}) {
    const s_refptr<Symbol> vector = session.Parse(literal);
    EXPECT_EQ(vector->GetFullType().Get(), "3-Vector") << literal;
    EXPECT_EQ(vector->GetType().Get(), "Vector") << literal;
    EXPECT_EQ(vector->GetDeclaredType().Get(), "Vector") << literal;
  }
}

TEST(Vector, CloneSharesTheElements) {
  Session session;
  const s_refptr<Symbol> vector = session.Parse("<1, 2>", "v");
  const s_refptr<Symbol> clone = vector->Clone();
  clone->SetName("w");
  EXPECT_EQ(vector->ToString().Get(), "v = <1, 2>");
  EXPECT_EQ(clone->ToString().Get(), "w = <1, 2>");
  EXPECT_EQ(clone->GetValueText().Get(), "v");
  EXPECT_EQ(AsVector(clone).GetElements()[1U].Get(), AsVector(vector).GetElements()[1U].Get());
}

TEST(Vector, LetsGoOfItsElementsWithItsLastCopy) {
  const s_refptr<Symbol> element = NewNumber(1);
  {
    const s_refptr<Symbol> vector = VectorOf(element);
    const s_refptr<Symbol> clone = vector->Clone();
    EXPECT_EQ(element.GetCount(), 2U);
  }
  EXPECT_EQ(element.GetCount(), 1U);
}

TEST(Vector, LetsGoOfInnerVectorsThatOthersHold) {
  const s_refptr<Symbol> element = NewNumber(1);
  const s_refptr<Symbol> inner = VectorOf(element);
  const s_refptr<Symbol> copy = inner->Clone();
  {
    const s_refptr<Symbol> outer = VectorOf(VectorOf(inner));
    EXPECT_EQ(outer->ToString().Get(), "<<<1>>>");
  }
  EXPECT_EQ(inner.GetCount(), 1U);
  EXPECT_EQ(inner->ToString().Get(), "<1>");
  EXPECT_EQ(copy->ToString().Get(), "<1>");
}

TEST(Vector, NestedInAnyDepthPrintsAndDiesWithoutRecursion) {
  const s_refptr<Symbol> core = NewNumber(7);
  {
    const s_refptr<Symbol> vector = NestedVector(core, kManyLevels);
    EXPECT_TRUE(vector->ToString().Get() ==
                std::string(kManyLevels, '<') + "7" + std::string(kManyLevels, '>'));
    const s_refptr<Symbol> clone = vector->Clone();
    EXPECT_EQ(core.GetCount(), 2U);
  }
  EXPECT_EQ(core.GetCount(), 1U);
}

TEST(Vector, NestedInAnyDepthAroundAForeignValueDoesToo) {
  std::string log;
  const s_refptr<Symbol> vector =
      NestedVector(s_refptr<Symbol>(new Probe(log, "a", "Probe")), kManyLevels);
  EXPECT_EQ(vector->ToString().GetSize().Get(), 2 * kManyLevels + 1);
  EXPECT_EQ(log, "text(a) ");
}

TEST(Vector, NestedTooDeepForArithmeticIsAnError) {
  Session session;
  State& state = session.GetState();
  state.SetLastResult(NestedVector(NewNumber(7), kManyLevels));
  for (const char* command : {"-_", "_+_", "2*_", "_*2"}) {
    EXPECT_EQ(session.Type(command), "\tError : Expression is nested too deeply\n") << command;
  }
  EXPECT_TRUE(session.Type("+_").starts_with("\tVector : <<<"));
  EXPECT_TRUE(session.Type("_[0]").starts_with("\tVector : <<<"));
}

TEST(Vector, IsBuiltLevelByLevelFromLines) {
  Session session;
  session.Type("v=<1>");
  for (int i = 0; i < 1000; ++i) session.Type("v=<v>");
  EXPECT_EQ(session.Type("v"),
            "\tVector : " + std::string(1001, '<') + "1" + std::string(1001, '>') + "\n");
}

TEST(Vector, DeclaredHasNoElements) {
  const LinesRow kRows[] = {
      {"v:Vector",       "\tDefining Vector : v = <>\n"            },
      {"v:Vector\nv",    "\tVector : <>\n"                         },
      {"v:Vector\nv+v",  "\tVector : <>\n"                         },
      {"v:Vector\n-v",   "\tVector : <>\n"                         },
      {"v:Vector\n2*v",  "\tVector : <>\n"                         },
      {"v:Vector\nv[0]", "\tError : Cannot index an empty Vector\n"},
  };
  ExpectOutput(kRows);
}

}  // namespace
}  // namespace Quarn
