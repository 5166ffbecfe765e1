#include "tests/model/compare.h"

#include <cstdlib>
#include <deque>

#include "tests/model/model.h"
#include "tests/model/player.h"

namespace Quarn::model {
namespace {

// What the model prints for each line, up to the first that it does not foretell.
std::vector<std::string> Foretell(const std::vector<Step>& session, unsigned int random_seed) {
  std::srand(random_seed);
  Model model;
  std::vector<std::string> outputs;
  try {
    for (const Step& step : session) {
      std::deque<std::string> answers(step.answers.begin(), step.answers.end());
      outputs.push_back(model.Run(step.line, answers));
    }
  } catch (const Outside&) {
  }
  return outputs;
}

}  // namespace

Comparison Compare(const std::vector<Step>& session, unsigned int random_seed,
                   const std::function<void(State&)>& prepare) {
  const std::vector<std::string> expected = Foretell(session, random_seed);
  Player player(random_seed, prepare);
  Comparison comparison{expected.size(), {}};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const std::string printed = player.Play(session[i]);
    if (printed == expected[i]) continue;
    comparison.difference = {i, expected[i], printed};
    break;
  }
  return comparison;
}

std::vector<Step> Shrink(std::vector<Step> session, unsigned int random_seed) {
  const auto differs = [&](const std::vector<Step>& candidate) {
    return Compare(candidate, random_seed).difference.has_value();
  };
  session.resize(Compare(session, random_seed).difference->step + 1);
  for (bool smaller = true; smaller;) {
    smaller = false;
    for (std::size_t i = session.size(); i-- > 0;) {
      std::vector<Step> without = session;
      without.erase(without.begin() + static_cast<std::ptrdiff_t>(i));
      if (!differs(without)) continue;
      session = without;
      smaller = true;
    }
    for (std::size_t i = 0; i < session.size(); ++i) {
      for (std::size_t c = session[i].line.size(); c-- > 0;) {
        std::vector<Step> without = session;
        without[i].line.erase(c, 1);
        if (!differs(without)) continue;
        session = without;
        smaller = true;
      }
    }
  }
  return session;
}

std::string Describe(const std::vector<Step>& session, const Comparison& comparison) {
  std::string text;
  for (const Step& step : session) {
    text += "> " + step.line + '\n';
    for (const std::string& answer : step.answers) text += "< " + answer + '\n';
  }
  if (!comparison.difference) return text;
  return text + "the model foretells\n" + comparison.difference->expected +
         "but what is printed is\n" + comparison.difference->printed;
}

}  // namespace Quarn::model
