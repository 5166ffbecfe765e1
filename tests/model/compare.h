// The comparison of the program's library with the model: both carry out the same session, and what
// they print must be the same to the last byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/model/generator.h"

namespace Quarn {
class State;
}

namespace Quarn::model {

struct Comparison {
  std::size_t lines = 0;  // how many the model foretold
  // What each printed for the first line on which they differ; none when they agree.
  struct Difference {
    std::size_t step;
    std::string expected;
    std::string printed;
  };
  std::optional<Difference> difference;
};

// Carries out a session up to the first line that the model does not foretell. Both draw the same
// random numbers, from this seed. `prepare` may register more with the State before it begins.
Comparison Compare(const std::vector<Step>& session, unsigned int random_seed,
                   const std::function<void(State&)>& prepare = {});

// A session that still differs, with as few lines and characters as could be found.
std::vector<Step> Shrink(std::vector<Step> session, unsigned int random_seed);

// A session as one would type it, and both outputs of the line on which it differs.
std::string Describe(const std::vector<Step>& session, const Comparison& comparison);

}  // namespace Quarn::model
