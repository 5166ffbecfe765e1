#include "interpreter/symbol.h"

namespace Quarn {

// Made when it is first asked for, which may be before main.
const s_str& Symbol::NoName() {
  static const s_str no_name;
  return no_name;
}

}  // namespace Quarn
