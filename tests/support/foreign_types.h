// Types as somebody outside of this library would write them: they know nothing but the public
// headers.
#pragma once

#include <string>

#include "interpreter/state.h"

namespace Quarn {

// A value of any type and text. It writes down what it is asked: "type(a) text(a) ".
class Probe : public Symbol {
 public:
  Probe(std::string& log, const s_str& label, const s_str& type)
      : Symbol(""), log_(&log), label_(label), type_(type) {}

  s_str ToString() const override { return Answer("text", label_); }
  s_str GetType() const override { return Answer("type", type_); }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Probe(*this)); }

 private:
  s_str Answer(const std::string& question, const s_str& answer) const {
    *log_ += question + "(" + label_.Get() + ") ";
    return answer;
  }

  std::string* log_;
  s_str label_;
  s_str type_;
};

// A text, written 'abc. It has nothing that is optional: its literals are copied and its type is
// asked for by text. "+" joins two of them, and "!" behind one doubles it: 'ab! is 'abab.
class Word : public Symbol {
 public:
  static void Register(State& state) {
    state.AddType({"Word", Create, IsLiteral, CreateFrom});
    state.AddBinary({
        {"Word", "+", "Word", Join}
    });
    state.AddLeftUnary({
        {"!", "Word", Double}
    });
  }

  Word(const s_str& name, const s_str& text) : Symbol(name), text_(text) {}

  s_str ToString() const override {
    return GetName().IsEmpty() ? text_ : GetName() + " = " + text_;
  }
  s_str GetType() const override { return "Word"; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Word(*this)); }

 private:
  static s_refptr<Symbol> New(const s_str& name, const s_str& text) {
    return s_refptr<Symbol>(new Word(name, text));
  }
  static const s_str& TextOf(const s_refptr<Symbol>& value) {
    return static_cast<const Word&>(*value).text_;
  }

  static s_refptr<Symbol> Create(const s_str& name) { return New(name, "-"); }
  static s_bool IsLiteral(std::string_view text) { return text.starts_with("'"); }
  static s_refptr<Symbol> CreateFrom(State&, const s_str& name, const s_str& text, s_str& error) {
    if (text == "'") {
      error += "\tError : A word has letters";
      return {};
    }
    return New(name, text.ExtractCount(1U, s_uint::INF));
  }
  static s_refptr<Symbol> Join(s_refptr<Symbol> left, s_refptr<Symbol> right, s_str&) {
    return New("", TextOf(left) + TextOf(right));
  }
  static s_refptr<Symbol> Double(s_refptr<Symbol> operand, s_str&) {
    return New("", TextOf(operand) + TextOf(operand));
  }

  s_str text_;
};

// Registers a type whose literals are texts of digits alone, as some of Scalar's are.
inline void RegisterDigits(State& state, const s_str& type) {
  state.AddType({type, [](const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); },
                 [](std::string_view text) -> s_bool {
                   return text.find_first_not_of("0123456789") == std::string_view::npos;
                 },
                 [](State&, const s_str& name, const s_str&, s_str&) {
                   return s_refptr<Symbol>(new Symbol(name));
                 }});
}

// Registers tap(Scalar), which gives its argument back and notes it down: "1 2 ".
inline void RegisterTap(State& state, std::string& log) {
  state.AddFunction("tap", {"Scalar"},
                    [&log](State&, const Values& arguments, Values& results, s_str&) -> s_bool {
                      log += arguments[0U]->ToString().Get() + " ";
                      results.PushBack(arguments[0U]->Clone());
                      return true;
                    });
}

}  // namespace Quarn
