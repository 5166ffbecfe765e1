// Properties of the evaluation of one expression, among symbols of every type:
//   it has a value, or else a message that begins like an error;
//   evaluated again, it comes to the same, since evaluating changes nothing;
//   in parentheses, it comes to the same;
//   its value, printed and read back, prints the same.
// Skipped are the two operators' ways that never return; and for the last two properties,
// expressions whose brackets do not nest well, and values that no literal can say (inf+, 1e+20).
#include <cstdlib>
#include <sstream>

#include "tests/fuzz/bounded.h"
#include "tests/fuzz/fuzz.h"
#include "types/vector.h"

namespace Quarn::fuzz {
namespace {

class Evaluator {
 public:
  Evaluator() {
    Vector::Register(state_);
    RegisterBounded(state_);
    state_.ProcessLine("x=2.5;y=-3;v=<1, 2, 3>;w=<<1, 2>, <3, 4>>;n=<>;a;r&=x+1;s&=v;t&=zz;o&=o");
    out_.str("");
  }

  // Type and text, or the messages.
  std::string Evaluate(const std::string& expression) {
    std::srand(1);
    s_str error;
    const s_refptr<Symbol> value = state_.ParseSymbol("", expression, error, false);
    if (!value) {
      Require(error.StartsWith("\tError : "), "a failure says what failed", error.GetView());
      return error.Get();
    }
    Require(error.IsEmpty(), "a value comes without a message", error.GetView());
    text_ = value->ToString().Get();
    return value->GetType().Get() + " : " + text_;
  }
  // Without its type.
  const std::string& GetText() const { return text_; }

 private:
  std::ostringstream out_;
  std::istringstream in_;
  State state_{out_, in_};
  std::string text_;
};

// Is every bracket closed by its own kind, in order? More than the language asks, where one kind
// hides the others: "[(]" is balanced there, and is not any more within parentheses.
bool IsWellNested(const std::string& expression) {
  constexpr std::string_view kOpen = "(<[", kClose = ")>]";
  std::string expected;
  for (char c : expression) {
    const std::size_t kind = kOpen.find(c);
    if (kind != std::string_view::npos) expected += kClose[kind];
    if (kClose.find(c) == std::string_view::npos) continue;
    if (expected.empty() || expected.back() != c) return false;
    expected.pop_back();
  }
  return expected.empty();
}

bool IsLiteral(const std::string& value) {
  const bool is_typed = value.starts_with("Scalar : ") || value.starts_with("Vector : ");
  return is_typed && value.find_first_not_of("0123456789.-<>, ", 9) == std::string::npos;
}

bool IsTooDeep(const std::string& value) {
  return value.find("nested too deeply") != std::string::npos;
}

}  // namespace

void Try(std::string_view input) {
  static Evaluator evaluator;
  const std::string expression(input);
  const std::string value = evaluator.Evaluate(expression);
  const std::string text = evaluator.GetText();
  RequireEqual(evaluator.Evaluate(expression), value, "evaluating changes nothing");
  if (IsWellNested(expression)) {
    RequireEqual(evaluator.Evaluate("(" + expression + ")"), value, "parentheses change nothing");
  }
  if (IsTooDeep(value) || !IsLiteral(value)) return;
  RequireEqual(evaluator.Evaluate(text), value, "a printed value reads back");
}

}  // namespace Quarn::fuzz
