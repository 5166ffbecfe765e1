// What the files of the model share among themselves about levels, limits and types.
#pragma once

#include <algorithm>
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

// One level of the evaluation, from its construction to its destruction. Within one command the
// same step on the same text does the same each time (unless it draws), so a step that is entered
// again while it runs never ends. A step without a name only counts.
class Model::Frame {
 public:
  Frame(Model& model, const std::string& step, const std::string& text) : model_(model) {
    const std::string key = step.empty() ? "" : step + text;
    model.work_ += 1 + text.size() / kCharactersPerWork;
    if (model.work_ > kMostWork) throw Outside("too much work");
    const bool entered =
        std::find(model.active_.begin(), model.active_.end(), key) != model.active_.end();
    if (!step.empty() && entered) model.MeetRing();
    if (model.active_.size() >= kMostLevels) throw Outside("too many levels");
    model.active_.push_back(key);
  }
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;
  ~Frame() { model_.active_.pop_back(); }

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
