#include "types/scalar.h"

#include <limits>

#include "interpreter/arithmetic.h"
#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "interpreter/text_writer.h"
#include "types/lift.h"
#include "types/scalar_literal.h"
#include "types/scalar_math.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

s_refptr<Symbol> Create(const s_str& name) { return s_refptr<Symbol>(new Scalar(name)); }

s_bool IsLiteral(std::string_view text) { return IsNumberLiteral(text); }

s_refptr<Symbol> CreateFrom(State&, const s_str& name, const s_str& text, s_str&) {
  return s_refptr<Symbol>(new Scalar(name, ReadDouble(text.GetView()).value.Get()));
}

s_refptr<Symbol> ApplyFactorial(State& state, const s_refptr<Symbol>& operand, s_str& error) {
  const double x = NumberOf(*operand);
  if (state.GetLimits().ends_the_endless && !IsFactorialShort(x)) {
    if (!HasFactorial(x)) {
      AddError(error, messages::EndlessFactorial(ToText(s_double(x))));
      return {};
    }
    // That of 171 is beyond all numbers already.
    if (x > 171.5) return NewNumber(std::numeric_limits<double>::infinity());
  }
  // What was printed before must not be lost with a recursion that does not end.
  if (!IsFactorialShort(x)) state.Flush();
  return NewNumber(Factorial(x));
}

}  // namespace

void Scalar::Register(State& state) {
  state.AddType({.name = kType,
                 .create = Create,
                 .is_literal = IsLiteral,
                 .create_from = CreateFrom,
                 .literal_starts = kNumberStarts,
                 .read_number = ReadNumberPrefix});
  // Written before the operand: !4, +x, -x.
  state.AddRightUnary({
      {"!", kType, On(state, ApplyFactorial)},
      {"+",   kType,      Copy      }, // keeps the operand's name
      UnaryOnScalars("-", Negate),
  });
  state.AddBinary({
      OnScalars("*", Multiply),
      OnScalars("/", Divide),  // by zero: inf+, inf- or nan
      OnScalars("+", Add),
      OnScalars("-", Subtract),
  });
  state.AddFunctions({
      OnScalars("rand", RandUnit, Purity::kImpure),     // rand()
      OnScalars("rand", RandBetween, Purity::kImpure),  // rand(low, high)
      OnScalars("min", Min, Purity::kPure),
      OnScalars("max", Max, Purity::kPure),
      OnScalars("round", Round, Purity::kPure),  // halves away from zero
      OnScalars("round_up", RoundUp, Purity::kPure),
      OnScalars("round_down", RoundDown, Purity::kPure),
  });
}

void Scalar::Write(TextWriter& out) const {
  out.AppendNameOf(*this);
  out.AppendNumber(number_);
}

s_str Scalar::ToString() const { return WriteToText(*this); }

}  // namespace Quarn
