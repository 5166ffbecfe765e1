// What the files of the model share among themselves about levels, limits and types.
#pragma once

#include <cstddef>
#include <string>

#include "tests/model/model.h"

namespace Quarn::model {

// More than any session that is worth comparing: a level is one nested step of the evaluation, a
// unit of work is one step, or a few characters that it handles.
constexpr std::size_t kMostLevels = 1000;
constexpr std::size_t kMostWork = 200000;
constexpr std::size_t kCharactersPerWork = 16;
// Well behind the largest factorial that is finite.
constexpr int kMostFactors = 200;

// One level of the evaluation, from its construction to its destruction, with the text that it
// handles.
class Model::Frame {
 public:
  Frame(Model& model, const std::string& text) : model_(model) {
    model.work_ += 1 + text.size() / kCharactersPerWork;
    if (model.work_ > kMostWork) throw Outside("too much work");
    if (model.levels_ >= kMostLevels) throw Outside("too many levels");
    ++model.levels_;
  }
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;
  ~Frame() { --model_.levels_; }

 private:
  Model& model_;
};

// The type as it is declared, or as it was written: asks no reference for its value.
inline std::string OwnType(Kind kind) {
  switch (kind) {
    case Kind::kScalar:
      return "Scalar";
    case Kind::kVector:
      return "Vector";
    case Kind::kReference:
      return "Reference";
    case Kind::kSymbol:
      break;
  }
  return "Symbol";
}

inline bool IsReference(const ValuePtr& value) { return value->kind == Kind::kReference; }

}  // namespace Quarn::model
