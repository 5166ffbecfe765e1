// The comparison of a State beside a random host with the evaluator: the same questions to both,
// and the answers must be the same in everything that a host can see, the order of calls included.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "tests/random_host/evaluator.h"
#include "tests/random_host/expressions.h"
#include "tests/random_host/host.h"

namespace Quarn::random_host {

// An expression, and how it is asked for.
struct Question {
  std::string text;
  std::string name;     // that the value is to bear
  std::string earlier;  // what the error text holds already
  bool allow_new_symbol = false;
  bool compute = false;  // through Compute, which takes the text alone
};

// A State and an evaluator with the same rows and the same symbols.
class World {
 public:
  explicit World(std::uint64_t seed);

  // Asks so many questions, and changes symbols and rows in between. The first difference, with
  // all that is needed to understand it; none when both agree.
  std::optional<std::string> Run(std::size_t questions);

  // How many questions had a value, and how many have no end and were not asked.
  std::size_t CountValues() const { return values_; }
  std::size_t CountEndless() const { return endless_; }

 private:
  // All that there is to see of an answer, to be compared and to be read.
  struct Answer {
    std::string text;
    std::string calls;
    bool operator==(const Answer&) const = default;
  };

  std::vector<LiteralRow> GetLiterals() const;
  std::string DrawText(std::size_t references);
  Question DrawQuestion();
  Answer AskState(const Question& question);
  Answer AskEvaluator(const Question& question);
  bool Differ(const Question& question);
  Question Shrink(Question question);
  std::string Report(const Question& question);
  void KeepValues();
  void Change();
  void DefineReferences();
  bool IsEndless(const std::string& expression);
  void AddMore();

  std::uint64_t seed_;
  Dice dice_;
  Description description_;  // with the rows that came later
  std::ostringstream out_;
  std::istringstream in_;
  State state_;
  Host host_;
  Evaluator evaluator_;
  s_refptr<Symbol> state_value_;  // of the last question
  ValuePtr evaluator_value_;
  std::size_t values_ = 0;
  std::size_t endless_ = 0;
};

}  // namespace Quarn::random_host
