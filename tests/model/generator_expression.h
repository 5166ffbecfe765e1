#pragma once

#include <cstddef>
#include <string>

#include "tests/model/generator_random.h"

namespace Quarn::model {

// Writes expressions. Most have the type that is asked for, as far as the names hold what they
// usually hold; the deeper the levels left, the longer the text.
class ExpressionWriter {
 public:
  explicit ExpressionWriter(Dice& dice) : dice_(dice) {}

  std::string Any(std::size_t levels);
  std::string Scalar(std::size_t levels);
  std::string Vector(std::size_t levels);
  // What is likely to fail, or means something else than it seems to.
  std::string Odd(std::size_t levels);

  std::string ScalarName();
  std::string VectorName();
  std::string ReferenceName();
  std::string AnyName();
  std::string Number();
  // Usually nothing.
  std::string Blank();

 private:
  std::string Whole(std::size_t most);
  std::string Digits();
  std::string Around(const std::string& text);
  std::string Elements(std::size_t count, std::size_t levels);
  std::string OfLength(std::size_t count, std::size_t levels);
  std::string LongVector(std::size_t levels);
  std::string MixedVector(std::size_t levels);
  std::string Element(std::size_t levels);
  std::string Indexing(std::size_t levels);
  std::string IndexText(std::size_t levels);
  std::string ScalarCall(std::size_t levels);
  std::string OddCall(std::size_t levels);
  std::string OddSigns(std::size_t levels);
  std::string OddBrackets(std::size_t levels);
  std::string FactorialText();

  Dice& dice_;
};

}  // namespace Quarn::model
