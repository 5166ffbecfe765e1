// The host that every project of this folder builds, also with other compilers, standards and
// sanitizers than the library: values in and out, errors, a function and a type of its own,
// threads. The folder "host" is on its include path, before all else.
#include <mirlow/holder.h>
#include <mirlow/lift.h>
#include <mirlow/number_text.h>
#include <mirlow/state.h>
#include <mirlow/value.h>
#include <mirlow/vector.h>
#include <mirlow/version.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <sstream>
#include <thread>

#include "utils/file.h"

namespace {

class Text final : public Quarn::Holder<Text, std::string> {
 public:
  static constexpr char kType[] = "Text";
  static std::optional<std::string> Read(std::string_view text) {
    if (!text.starts_with("'")) return std::nullopt;
    return std::string(text.substr(1));
  }
  static std::string Write(const std::string& text) { return "'" + text; }
  using Holder::Holder;
};

std::optional<double> Measure(const std::string& text, Quarn::s_str& error) {
  if (!text.empty()) return static_cast<double>(text.size());
  Quarn::AddError(error, "\tError : Nothing to measure");
  return std::nullopt;
}

double Half(double x) { return x / 2; }

bool ComputesWithVectors() {
  std::ostringstream out;
  std::istringstream in;
  Quarn::State state(out, in);
  Quarn::Vector::Register(state);
  state.SetSymbol("v", Quarn::FromNumbers({1, 2, 3}));
  const auto doubled = Quarn::ToNumbers(state.Compute("2*v").value);
  const auto element = Quarn::ToNumber(state.Compute("v[1]-v[0]").value);
  const std::string error = state.Compute("v/0").error;
  state.ProcessLine("v");
  return doubled == std::vector<double>{2, 4, 6} && element == 1 && !error.empty() &&
         out.str() == "\tVector : <1, 2, 3>\n";
}

bool KnowsTypesAndFunctionsOfTheHost() {
  Quarn::State state;
  state.AddType(Quarn::TypeOf<Text>("'"));
  state.AddBinary({Quarn::Row<Text(Text, Text)>("+", std::plus<>())});
  state.AddFunctions({
      Quarn::Call<Quarn::Scalar(Text)>("size", Measure),
      {"half", {"Scalar"}, Quarn::OfNumbers(Half)},
  });
  const auto size = Quarn::ToNumber(state.Compute("half(size('dew+'drop))").value);
  const Quarn::Result failure = state.Compute("size(')");
  return size == 3.5 && failure.error == "\tError : Nothing to measure" &&
         Quarn::ToText(state.Compute("'dew+'drop").value) == "'dewdrop" &&
         Quarn::ReadDouble("2.5").value.Get() == 2.5;
}

// Values of one thread that end on another, in blocks which each thread has of its own.
bool ComputesOnThreads() {
  Quarn::s_refptr<Quarn::Symbol> made_there;
  bool good = false;
  std::thread([&] {
    good = ComputesWithVectors();
    made_there = Quarn::FromNumber(7);
  }).join();
  return good && ComputesWithVectors() && Quarn::ToNumber(made_there) == 7;
}

}  // namespace

int main() {
  if (!ComputesWithVectors()) return 1;
  if (!KnowsTypesAndFunctionsOfTheHost()) return 2;
  if (!ComputesOnThreads()) return 3;
  if (std::strcmp(host::GetFileName(), "table.txt") != 0) return 4;
  if (std::strcmp(Quarn::GetVersion(), Quarn::kVersion) != 0) return 5;
  std::printf("mirlow %s\n", Quarn::GetVersion());
  return 0;
}
