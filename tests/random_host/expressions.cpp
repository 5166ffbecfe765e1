#include "tests/random_host/expressions.h"

namespace Quarn::random_host {
namespace {

using model::Join;

constexpr int kMostNesting = 4;

class Maker {
 public:
  Maker(Dice& dice, const Vocabulary& vocabulary) : dice_(dice), vocabulary_(vocabulary) {}

  std::string Expression(int nesting) {
    std::string text = Operand(nesting);
    while (dice_.OneIn(2)) text = Join({text, Operator(), Operand(nesting)});
    return text;
  }

  // Loses, adds or doubles a few characters.
  std::string Damage(std::string text) {
    for (std::size_t i = 1 + dice_.Below(3); i-- > 0;) {
      const std::size_t at = dice_.Below(text.size() + 1);
      switch (dice_.Below(3)) {
        case 0:
          text.erase(at, 1);
          break;
        case 1:
          text.insert(at, dice_.Pick({"(", ")", "<", ">", "[",  "]", "+", "-", "*",  "!",
                                      "^", ",", "&", " ", "\t", "3", "k", ".", "[]", "e"}));
          break;
        default:
          text.insert(at, text.substr(at, 1 + dice_.Below(4)));
      }
    }
    return text;
  }

 private:
  std::string Operator() {
    return Join({Blank(), dice_.Pick({"+", "+", "-", "*", "/", "^"}), Blank()});
  }

  std::string Operand(int nesting) {
    if (nesting == kMostNesting) return Leaf();
    switch (dice_.Below(22)) {
      case 0:
      case 1:
        return Join({"(", Blank(), Expression(nesting + 1), Blank(), ")"});
      case 2:
        return Join({dice_.Pick({"-", "+", "!", "*"}), Operand(nesting + 1)});
      case 3:
        return Join({Operand(nesting + 1), Blank(), dice_.Pick({"!", "-", "+"})});
      case 4:
      case 5:
      case 6:
        return Join(
            {dice_.Pick({"fa", "f_b", "fc", "min", "max", " fa "}), "(", List(nesting + 1), ")"});
      case 7:
        return Join({"round(", Leaf(), ")"});
      case 8:
        return Join({"<", dice_.OneIn(2) ? List(nesting + 1) : Numbers(), ">"});
      case 9:
        return Join({Operand(nesting + 1), "[", Blank(), Leaf(), "]"});
      case 10:
        return dice_.OneIn(3) ? Join({"&", Blank(), Leaf()})
                              : Join({"(&", Expression(nesting + 1), ")"});
      default:
        return Leaf();
    }
  }

  std::string List(int nesting) {
    std::string list;
    for (std::size_t i = dice_.Below(4); i-- > 0;) {
      list = Join({list, Expression(nesting), i == 0 ? "" : dice_.Pick({",", ", ", " ,"})});
    }
    return list;
  }

  std::string Numbers() {
    std::string list = Number();
    for (std::size_t i = dice_.Below(3); i-- > 0;) list = Join({list, ", ", Number()});
    return list;
  }

  std::string Leaf() {
    switch (dice_.Below(20)) {
      case 0:
      case 1:
      case 2:
      case 3:
        return ValueName(dice_.Below(kValues));
      case 4:
      case 5:
        return vocabulary_.references == 0 ? "2"
                                           : ReferenceName(dice_.Below(vocabulary_.references));
      case 6:
      case 7:
      case 8:
      case 9:
      case 10:
      case 11:
      case 12:
      case 13:
        return Literal(vocabulary_.literals[dice_.Below(vocabulary_.literals.size())]);
      case 14:
        return Odd();
      default:
        return Number();
    }
  }

  std::string Number() { return std::to_string(dice_.Below(dice_.OneIn(3) ? 40 : 6)); }

  std::string Literal(const LiteralTexts& texts) {
    switch (texts.form) {
      case LiteralTexts::Form::kNone:
        break;
      case LiteralTexts::Form::kMarkDigits:
        return Join({texts.mark, Number()});
      case LiteralTexts::Form::kDigitsMark:
        return Join({Number(), texts.mark});
      case LiteralTexts::Form::kBegin:
        if (texts.mark == "<k") return Join({texts.mark, dice_.Pick({"1>", "1, 2>", ">"})});
        return Join({texts.mark, dice_.Pick({"1", "x y", "(3)", "[s0]", "<2>"})});
      case LiteralTexts::Form::kEnd:
        if (texts.mark == "]") return "s0[1]";
        if (texts.mark == ")") return "fa(2)";
        return Join({dice_.Pick({"x y", "<1>", "1", "(3)"}), texts.mark});
    }
    return Number();
  }

  // What is no operand, or only here and there.
  std::string Odd() {
    return dice_.Pick({"u0",     "u1",   "u0",  "u1",       "_",   "k1",  "12k",
                       "33",     "e5",   ".",   "0.5",      "2e1", "x y", "",
                       "k1[2]m", "(1)k", "&k1", "<k1, k2>", "[]",  "s0[]"});
  }

  std::string Blank() { return dice_.OneIn(6) ? " " : ""; }

  Dice& dice_;
  const Vocabulary& vocabulary_;
};

std::string Numbered(char letter, std::size_t i) {
  return std::string(1, letter) + std::to_string(i);
}

}  // namespace

std::string ValueName(std::size_t i) { return Numbered('s', i); }
std::string ReferenceName(std::size_t i) { return Numbered('r', i); }
std::string FleetingName(std::size_t i) { return Numbered('u', i); }

std::string DrawExpression(Dice& dice, const Vocabulary& vocabulary) {
  Maker maker(dice, vocabulary);
  const std::string text = maker.Expression(0);
  return dice.Below(20) < 3 ? maker.Damage(text) : text;
}

}  // namespace Quarn::random_host
