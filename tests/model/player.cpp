#include "tests/model/player.h"

#include <cstdlib>

#include "types/vector.h"

namespace Quarn::model {

Player::Player(unsigned int random_seed, const std::function<void(State&)>& prepare)
    : state_(out_, in_) {
  std::srand(random_seed);
  Vector::Register(state_);
  if (prepare) prepare(state_);
}

std::string Player::Play(const Step& step) {
  std::string answers;
  for (const std::string& answer : step.answers) answers += answer + '\n';
  in_.clear();
  in_.str(answers);
  out_.str({});
  state_.ProcessLine(step.line);
  return out_.str();
}

}  // namespace Quarn::model
