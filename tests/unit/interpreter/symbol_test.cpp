// Tests of Symbol: the abstract type, and what every other type inherits from it.
#include "interpreter/symbol.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/session.h"
#include "types/reference.h"
#include "types/scalar.h"

namespace Quarn {
namespace {

const s_refptr<Symbol> made_before_main(new Symbol("early"));
const s_str types_before_main = made_before_main->GetType() + Scalar::kType + Vector::kType +
                                Reference::kType + Scalar("x").GetType();

// The least that a type of its own must say.
class Plain : public Symbol {
 public:
  static inline int alive = 0;

  explicit Plain(const s_str& name) : Symbol(name) { ++alive; }
  Plain(const Plain& other) : Symbol(other) { ++alive; }
  ~Plain() override { --alive; }

  s_str GetType() const override { return "Plain"; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Plain(*this)); }
};

TEST(Symbol, ShowsAsItsOwnName) {
  const Symbol symbol("ab");
  EXPECT_EQ(symbol.ToString().Get(), "ab");
  EXPECT_EQ(symbol.GetName().Get(), "ab");
  EXPECT_EQ(symbol.GetValueText().Get(), "ab");
}

TEST(Symbol, IsOfTheTypeSymbolInEveryRespect) {
  const Symbol symbol("ab");
  EXPECT_EQ(symbol.GetType().Get(), "Symbol");
  EXPECT_EQ(symbol.GetDeclaredType().Get(), "Symbol");
  EXPECT_EQ(symbol.GetFullType().Get(), "Symbol");
  EXPECT_EQ(symbol.GetKind(), Symbol::Kind::kOther);
}

TEST(Symbol, KeepsItsTextWhenItsNameChanges) {
  Symbol symbol("ab");
  symbol.SetName("");
  EXPECT_EQ(symbol.GetName().Get(), "");
  EXPECT_EQ(symbol.ToString().Get(), "ab");
}

TEST(Symbol, HasNoNameForTemporaries) { EXPECT_TRUE(Symbol::NoName().IsEmpty()); }

TEST(Symbol, CloneIsAnObjectOfItsOwn) {
  const s_refptr<Symbol> symbol(new Symbol("ab"));
  const s_refptr<Symbol> clone = symbol->Clone();
  EXPECT_NE(clone.Get(), symbol.Get());
  EXPECT_EQ(clone.GetCount(), 1U);
  clone->SetName("c");
  EXPECT_EQ(symbol->GetName().Get(), "ab");
  EXPECT_EQ(clone->GetValueText().Get(), "ab");
}

TEST(Symbol, CloneKeepsTypeNameAndText) {
  Session session;
  session.Type("a=2;v=<1, 2>;r&=a+1;dead&=nothing;v0:Vector;s:Symbol;null:Reference");
  for (const char* name : {"a", "v", "r", "dead", "v0", "s", "null"}) {
    const Symbol& symbol = *session.GetState().GetSymbol(name);
    const s_refptr<Symbol> clone = symbol.Clone();
    EXPECT_EQ(clone->GetType().Get(), symbol.GetType().Get()) << name;
    EXPECT_EQ(clone->GetDeclaredType().Get(), symbol.GetDeclaredType().Get()) << name;
    EXPECT_EQ(clone->GetFullType().Get(), symbol.GetFullType().Get()) << name;
    EXPECT_EQ(clone->GetName().Get(), name);
    EXPECT_EQ(clone->GetValueText().Get(), symbol.GetValueText().Get()) << name;
    const std::string text = symbol.ToString().Get();
    EXPECT_EQ(clone->ToString().Get(), text) << name;
    clone->SetName("other");
    EXPECT_EQ(symbol.ToString().Get(), text) << name;
  }
}

TEST(Symbol, ATypeOfItsOwnDeclaresAndShowsItsType) {
  const Plain plain("p");
  EXPECT_EQ(plain.GetDeclaredType().Get(), "Plain");
  EXPECT_EQ(plain.GetFullType().Get(), "Plain");
  EXPECT_EQ(plain.ToString().Get(), "p");
  EXPECT_EQ(plain.GetKind(), Symbol::Kind::kOther);
}

// What is copied from a Scalar may become part of a value that is none.
TEST(Symbol, ATypeOfItsOwnMadeFromAScalarIsNoScalar) {
  class Measured final : public Symbol {
   public:
    explicit Measured(const Symbol& other) : Symbol(other) {}
    s_str GetType() const override { return "Measured"; }
  };
  const Scalar scalar("x", 2.5);
  EXPECT_EQ(scalar.GetKind(), Symbol::Kind::kNumber);
  EXPECT_EQ(scalar.Clone()->GetKind(), Symbol::Kind::kNumber);
  const Measured measured(scalar);
  EXPECT_EQ(measured.GetName().Get(), "x");
  EXPECT_EQ(measured.GetKind(), Symbol::Kind::kOther);
}

TEST(Symbol, IsDeletedAsWhatItIs) {
  {
    const s_refptr<Symbol> plain(new Plain("p"));
    const s_refptr<Symbol> clone = plain->Clone();
    EXPECT_EQ(Plain::alive, 2);
  }
  EXPECT_EQ(Plain::alive, 0);
}

TEST(Symbol, IsUsableBeforeMain) {
  EXPECT_EQ(made_before_main->ToString().Get(), "early");
  EXPECT_EQ(types_before_main.Get(), "SymbolScalarVectorReferenceScalar");
}

TEST(Symbol, IsWhatAnUnknownNameDeclares) {
  const LinesRow kRows[] = {
      {"ab",               "\tDefining Symbol : ab\n"},
      {"ab:Symbol",        "\tDefining Symbol : ab\n"},
      {"ab\n?ab",          "\tSymbol : ab\n"         },
      {"ab\nab",           "\tSymbol : ab\n"         },
      {"ab:Symbol\n~ab",   "\tSymbol 'ab' erased\n"  },
      {"ab\nab\nab=1\nab", "\tScalar : 1\n"          },
  };
  ExpectOutput(kRows);
}

}  // namespace
}  // namespace Quarn
