// What whole lines cost, one of each kind, and how the cost of an expression grows with its terms,
// levels, elements, variables and references.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/host.h"

namespace Quarn {
namespace {

void Line(benchmark::State& run, const char* text) {
  Host host;
  host.state.ProcessLine("x=2.5;y=4;v=<1, 2, 3>;r&=x+y");
  const s_str line = text;
  for (auto _ : run) host.state.ProcessLine(line);
}
BENCHMARK_CAPTURE(Line, number, "12.5");
BENCHMARK_CAPTURE(Line, symbol, "x");
BENCHMARK_CAPTURE(Line, sum, "12+30.5");
BENCHMARK_CAPTURE(Line, formula, "(x+3)*(y-2)/4+1");
BENCHMARK_CAPTURE(Line, assignment, "z=x*2");
BENCHMARK_CAPTURE(Line, declaration, "z:Scalar");
BENCHMARK_CAPTURE(Line, definition_of_a_reference, "s&=x+1");
BENCHMARK_CAPTURE(Line, use_of_a_reference, "r*2");
BENCHMARK_CAPTURE(Line, query, "?x");
BENCHMARK_CAPTURE(Line, call, "max(min(1, 2), round(2.6))");
BENCHMARK_CAPTURE(Line, vector, "<1, 2, 3>");
BENCHMARK_CAPTURE(Line, vectors, "v+2*v");
BENCHMARK_CAPTURE(Line, element, "v[1]");
BENCHMARK_CAPTURE(Line, error, "nosuch+1");
BENCHMARK_CAPTURE(Line, comment, "// nothing");

// Runs what `make` makes for each size, and fits how the time grows.
template <class Make>
void Grow(benchmark::State& run, Make make) {
  Host host;
  const s_str line(make(host, run.range(0)));
  for (auto _ : run) host.state.ProcessLine(line);
  run.SetComplexityN(run.range(0));
}

void Terms(benchmark::State& run) {
  Grow(run, [](Host&, std::int64_t n) { return "1" + Repeat("+2", n - 1); });
}
BENCHMARK(Terms)->RangeMultiplier(8)->Range(8, 1 << 18)->Complexity();

void Parentheses(benchmark::State& run) {
  Grow(run, [](Host&, std::int64_t n) { return Repeat("(1+", n) + "1" + Repeat(")", n); });
}
BENCHMARK(Parentheses)->RangeMultiplier(8)->Range(8, 1 << 18)->Complexity();

void Calls(benchmark::State& run) {
  Grow(run, [](Host&, std::int64_t n) { return Repeat("round(", n) + "1" + Repeat(")", n); });
}
BENCHMARK(Calls)->RangeMultiplier(8)->Range(8, 1 << 12)->Complexity();

void NestedVectors(benchmark::State& run) {
  Grow(run, [](Host&, std::int64_t n) { return Repeat("<", n) + "1" + Repeat(">", n); });
}
BENCHMARK(NestedVectors)->RangeMultiplier(8)->Range(8, 1 << 12)->Complexity();

void Elements(benchmark::State& run) {
  Grow(run, [](Host&, std::int64_t n) { return "<1" + Repeat(", 2.5", n - 1) + ">"; });
}
BENCHMARK(Elements)->RangeMultiplier(8)->Range(8, 1 << 18)->Complexity();

void IndexOfManyElements(benchmark::State& run) {
  Grow(run, [](Host& host, std::int64_t n) {
    host.state.ProcessLine("v=<1" + Repeat(", 2.5", n - 1) + ">");
    return std::string("v[7]");
  });
}
BENCHMARK(IndexOfManyElements)->RangeMultiplier(8)->Range(8, 1 << 18)->Complexity();

void LineAmongVariables(benchmark::State& run) {
  Grow(run, [](Host& host, std::int64_t n) {
    for (std::int64_t i = 0; i < n; ++i) {
      const std::string number = std::to_string(i);
      host.state.ProcessLine("v" + number + "=" + number);
    }
    return std::string("v1+v7");
  });
}
BENCHMARK(LineAmongVariables)->RangeMultiplier(8)->Range(8, 1 << 18)->Complexity();

void ReferenceChain(benchmark::State& run) {
  Grow(run, [](Host& host, std::int64_t n) {
    for (std::int64_t i = n; i > 0; --i) {
      host.state.ProcessLine("r" + std::to_string(i) + "&=r" + std::to_string(i - 1) + "+1");
    }
    host.state.ProcessLine("r0=0");
    return "r" + std::to_string(n) + "+0";
  });
}
BENCHMARK(ReferenceChain)->RangeMultiplier(8)->Range(8, 1 << 12)->Complexity();

}  // namespace
}  // namespace Quarn
