// Complex is a type from outside of mirlow: complex numbers, written 3i, 1+2i.
//   Complex::Register(state);
//   state.ProcessLine("(1+2i)*(1-2i)");  // Complex : 5+0i
#pragma once

#include <mirlow/holder.h>

#include <complex>
#include <optional>
#include <string>
#include <string_view>

class Complex final : public Quarn::Holder<Complex, std::complex<double>> {
 public:
  static constexpr char kType[] = "Complex";
  static void Register(Quarn::State& state);

  // Only what is imaginary is a literal: in "1+2i", "+" adds a Scalar and a Complex.
  static std::optional<std::complex<double>> Read(std::string_view text);
  static std::string Write(const std::complex<double>& value);

  using Holder::Holder;
};
