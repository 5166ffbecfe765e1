#include "tests/model/kept.h"

#include <cstdlib>
#include <sstream>

#include "interpreter/core.h"
#include "interpreter/state.h"
#include "types/vector.h"

namespace Quarn::model {

std::vector<std::string> Outputs(const std::vector<Step>& session, unsigned int random_seed,
                                 bool keeps_values, const std::function<void(State&)>& prepare) {
  std::srand(random_seed);
  std::ostringstream out;
  std::stringstream in;
  State state(out, in);
  Vector::Register(state);
  if (prepare) prepare(state);
  if (!keeps_values) state.GetCore().machine.KeepNothing();
  std::vector<std::string> outputs;
  for (const Step& step : session) {
    std::string answers;
    for (const std::string& answer : step.answers) answers += answer + '\n';
    in.clear();
    in.str(answers);
    out.str({});
    state.ProcessLine(step.line);
    outputs.push_back(out.str());
  }
  return outputs;
}

}  // namespace Quarn::model
