#include "types/scalar.h"

#include <cmath>
#include <functional>

#include "interpreter/state.h"
#include "types/lift.h"
#include "types/scalar_literal.h"
#include "types/scalar_math.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

s_refptr<Symbol> Create(const s_str& name) { return s_refptr<Symbol>(new Scalar(name)); }

s_bool IsLiteral(const s_str& text) { return IsNumberLiteral(text.GetView()); }

s_refptr<Symbol> CreateFrom(State&, const s_str& name, const s_str& text, s_str&) {
  return s_refptr<Symbol>(new Scalar(name, ReadDouble(text.GetView()).value.Get()));
}

bool IsScalar(const Symbol& value) { return value.GetFixedType().Get() == Scalar::kType; }

bool BuildInPlace(State&, const s_str& name, const Piece& piece, s_str&, s_refptr<Symbol>& spare,
                  s_refptr<Symbol>& value) {
  const double number = ReadNumberLiteral(piece.GetText());
  if (std::isnan(number)) return false;
  if (!name.IsEmpty()) {
    value = s_refptr<Symbol>(new Scalar(name, number));
  } else if (spare && IsScalar(*spare)) {
    Renew(spare, number);
    value.Swap(spare);
  } else {
    value = NewNumber(number);
  }
  return true;
}

s_refptr<Symbol> ApplyFactorial(State& state, const s_refptr<Symbol>& operand, s_str&) {
  const double x = NumberOf(*operand);
  // What was printed before must not be lost with a recursion that does not end.
  if (!IsFactorialShort(x)) state.Flush();
  return NewNumber(Factorial(x));
}

}  // namespace

void Scalar::Register(State& state) {
  state.AddType({kType, Create, IsLiteral, CreateFrom, BuildInPlace, kNumberStarts});
  state.AddRightUnary({
  // written before the operand: !4, +x, -x
      {"!", kType, On(state, ApplyFactorial)},
      {"+",   kType,      Copy      }, // keeps the operand's name
      {"-",   kType,      Unary(std::negate<double>())},
  });
  state.AddBinary({
      {kType, "*", kType, Binary(std::multiplies<double>())},
      {kType, "/", kType, Binary(std::divides<double>())   }, // by zero: inf+, inf- or nan
      {kType, "+", kType, Binary(std::plus<double>())      },
      {kType, "-", kType, Binary(std::minus<double>())     },
  });
  state.AddFunctions({
      {"rand",       {""},           OfNumbers(RandUnit)   }, // rand()
      {"rand",       {kType, kType}, OfNumbers(RandBetween)}, // rand(low, high)
      {"min",        {kType, kType}, OfNumbers(Min)        },
      {"max",        {kType, kType}, OfNumbers(Max)        },
      {"round",      {kType},        OfNumbers(Round)      }, // halves away from zero
      {"round_up",   {kType},        OfNumbers(RoundUp)    },
      {"round_down", {kType},        OfNumbers(RoundDown)  },
  });
}

void Scalar::AppendTo(s_str& text) const {
  if (!GetName().IsEmpty()) text.Append(GetName().GetView()).Append(" = ");
  char number[kNumberRoom];
  const char* end = WriteDouble(number, value_.Get());
  text.Append(std::string_view(number, static_cast<std::size_t>(end - number)));
}

s_str Scalar::ToString() const {
  s_str text;
  AppendTo(text);
  return text;
}

}  // namespace Quarn
