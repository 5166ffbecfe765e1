#include "complex.h"

#include <mirlow/number_text.h>
#include <mirlow/state.h>

#include <cmath>
#include <functional>

using Quarn::Call;
using Quarn::Copy;
using Quarn::Row;
using Quarn::Scalar;

namespace {

using Number = std::complex<double>;

constexpr std::string_view kDigits = "0123456789";

// For operands of both types, where the standard functors take one.
constexpr auto kConjugate = [](const Number& z) { return std::conj(z); };
constexpr auto kAbsolute = [](const auto& z) { return std::abs(z); };
constexpr auto kReal = [](const auto& z) { return std::real(z); };
constexpr auto kImaginary = [](const auto& z) { return std::imag(z); };

// An operation that may fail takes the error text behind its operands.
constexpr auto kDivide = [](const auto& left, const auto& right,
                            Quarn::s_str& error) -> std::optional<Number> {
  if (std::abs(right) == 0) {
    Quarn::AddError(error, "\tError : Division of complex numbers by zero");
    return std::nullopt;
  }
  return left / right;
};

// A number as it can be read again: no literal has a sign in its exponent.
std::string WritePart(double x, const char* unit) {
  const std::string text = Quarn::ToText(Quarn::s_double(x)).Take();
  const std::size_t e = text.find('e');
  if (e == std::string::npos) return text + unit;
  const std::string exponent = text.substr(e + 2);
  if (text[e + 1] == '+') return text.substr(0, e) + "e" + exponent + unit;  // 2e30i
  return text.substr(0, e) + unit + "/1e" + exponent;                        // 2i/1e05
}

}  // namespace

void Complex::Register(Quarn::State& state) {
  state.AddType(Quarn::TypeOf<Complex>(kDigits));
  state.AddBinary({
      Row<Complex(Complex, Complex)>("+", std::plus<>()),
      Row<Complex(Complex, Scalar)>("+", std::plus<>()),
      Row<Complex(Scalar, Complex)>("+", std::plus<>()),
      Row<Complex(Complex, Complex)>("-", std::minus<>()),
      Row<Complex(Complex, Scalar)>("-", std::minus<>()),
      Row<Complex(Scalar, Complex)>("-", std::minus<>()),
      Row<Complex(Complex, Complex)>("*", std::multiplies<>()),
      Row<Complex(Complex, Scalar)>("*", std::multiplies<>()),
      Row<Complex(Scalar, Complex)>("*", std::multiplies<>()),
      Row<Complex(Complex, Complex)>("/", kDivide),
      Row<Complex(Complex, Scalar)>("/", kDivide),
      Row<Complex(Scalar, Complex)>("/", kDivide),
  });
  // Written before the operand: +z, -z.
  state.AddRightUnary({
      {"+", kType, Copy}, // keeps the operand's name
      Row<Complex(Complex)>("-", std::negate<>()),
  });
  // Written behind the operand: z*.
  state.AddLeftUnary({
      Row<Complex(Complex)>("*", kConjugate),
  });
  state.AddFunctions({
      Call<Complex(Complex)>("conj", kConjugate),
      Call<Scalar(Complex)>("abs", kAbsolute),
      Call<Scalar(Scalar)>("abs", kAbsolute),
      Call<Scalar(Complex)>("re", kReal),
      Call<Scalar(Scalar)>("re", kReal),
      Call<Scalar(Complex)>("im", kImaginary),
      Call<Scalar(Scalar)>("im", kImaginary),
  });
}

std::optional<Number> Complex::Read(std::string_view text) {
  if (!text.ends_with('i')) return std::nullopt;
  text.remove_suffix(1);
  // Digits at both ends, so that neither "i" nor "3 i" is one.
  if (text.find_first_of(kDigits) != 0 || text.find_last_of(kDigits) != text.size() - 1) {
    return std::nullopt;
  }
  if (!Quarn::IsNumberLiteral(text)) return std::nullopt;
  return Number(0, Quarn::ReadDouble(text).value.Get());
}

std::string Complex::Write(const Number& value) {
  const std::string sign = std::signbit(value.imag()) ? "-" : "+";
  return WritePart(value.real(), "") + sign + WritePart(std::abs(value.imag()), "i");
}
