// Tests of complex numbers: lines as they are typed, and what is printed.
#include "complex.h"

#include <mirlow/state.h>
#include <mirlow/vector.h>

#include <iostream>
#include <sstream>

namespace {

struct Row {
  const char* line;
  const char* printed;
};

// clang-format off
constexpr Row kRows[] = {
    // Literals.
    {"3i", "\tComplex : 0+3i\n"},
    {"2.5e2i", "\tComplex : 0+250i\n"},
    {"1-2i", "\tComplex : 1-2i\n"},
    {"z=3i", "\tDefining Complex : z = 0+3i\n"},
    {"z:Complex", "\tDefining Complex : z = 0+0i\n"},
    {"i", "\tDefining Symbol : i\n"},
    {"3 i", "\tError : Unable to parse expression '3 i', no operator found\n"},
    {"3", "\tScalar : 3\n"},

    // Arithmetic, with numbers on both sides.
    {"(1+2i)*(3-1i)", "\tComplex : 5+5i\n"},
    {"2*(1+2i)", "\tComplex : 2+4i\n"},
    {"(1+2i)*2", "\tComplex : 2+4i\n"},
    {"1i*1i", "\tComplex : -1+0i\n"},
    {"5/(1+2i)", "\tComplex : 1-2i\n"},
    {"(4+2i)/2", "\tComplex : 2+1i\n"},
    {"(3+1i)/(1i)", "\tComplex : 1-3i\n"},
    {"3-1i-3", "\tComplex : 0-1i\n"},
    {"-(1+2i)", "\tComplex : -1-2i\n"},
    {"1i/0", "\tError : Division of complex numbers by zero\n"},
    {"1/(0*1i)", "\tError : Division of complex numbers by zero\n"},

    // The conjugate, written behind its operand.
    {"(1+2i)*", "\tComplex : 1-2i\n"},
    {"2*", "\tError : No match for operator 'Scalar *' in :\n\t        \t2 *\n"},

    // Functions, overloaded.
    {"conj(1+2i)", "\tComplex : 1-2i\n"},
    {"abs(3+4i)", "\tScalar : 5\n"},
    {"abs(0-5)", "\tScalar : 5\n"},
    {"re(1+2i)", "\tScalar : 1\n"},
    {"im(1+2i)", "\tScalar : 2\n"},
    {"re(7)", "\tScalar : 7\n"},
    {"im(7)", "\tScalar : 0\n"},
    {"abs(<1>)",
     "\tError : No matching function call to :\n\t\t  abs(Vector)\n\t\tPossible candidates :\n"
     "\t\t  abs(Complex)\n\t\t  abs(Scalar)\n"},

    // Vectors, which know nothing of complex numbers.
    {"<1i, 2i>+<1+1i, 1i>", "\tVector : <1+2i, 0+3i>\n"},
    {"2*<1i, 1+1i>", "\tVector : <0+2i, 2+2i>\n"},
    {"-<1i, 2i>", "\tVector : <-0-1i, -0-2i>\n"},
    {"<1i, 0*1i, 0*1i>^<0*1i, 1i, 0*1i>", "\tVector : <0+0i, 0+0i, -1+0i>\n"},
    {"<1i, 2i>[1]", "\tComplex : 0+2i\n"},
    {"<1, 1i>",
     "\tError : Non-homogeneous Vectors are not allowed.\n"
     "\t        Trying to mix Scalar with Complex\n"},

    // An operation that must wait keeps its operands as texts, which are read once it can be done.
    {"r&=w;s=r*(2+1i/100000);w=1i;s-s*0.5",
     "\tDefining Reference : r = w\n\tDefining Reference : s = (w)*(2+1i/1e05)\n"
     "\tDefining Complex : w = 0+1i\n\tComplex : -5/1e06+1i\n"},
    {"-5/1e06+1i", "\tComplex : -5/1e06+1i\n"},
    {"1e30*1i", "\tComplex : 0+1e30i\n"},
    {"0+1e30i", "\tComplex : 0+1e30i\n"},
};
// clang-format on

std::string Print(const std::string& line) {
  std::ostringstream out;
  std::istringstream in;
  Quarn::State state(out, in);
  Quarn::Vector::Register(state);
  Complex::Register(state);
  state.ProcessLine(line);
  return out.str();
}

}  // namespace

int main() {
  int failures = 0;
  for (const Row& row : kRows) {
    const std::string printed = Print(row.line);
    if (printed == row.printed) continue;
    std::cout << row.line << "\nprints\n" << printed << "instead of\n" << row.printed;
    ++failures;
  }
  return failures == 0 ? 0 : 1;
}
