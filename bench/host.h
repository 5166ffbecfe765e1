// What the benchmarks run in: a State with Vector whose output goes nowhere.
#pragma once

#include <cstdint>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>

#include "interpreter/state.h"
#include "types/vector.h"

namespace Quarn {

class Nowhere : public std::streambuf {
 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

struct Host {
  Host() : out(&nowhere), state(out, in) { Vector::Register(state); }
  Nowhere nowhere;
  std::ostream out;
  std::istringstream in;
  State state;
};

inline std::string Repeat(const std::string& text, std::int64_t times) {
  std::string repeated;
  for (std::int64_t i = 0; i < times; ++i) repeated += text;
  return repeated;
}

}  // namespace Quarn
