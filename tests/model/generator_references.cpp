// Sessions about references. Their names are numbered, so that those of a chain can be told apart;
// what they rest on are the names a, b, v and y, the last of which is often missing. The chains are
// short enough for the model, which evaluates each reference again and again.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/generator.h"
#include "tests/model/generator_answers.h"
#include "tests/model/generator_expression.h"
#include "tests/model/generator_random.h"

namespace Quarn::model {
namespace {

constexpr std::size_t kNames = 8;

std::string NameOf(std::size_t number) { return "r" + std::to_string(number); }

class ReferenceWriter {
 public:
  explicit ReferenceWriter(std::uint64_t seed) : dice_(seed), write_(dice_) {}

  Step NextStep() {
    if (lines_.empty()) AddLines();
    Step step;
    step.line = lines_.back();
    lines_.pop_back();
    step.answers = AnswersTo(step.line, dice_);
    return step;
  }

 private:
  // Some lines that belong together, the last one first.
  void AddLines() {
    const std::size_t roll = steps_++ == 0 ? 4 : dice_.Below(60);
    if (roll < 2) return AddChain();
    if (roll < 4) return AddFan();
    if (roll < 5) return lines_.push_back(Start());
    if (roll < 6) return AddRing();
    std::string line = Command();
    while (dice_.OneIn(4)) line += ";" + Command();
    lines_.push_back(std::move(line));
  }

  std::string Start() {
    return Join({"a=", write_.Number(), ";b=", write_.Number(), ";v=<a, 2, b>"});
  }

  std::string Command() {
    const std::size_t roll = dice_.Below(30);
    if (roll < 10) return Definition();
    if (roll < 13) return Join({Base(), "=", Value()});
    if (roll < 20) return Use();
    if (roll < 22) return "?" + AnyName();
    if (roll < 23) return Deletion();
    if (roll < 25) return Copy();
    if (roll < 26) return Declaration();
    if (roll < 27) return "_";
    return write_.Any(1);
  }

  // ---- Several lines ----

  // Each reads the one before it, once or twice.
  void AddChain() {
    std::vector<std::string> links = {Join({"r0&=", Base(), dice_.Pick({"", "+1", "*2"})})};
    const std::size_t length = 2 + dice_.Below(kNames - 2);
    const bool is_doubling = dice_.OneIn(3) && length < 6;
    for (std::size_t i = 1; i <= length && i < kNames; ++i) {
      const std::string before = NameOf(i - 1);
      const std::string after =
          is_doubling ? Join({dice_.Pick({"+", "-", "*"}), before})
                      : dice_.Pick({"", "+1", "*2", "-a", "+b", "/3", "+rand(0,9)", "[1]", "+y"});
      links.push_back(
          Join({NameOf(i), "&=", dice_.Pick({"", "", "", "&", "-", "-&", "-&("}), before, after}));
    }
    AddInSomeOrder(std::move(links), NameOf(length));
  }

  // Many read one, and one reads them all.
  void AddFan() {
    const std::string base = Base();
    const std::size_t count = 2 + dice_.Below(4);
    std::vector<std::string> links;
    std::string all = "0";
    for (std::size_t i = 1; i <= count; ++i) {
      links.push_back(Join({NameOf(i), "&=", base, dice_.Pick({"+1", "*2", "", "/b", "+rand()"})}));
      all += Join({dice_.Pick({"+", "+", "-", "*"}), NameOf(i)});
    }
    links.push_back("r0&=" + all);
    AddInSomeOrder(std::move(links), "r0");
  }

  void AddRing() {
    const std::size_t count = 1 + dice_.Below(4);
    std::vector<std::string> links;
    for (std::size_t i = 0; i < count; ++i) {
      links.push_back(Join({NameOf(i), "&=", dice_.Pick({"", "", "-", "&", "<1,", "a+", "y+"}),
                            NameOf((i + 1) % count), dice_.Pick({"", "", "+1", ">", "+rand()"})}));
    }
    AddInSomeOrder(std::move(links), NameOf(dice_.Below(count)));
  }

  // Upwards, downwards or mixed, then the last one asked, its base changed, and asked again.
  void AddInSomeOrder(std::vector<std::string> links, const std::string& last) {
    if (dice_.OneIn(3)) std::reverse(links.begin(), links.end());
    if (dice_.OneIn(4)) std::swap(links[dice_.Below(links.size())], links.front());
    lines_.push_back(last);
    lines_.push_back(Join({Base(), "=", Value()}));
    lines_.push_back(Join({dice_.Pick({"", "", "?", "x1="}), last}));
    if (dice_.OneIn(2)) {
      lines_.insert(lines_.end(), links.rbegin(), links.rend());
      return;
    }
    std::string line;
    for (const std::string& link : links) line += link + ";";
    lines_.push_back(std::move(line));
  }

  // ---- Commands ----

  std::string Definition() {
    const std::string start =
        Join({AnyReference(), dice_.Pick({"&=", "&=", "&=", "&= ", "=&", "= & "})});
    return start + Expression();
  }

  std::string Expression() {
    switch (dice_.Below(10)) {
      case 0:
        return dice_.Pick({"", "&", "&&", "-", "+"}) + AnyName();
      case 1:
      case 2:
        return Join({AnyName(), dice_.Pick({"+", "-", "*", "/", "^", "+&", "-&"}), AnyName()});
      case 3:
        return Join({AnyName(), dice_.Pick({"+", "*", "-", "/"}), write_.Number()});
      case 4:
        return Join({"<", Element(), ",", Element(), ">", dice_.Pick({"", "", "[0]", "*2", "+v"})});
      case 5:
        return Join({dice_.Pick({"min(", "max(", "rand("}), AnyName(), ",", AnyName(), ")"});
      case 6:
        return Join({dice_.Pick({"v", "v", "r0", "r1", "<1,2>"}), "[", AnyName(), "]"});
      case 7:
        return Join({dice_.Pick({"round(", "-(", "-&(", "!(", "(", "&("}), AnyName(), ")"});
      case 8:
        return dice_.Pick({"_", "_+1", "_+a", "rand()", "rand(0,9)", "rand()+a", "y", "y+1", "",
                           "null", "v+1", "v+y", "-y", "y[0]", "<1>+<2,3>", "1+", "(", "!v"});
      default:
        return Join(
            {AnyReference(), dice_.Pick({"+v", "+<1,y>", "[0]", "+rand(0,9)", "*v", "+_"})});
    }
  }

  std::string Element() {
    return Join(
        {dice_.Pick({"", "", "&", "&-", "-"}), dice_.OneIn(4) ? write_.Number() : AnyName()});
  }

  std::string Value() {
    switch (dice_.Below(6)) {
      case 0:
        return "<" + Element() + ">";
      case 1:
        return AnyReference();
      case 2:
        return dice_.Pick({"a+1", "_", "b", "rand(0,9)", "v[0]", "<1, 2, 3>", "&b", "b+"});
      default:
        return write_.Number();
    }
  }

  std::string Use() {
    if (dice_.OneIn(3)) return AnyReference();
    return Expression();
  }

  // What was a reference becomes a value, or the other way round.
  std::string Copy() {
    const std::string target = dice_.OneIn(2) ? AnyReference() : dice_.Pick({"a", "b", "x1", "v"});
    return Join({target, "=", dice_.Pick({"", "", "", "&", "-"}), AnyReference()});
  }

  std::string Declaration() {
    return Join({AnyName(), ":",
                 dice_.Pick({"Symbol", "Scalar", "Vector", "Reference", "Reference", "Foo"})});
  }

  std::string Deletion() { return dice_.OneIn(8) ? "~" : "~" + AnyName(); }

  // ---- Names ----

  std::string AnyReference() { return NameOf(dice_.Below(kNames)); }

  std::string Base() { return dice_.Pick({"a", "a", "a", "b", "v", "y"}); }

  std::string AnyName() {
    return dice_.OneIn(2) ? AnyReference() : dice_.Pick({"a", "a", "b", "v", "v", "y", "z", "_"});
  }

  Dice dice_;
  ExpressionWriter write_;
  std::vector<std::string> lines_;  // to come, the next one last
  std::size_t steps_ = 0;
};

}  // namespace

std::vector<Step> ReferenceSession(std::uint64_t seed, std::size_t length) {
  ReferenceWriter writer(seed);
  std::vector<Step> steps;
  for (std::size_t i = 0; i < length; ++i) steps.push_back(writer.NextStep());
  return steps;
}

}  // namespace Quarn::model
