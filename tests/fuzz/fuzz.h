// What the fuzz targets share. A target is one file, NAME_fuzz.cpp, that defines Try: it tries one
// input and ends the process where its property does not hold. With libFuzzer the inputs come from
// its engine (scripts/fuzz); in the test suite they are the files of corpus/NAME.
//   void Try(std::string_view input) { Require(Reverse(Reverse(input)) == input, "reverses back");
//   }
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace Quarn::fuzz {

// REQUIRES: nothing of the input; a target says on top what it skips, and why.
void Try(std::string_view input);

inline void Require(bool holds, std::string_view property, std::string_view detail = "") {
  if (holds) return;
  std::fprintf(stderr, "broken: %.*s\n%.*s\n", static_cast<int>(property.size()), property.data(),
               static_cast<int>(detail.size()), detail.data());
  std::abort();
}

inline void RequireEqual(const std::string& actual, const std::string& expected,
                         std::string_view property) {
  if (actual == expected) return;
  Require(false, property, "expected\n" + expected + "\nbut there is\n" + actual);
}

}  // namespace Quarn::fuzz
