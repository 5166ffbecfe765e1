// Player types the steps of a session into a State of its own.
//   Player player(1);
//   player.Play({"1+1", {}});  // "\tScalar : 2\n"
#pragma once

#include <functional>
#include <sstream>
#include <string>

#include "interpreter/state.h"
#include "tests/model/generator.h"

namespace Quarn::model {

class Player {
 public:
  // Seeds `rand`. `prepare`, if any, is called once for the State.
  explicit Player(unsigned int random_seed, const std::function<void(State&)>& prepare = {});
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  State& GetState() { return state_; }
  // What the line prints, its questions answered.
  std::string Play(const Step& step);

 private:
  std::ostringstream out_;
  std::stringstream in_;
  State state_;
};

}  // namespace Quarn::model
