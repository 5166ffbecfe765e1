// The comparison of a session with and without the keeping of values: what is printed must be the
// same to the last byte.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/model/generator.h"

namespace Quarn {
class State;
}

namespace Quarn::model {

// What each line prints. `prepare` may register more with the State before it begins.
std::vector<std::string> Outputs(const std::vector<Step>& session, unsigned int random_seed,
                                 bool keeps_values,
                                 const std::function<void(State&)>& prepare = {});

}  // namespace Quarn::model
