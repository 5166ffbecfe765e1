// A host that calculates before main and includes no header that would set up the standard streams.
#include "interpreter/state.h"

namespace {

struct BeforeMain {
  BeforeMain() { state.ProcessLine("x=1+2;?x"); }

  Quarn::State state;
};
BeforeMain before_main;

}  // namespace

int main() { before_main.state.ProcessLine("x+1"); }
