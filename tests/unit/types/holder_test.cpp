// Tests of types made from a payload, and of rows made from plain functions.
#include "types/holder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>

#include "interpreter/messages.h"
#include "tests/support/session.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

class Angle final : public Holder<Angle, double> {
 public:
  static constexpr char kType[] = "Angle";
  static std::optional<double> Read(std::string_view text) {
    if (!text.ends_with("deg")) return std::nullopt;
    return std::atof(std::string(text).c_str());
  }
  static std::string Write(double degrees) { return ToText(s_double(degrees)).Get() + "deg"; }
  using Holder::Holder;
};

// A type without literals.
class Ticket final : public Holder<Ticket, long> {
 public:
  static constexpr char kType[] = "Ticket";
  static std::string Write(long number) { return "#" + std::to_string(number); }
  using Holder::Holder;
};

std::optional<double> Ratio(double left, double right, s_str& error) {
  if (right != 0) return left / right;
  AddError(error, "\tError : No ratio to nothing");
  return std::nullopt;
}

Values Repeat(double degrees, double times) {
  Values elements;
  for (int i = 0; i < times; ++i) elements.PushBack(Payloads<Angle>::New(degrees));
  return elements;
}

class HolderTest : public testing::Test {
 protected:
  HolderTest() {
    State& state = session_.GetState();
    state.AddType(TypeOf<Angle>("0123456789"));
    state.AddType(TypeOf<Ticket>());
    state.AddBinary({
        Row<Angle(Scalar, Angle)>("*", std::multiplies<>()),
        Row<Scalar(Angle, Angle)>("/", Ratio),
        Row<Vector(Angle, Scalar)>("^", Repeat),
    });
    state.AddRightUnary({Row<Angle(Angle)>("-", std::negate<>())});
    state.AddLeftUnary({Row<Scalar(Angle)>("!", [](double degrees) { return degrees / 180; })});
    state.AddFunctions({
        Call<Ticket()>("ticket", [] { return 1L; }),
        Call<Ticket(Scalar)>("ticket", [](double number) { return std::lround(number); }),
        Call<Scalar(Angle, Angle)>("ratio", Ratio),
        Call<Scalar(Vector)>("size", [](const Values& v) { return v.GetSize().Get(); }),
    });
  }

  Session session_;
};

TEST_F(HolderTest, AValueShowsItsPayload) {
  const LinesRow kRows[] = {
      {"90deg",    "\tAngle : 90deg\n"             },
      {"a=90deg",  "\tDefining Angle : a = 90deg\n"},
      {"a:Angle",  "\tDefining Angle : a = 0deg\n" },
      {"t:Ticket", "\tDefining Ticket : t = #0\n"  },
      {"90",       "\tScalar : 90\n"               },
  };
  for (const LinesRow& row : kRows) EXPECT_EQ(session_.Type(row.lines), row.output) << row.lines;
}

TEST_F(HolderTest, ACopyIsOfTheSameClassAndHasANameOfItsOwn) {
  const s_refptr<Symbol> angle = session_.Parse("90deg", "a");
  const s_refptr<Symbol> copy = angle->Clone();
  copy->SetName("b");
  EXPECT_EQ(angle->ToString().Get(), "a = 90deg");
  EXPECT_EQ(copy->ToString().Get(), "b = 90deg");
  EXPECT_EQ(copy->GetType().Get(), "Angle");
}

TEST_F(HolderTest, RowsApplyPlainFunctions) {
  const ValueRow kRows[] = {
      {"2*45deg",            "Angle : 90deg"        },
      {"90deg/45deg",        "Scalar : 2"           },
      {"-45deg",             "Angle : -45deg"       },
      {"90deg!",             "Scalar : 0.5"         },
      {"1deg^2",             "Vector : <1deg, 1deg>"},
      {"<1deg, 2deg>[1]",    "Angle : 2deg"         },
      {"2*<1deg, 2deg>",     "Vector : <2deg, 4deg>"},
      {"ticket()",           "Ticket : #1"          },
      {"ticket(7)",          "Ticket : #7"          },
      {"ratio(1deg, 4deg)",  "Scalar : 0.25"        },
      {"size(<1deg, 2deg>)", "Scalar : 2"           },
  };
  ExpectValues(session_, kRows);
}

TEST_F(HolderTest, AFunctionThatFailsSaysWhy) {
  const ValueRow kRows[] = {
      {"1deg/0deg",         "\tError : No ratio to nothing"},
      {"ratio(1deg, 0deg)", "\tError : No ratio to nothing"},
  };
  ExpectValues(session_, kRows);
}

TEST_F(HolderTest, ATypeWithoutReadHasNoLiterals) {
  EXPECT_FALSE(session_.GetState().GetTypes().find("Ticket")->second.is_literal);
  EXPECT_EQ(session_.Evaluate("#1"),
            "\tError : Unable to parse expression '#1', no operator found");
}

// Payloads that vector instructions load must lie where those expect them.
struct alignas(64) Lanes {
  double lanes[4] = {};
};
class Wide final : public Holder<Wide, Lanes> {
 public:
  static constexpr char kType[] = "Wide";
  static std::optional<Lanes> Read(std::string_view text) {
    return text == "wide" ? std::optional(Lanes()) : std::nullopt;
  }
  static std::string Write(const Lanes& lanes) { return std::to_string(lanes.lanes[0]); }
  using Holder::Holder;
};
class LargeAndWide final : public Holder<LargeAndWide, std::array<Lanes, 8>> {
 public:
  static constexpr char kType[] = "LargeAndWide";
  static std::string Write(const std::array<Lanes, 8>&) { return "large"; }
  using Holder::Holder;
};

template <class T>
bool IsAligned(const T& payload) {
  return reinterpret_cast<std::uintptr_t>(&payload) % alignof(T) == 0;
}

TEST_F(HolderTest, APayloadLiesAsItsTypeAsks) {
  State& state = session_.GetState();
  state.AddType(TypeOf<Wide>("w"));
  state.AddType(TypeOf<LargeAndWide>());
  session_.Type("a:LargeAndWide");
  Values kept;
  for (int i = 0; i < 100; ++i) {
    kept.PushBack(session_.Parse("wide"));
    kept.PushBack(kept[0U]->Clone());
    const s_refptr<Symbol> large = session_.Parse("a");
    EXPECT_TRUE(IsAligned(static_cast<const LargeAndWide&>(*large).GetPayload())) << i;
  }
  for (const s_refptr<Symbol>& wide : kept) {
    EXPECT_TRUE(IsAligned(static_cast<const Wide&>(*wide).GetPayload()));
  }
}

TEST_F(HolderTest, OtherTypesFindNoRow) {
  const NoMatchRow kRows[] = {
      {"45deg*2",   "Angle * Scalar", "45deg * 2"},
      {"ticket()!", "Ticket !",       "#1 !"     },
  };
  ExpectNoMatches(session_, kRows);
}

}  // namespace
}  // namespace Quarn
