// Tests that types are told apart by their names: those of classes that derive from each other, and
// those that two classes share.
#include <gtest/gtest.h>

#include <functional>

#include "tests/support/session.h"
#include "types/holder.h"
#include "types/value.h"

namespace Quarn {
namespace {

class Small : public Holder<Small, double> {
 public:
  static constexpr char kType[] = "Small";
  static std::string Write(double size) {
    return "small " + std::to_string(static_cast<int>(size));
  }
  using Holder::Holder;
};

// Says of each value whether it is "Small" or "Big"; nothing else is overridden that need not be.
class Big final : public Small {
 public:
  using Small::Small;
  s_str GetType() const override { return GetPayload() < 100 ? "Small" : "Big"; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Big(*this)); }
};

// Another class of the same name, which is another text at another address.
class AlsoSmall final : public Small {
 public:
  static constexpr char kType[] = "Small";
  using Small::Small;
  s_str GetType() const override { return kType; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new AlsoSmall(*this)); }
};

s_refptr<Symbol> Word(const char* text) { return s_refptr<Symbol>(new Symbol(text)); }

Function Say(const char* text) {
  return [text](State&, const Values&, Values& results, s_str&) -> s_bool {
    results.PushBack(Word(text));
    return true;
  };
}
BinaryOperator Join(const char* text) {
  return [text](const s_refptr<Symbol>&, const s_refptr<Symbol>&, s_str&) { return Word(text); };
}
UnaryOperator Turn(const char* text) {
  return [text](const s_refptr<Symbol>&, s_str&) { return Word(text); };
}

class TypeNameTest : public testing::Test {
 protected:
  TypeNameTest() {
    State& state = session_.GetState();
    for (const char* type : {"Small", "Big"}) {
      const std::string name = type;
      state.AddFunctions({
          {"what", {type},           Say(type)},
          {"what", {type, "Scalar"}, Say(type)}
      });
      state.AddBinary({
          {type,     "+", type,     Join(type)},
          {type,     "+", "Scalar", Join(type)},
          {"Scalar", "+", type,     Join(type)}
      });
      state.AddRightUnary({
          {"-", type, Turn(type)}
      });
      state.AddLeftUnary({
          {"!", type, Turn(type)}
      });
    }
    Set("a", new Small("", 1));
    Set("b", new Big("", 200));
    Set("c", new Big("", 2));
    Set("d", new AlsoSmall("", 3));
  }

  void Set(const char* name, Symbol* value) {
    session_.GetState().SetSymbol(name, s_refptr<Symbol>(value));
  }

  Session session_;
};

// In every order, and more than once: what was found for one value must not be used for another.
TEST_F(TypeNameTest, AClassThatDerivesFromAnotherIsKnownByItsOwnName) {
  const std::string kNames[] = {"a", "b", "c", "d"};
  const auto type = [](const std::string& name) -> std::string {
    return name == "b" ? "Big" : "Small";
  };
  for (const std::string& first : kNames) {
    for (const std::string& second : kNames) {
      for (const std::string& name : {first, second, first}) {
        const std::string expected = "Symbol : " + type(name);
        for (const std::string& expression :
             {"what(" + name + ")", "what(" + name + ", 1)", name + "+1", "1+" + name,
              name + "+" + name, "-" + name, name + "!"}) {
          EXPECT_EQ(session_.Evaluate(expression), expected) << expression;
        }
      }
    }
  }
}

TEST_F(TypeNameTest, TwoNamesFindNoRowTogether) {
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(session_.Evaluate("a+c"), "Symbol : Small");
    EXPECT_EQ(
        session_.Evaluate("a+b"),
        "\tError : No match for operator 'Small + Big' in :\n\t        \tsmall 1 + small 200");
  }
}

// A value of a host's that calls itself what the language's own values are called, and is none.
class Impostor final : public Symbol {
 public:
  explicit Impostor(const s_str& type) : Symbol(""), type_(type) {}
  s_str ToString() const override { return "impostor"; }
  s_str GetType() const override { return "Impostor"; }
  s_str GetDeclaredType() const override { return type_; }
  s_str GetFullType() const override { return type_; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Impostor(*this)); }

 private:
  s_str type_;
};

TEST_F(TypeNameTest, AValueThatDeclaresItselfAReferenceStandsForItself) {
  State& state = session_.GetState();
  state.AddBinary({
      {"Impostor", "+", "Impostor", Join("joined")}
  });
  state.AddRightUnary({
      {"-", "Impostor", Turn("turned")}
  });
  state.AddFunctions({
      {"what", {"Impostor"}, Say("called")}
  });
  Set("i", new Impostor("Reference"));
  const ValueRow kRows[] = {
      {"i",        "Impostor : impostor"},
      {"i+i",      "Symbol : joined"    },
      {"-i",       "Symbol : turned"    },
      {"what(i)",  "Symbol : called"    },
      {"what(&i)", "Symbol : called"    },
      {"(&i)+i",   "Symbol : joined"    },
  };
  ExpectValues(session_, kRows);
  EXPECT_EQ(session_.Type("k=i"), "\tDefining Reference : impostor\n");
  EXPECT_EQ(session_.Type("~i"), "\tImpostor 'i' erased\n");
  EXPECT_EQ(ToNumber(session_.Parse("k")), std::nullopt);
  EXPECT_EQ(ToText(session_.Parse("k")), "impostor");
}

// The type that an operator asks for is then the one of a reference without a value.
TEST_F(TypeNameTest, AValueWhoseTypeIsCalledReferenceIsNeverTakenForOne) {
  class Nameless final : public Symbol {
   public:
    Nameless() : Symbol("") {}
    s_str ToString() const override { return "nameless"; }
    s_str GetType() const override { return "Reference"; }
    s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Nameless(*this)); }
  };
  Set("n", new Nameless);
  const ValueRow kRows[] = {
      {"n",      "Reference : nameless"                                                      },
      {"-n",     "\tError : No match for operator '- Reference' in :\n\t        \t- nameless"},
      {"min(n)",
       "\tError : No matching function call to :\n\t\t  min(Reference)\n"
       "\t\tPossible candidates :\n\t\t  min(Scalar, Scalar)"                                },
  };
  ExpectValues(session_, kRows);
  // Deferred, as beside a reference without a value; the texts of both are in it.
  EXPECT_EQ(session_.Evaluate("n+1"), "Reference : (nameless)+(1)");
  EXPECT_EQ(ToNumber(session_.Parse("n")), std::nullopt);
}

}  // namespace
}  // namespace Quarn
