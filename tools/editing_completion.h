// Tab: readline shows what completion.h finds.
#pragma once

namespace Quarn {

class State;

void SetUpCompletion();

// The State must outlive the editing.
void CompleteFrom(const State& state);

}  // namespace Quarn
