#include "tools/answers.h"

#include <iostream>

#include "tools/interrupts.h"

namespace Quarn {

Answers::int_type Answers::underflow() {
  const Interrupts::Noting noting;
  std::istream lines(&terminal_);
  if (!std::getline(lines, line_)) {
    Interrupts::Take();
    line_ = "n";
    std::cout << std::endl;  // ends the question's line, as Enter would have
  }
  line_ += '\n';
  setg(line_.data(), line_.data(), line_.data() + line_.size());
  return traits_type::to_int_type(line_.front());
}

}  // namespace Quarn
