#include "tests/model/kept.h"

#include "interpreter/core.h"
#include "tests/model/player.h"

namespace Quarn::model {

std::vector<std::string> Outputs(const std::vector<Step>& session, unsigned int random_seed,
                                 bool keeps_values, const std::function<void(State&)>& prepare) {
  Player player(random_seed, prepare);
  if (!keeps_values) player.GetState().GetCore().machine.KeepNothing();
  std::vector<std::string> outputs;
  for (const Step& step : session) outputs.push_back(player.Play(step));
  return outputs;
}

}  // namespace Quarn::model
