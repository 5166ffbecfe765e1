// Properties of State::CheckBrackets, which cuts a text at its top level, at operators that are
// kept and at commas that are dropped:
//   the pieces, with separators kept, join to the input;
//   a slow reading, which starts anew for each character, cuts alike, and says the same of brackets
//   that are not balanced.
// Nothing is skipped; texts of more than 300 characters go without the slow reading.
#include <functional>
#include <sstream>

#include "interpreter/state.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/small_world.h"

namespace Quarn::fuzz {
namespace {

constexpr std::size_t kLongestForSlow = 300;

std::string Cut(const State& state, const std::string& text, const State::SeparatorTest& test,
                bool keep) {
  s_ctnr<s_str> pieces;
  s_str error;
  if (!state.CheckBrackets(pieces, text, test, error, keep)) return error.Get();
  std::string cut, joined;
  for (const s_str& piece : pieces) {
    cut += "|" + piece.Get();
    joined += piece.Get();
  }
  if (keep) RequireEqual(joined, text, "pieces join to the input");
  return cut;
}

State::SeparatorTest At(char wanted) {
  return [wanted](s_str::const_iterator position, const s_str&, s_str& separator) {
    separator = s_str().Append(wanted);
    return s_bool(*position == wanted);
  };
}

}  // namespace

void Try(std::string_view input) {
  static std::ostringstream out;
  static std::istringstream in;
  static const State state(out, in);
  const std::string text(input);
  const State::SeparatorTest operators =
      std::bind(&State::IsOperatorAt, &state, std::placeholders::_1, std::placeholders::_2,
                std::placeholders::_3);
  const std::string at_commas = Cut(state, text, At(','), false);
  Cut(state, text, operators, true);
  if (text.size() > kLongestForSlow) return;
  RequireEqual(SlowBrackets(text).Cut(',', false), at_commas, "the slow reading cuts alike");
  RequireEqual(SlowBrackets(text).Cut('+', true), Cut(state, text, At('+'), true),
               "the slow reading cuts alike at a sign");
}

}  // namespace Quarn::fuzz
