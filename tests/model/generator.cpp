#include "tests/model/generator.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/generator_answers.h"
#include "tests/model/generator_expression.h"
#include "tests/model/generator_random.h"

namespace Quarn::model {
namespace {

class LineWriter {
 public:
  explicit LineWriter(std::uint64_t seed) : dice_(seed), write_(dice_) {}

  Step NextStep() {
    Step step;
    // Most sessions start with something to work with.
    const bool is_start = ++steps_ <= 3 && !dice_.OneIn(4);
    do {
      step.line = is_start ? Start() : Line();
    } while (step.line == "q" || step.line == "exit");
    step.answers = AnswersTo(step.line, dice_);
    return step;
  }

 private:
  std::string Start() {
    switch (steps_) {
      case 1:
        return Join({"a=", write_.Number(), ";b=", write_.Number(), ";x1=a+", write_.Number()});
      case 2:
        return Join({"v=", write_.Vector(1), ";w=<a, b, x1>;m=<v,w>", dice_.Pick({"", ";c=v[1]"})});
      default:
        return Join({ReferenceDefinition(), ";", ReferenceDefinition()});
    }
  }

  std::string Line() {
    std::string line = Command();
    while (dice_.OneIn(5)) line += Join({dice_.Pick({";", ";", ";", "; ", ";;", " ;"}), Command()});
    if (dice_.OneIn(40)) line = ";" + line;
    if (dice_.OneIn(40)) line += dice_.Pick({";", "; ", ";\t"});
    while (dice_.OneIn(16)) Damage(line);
    return line;
  }

  std::string Command() {
    const std::size_t roll = dice_.Below(100);
    if (roll < 16) return Join({Target(write_.ScalarName()), write_.Scalar(2)});
    if (roll < 28) return Join({Target(write_.VectorName()), write_.Vector(2)});
    if (roll < 34) return Join({Target(write_.ReferenceName()), write_.Any(1)});
    if (roll < 46) return ReferenceDefinition();
    if (roll < 80) return Join({write_.Blank(), write_.Any(2), write_.Blank()});
    if (roll < 86) return Query();
    if (roll < 90) return Declaration();
    if (roll < 94) return Deletion();
    return OddCommand();
  }

  std::string Target(const std::string& name) {
    return Join({write_.Blank(), name, write_.Blank(), "=", write_.Blank()});
  }

  // Mostly of names that hold plain values, so that not every second session is one ring.
  std::string ReferenceDefinition() {
    const std::string start = Join({write_.Blank(), write_.ReferenceName(), write_.Blank(),
                                    dice_.Pick({"&=", "&=", "&= ", "=&", "= &"})});
    switch (dice_.Below(6)) {
      case 0:
        return start + write_.ScalarName();
      case 1:
        return Join(
            {start, write_.ScalarName(), dice_.Pick({"+1", "*2", " - a", "+rand()", "/x1"})});
      case 2:
        return Join({start, write_.VectorName(), dice_.Pick({"", "[1]", "*2", "+w", "[a]"})});
      case 3:
        return Join({start, write_.ReferenceName(), dice_.Pick({"", "+1", "[0]"})});
      case 4:
        return start + dice_.Pick({"y", "y+1", "", " ", "+", "rand()", "rand(0,9)", "z", "null",
                                   "<1,&r>", "_", "min(a,b)", "&a", "&&s", "(", "r+r"});
      default:
        return start + write_.Any(1);
    }
  }

  std::string Query() {
    return "?" + (dice_.OneIn(12) ? dice_.Pick({"", " ", " a", "a ", "_", "?"}) : write_.AnyName());
  }

  std::string Declaration() {
    const std::string type =
        dice_.Pick({"Symbol", "Symbol", "Scalar", "Vector", "Reference", "Reference", " Scalar ",
                    "scalar", "Foo", "", " ", "Scalar x", "\tVector", "Vector:Scalar"});
    return Join({write_.Blank(), write_.AnyName(), write_.Blank(), ":", type});
  }

  std::string Deletion() {
    if (dice_.OneIn(12)) return dice_.Pick({"~", "~", "~", "~ ", "~ a", "~_", "~~", "~a+b", "~?"});
    return "~" + write_.AnyName();
  }

  std::string OddCommand() {
    switch (dice_.Below(9)) {
      case 0:
        return Join({dice_.Pick({"//", "// "}), Command()});
      case 1:
        return Join({write_.AnyName(), dice_.Pick({":=", " := ", ":=:", "=:"}), write_.Any(0)});
      case 2:
        return Join(
            {dice_.Pick({"=", "&=", ":", " =", " &= ", ": "}),
             dice_.OneIn(2) ? write_.Any(0) : dice_.Pick({"Scalar", "Symbol", "Vector", ""})});
      case 3:
        return Join(
            {dice_.Pick({"_", "a b", "a.b", "my_var", "a+b", "?a", "~a", "\ta", "v[1]", "a&b"}),
             dice_.Pick({"=", "&=", ":", ":="}), write_.Any(0)});
      case 4:
        return Join({write_.AnyName(), dice_.Pick({"=", "&="}), write_.AnyName(),
                     dice_.Pick({"=", "&=", ":", "&"}), write_.Any(0)});
      case 5:
        return dice_.OneIn(4) ? "?" : "_";
      case 6:
        return Soup();
      case 7:
        return write_.Odd(3);
      default:
        return write_.AnyName();
    }
  }

  std::string Soup() {
    std::string soup;
    for (std::size_t left = 1 + dice_.Below(10); left > 0; --left) soup += Character();
    return soup;
  }

  std::string Character() {
    if (dice_.OneIn(60)) return dice_.Pick({"\xC3", "\x80", "\x7F", "\x01", "#", "\"", "@", "\v"});
    return dice_.Pick({" ", "\t", "+", "-", "*", "/", "^", "!", "[", "]", "(", ")", "<",
                       ">", ",",  ".", "&", "=", ":", ";", "~", "?", "_", "e", "a", "r",
                       "v", "0",  "1", "2", "+", "(", ")", "<", ">", ",", " ", "1", "a"});
  }

  // Deletes, inserts or swaps.
  void Damage(std::string& line) {
    const std::size_t at = dice_.Below(line.size() + 1);
    switch (dice_.Below(3)) {
      case 0:
        if (at < line.size()) line.erase(at, 1);
        break;
      case 1:
        line.insert(at, Character());
        break;
      default:
        if (at + 1 < line.size()) std::swap(line[at], line[at + 1]);
        break;
    }
  }

  Dice dice_;
  ExpressionWriter write_;
  std::size_t steps_ = 0;
};

}  // namespace

std::vector<Step> Session(std::uint64_t seed, std::size_t length) {
  LineWriter writer(seed);
  std::vector<Step> steps;
  for (std::size_t i = 0; i < length; ++i) steps.push_back(writer.NextStep());
  return steps;
}

}  // namespace Quarn::model
