// What the single steps of an evaluation cost: matching brackets, cutting, numbers to and from
// text, looking up, applying, copying, allocating.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "bench/host.h"
#include "interpreter/core.h"
#include "types/scalar.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

void MatchBrackets(benchmark::State& run) {
  const std::string text = Repeat("(a+b)*v[1]-<1, 2>", run.range(0));
  std::vector<Bracket> storage;
  for (auto _ : run) benchmark::DoNotOptimize(BracketIndex(text, storage).GetSize());
  run.SetBytesProcessed(run.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(MatchBrackets)->Range(1, 4096);

void ReadExpression(benchmark::State& run) {
  Host host;
  const std::string text = Repeat("abc+12.5*(a-b)-", run.range(0)) + "1";
  const Registries& registries = host.state.GetCore().registries;
  ReaderStorage storage;
  Program program;
  const ReadOptions options;
  for (auto _ : run) {
    program.Clear();
    benchmark::DoNotOptimize(Reader(registries, storage, text, options).Read(program, text.size()));
  }
  run.SetBytesProcessed(run.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ReadExpression)->Range(1, 4096);

void CutByTest(benchmark::State& run) {
  Host host;
  const s_str text = "abc+12.5*(a-b)-1";
  for (auto _ : run) {
    s_ctnr<s_str> pieces;
    s_str error;
    const auto test = [&](auto position, const s_str& expression, s_str& op) {
      return host.state.IsOperatorAt(position, expression, op);
    };
    benchmark::DoNotOptimize(host.state.CheckBrackets(pieces, text, test, error, true));
  }
}
BENCHMARK(CutByTest);

void WriteNumber(benchmark::State& run, double value) {
  char room[kNumberRoom];
  for (auto _ : run) {
    benchmark::DoNotOptimize(value);
    benchmark::DoNotOptimize(WriteDouble(room, value));
  }
}
BENCHMARK_CAPTURE(WriteNumber, whole, 12345.0);
BENCHMARK_CAPTURE(WriteNumber, short_decimal, 12.5);
BENCHMARK_CAPTURE(WriteNumber, all_digits, 1.0 / 3);
BENCHMARK_CAPTURE(WriteNumber, scientific, 1.0 / 3e30);

void ReadNumber(benchmark::State& run, std::string_view text) {
  for (auto _ : run) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(ReadDouble(text));
  }
}
BENCHMARK_CAPTURE(ReadNumber, whole, "12345");
BENCHMARK_CAPTURE(ReadNumber, decimal, "12.0625");
BENCHMARK_CAPTURE(ReadNumber, many_digits, "0.12345678901234567890");
BENCHMARK_CAPTURE(ReadNumber, exponent, "1.5e-7");

void LookUp(benchmark::State& run) {
  SymbolTable table;
  for (std::int64_t i = 0; i < run.range(0); ++i) {
    const s_str name("v" + std::to_string(i));
    table.Set(name.GetView(), s_refptr<Symbol>(new Scalar(name)));
  }
  std::int64_t i = 0;
  for (auto _ : run) {
    const std::string name = "v" + std::to_string(i++ * 7919 % run.range(0));
    benchmark::DoNotOptimize(table.Find(name));
  }
}
BENCHMARK(LookUp)->Range(8, 1 << 17);

void ApplyToNumbers(benchmark::State& run) {
  Host host;
  s_str error;
  const s_refptr<Symbol> two(new Scalar(s_double(2.0)));
  for (auto _ : run) {
    benchmark::DoNotOptimize(host.state.ApplyBinaryOperator("+", two, two, error));
  }
}
BENCHMARK(ApplyToNumbers);

void MakeAndDropANumber(benchmark::State& run) {
  for (auto _ : run) benchmark::DoNotOptimize(s_refptr<Symbol>(new Scalar(s_double(2.0))));
}
BENCHMARK(MakeAndDropANumber);

void CopyAVector(benchmark::State& run) {
  Host host;
  host.state.ProcessLine("v=<" + Repeat("1, ", run.range(0) - 1) + "1>");
  const s_refptr<Symbol> vector = host.state.GetSymbol("v");
  for (auto _ : run) benchmark::DoNotOptimize(vector->Clone());
}
BENCHMARK(CopyAVector)->Range(8, 1 << 15);

}  // namespace
}  // namespace Quarn
