// A type with one operator, all in one file: a text, written 'abc, and "+", which joins two.
#include <mirlow/holder.h>
#include <mirlow/state.h>
#include <mirlow/value.h>

#include <functional>
#include <iostream>
#include <sstream>

namespace {

class Text final : public Quarn::Holder<Text, std::string> {
 public:
  static constexpr char kType[] = "Text";
  static void Register(Quarn::State& state) {
    state.AddType(Quarn::TypeOf<Text>("'"));
    state.AddBinary({Quarn::Row<Text(Text, Text)>("+", std::plus<>())});
  }

  static std::optional<std::string> Read(std::string_view text) {
    if (!text.starts_with("'")) return std::nullopt;
    return std::string(text.substr(1));
  }
  static std::string Write(const std::string& text) { return "'" + text; }

  using Holder::Holder;
};

}  // namespace

int main() {
  std::ostringstream out;
  std::istringstream in;
  Quarn::State state(out, in);
  Text::Register(state);
  state.ProcessLine("a='dew;a+'drop");
  std::cout << out.str();
  const bool printed = out.str() == "\tDefining Text : a = 'dew\n\tText : 'dewdrop\n";
  // An operation that must wait keeps 'drop as it is written, and reads it later.
  state.ProcessLine("r&=later;s=r+'drop;later='rain");
  const bool waited = Quarn::ToText(state.Compute("s").value) == "'raindrop";
  return printed && waited && !state.Compute("a+1") ? 0 : 1;
}
