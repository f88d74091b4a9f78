// How long the rules take for what a click sets off, without anything of Qt. Aims: chess under 1 microsecond, the
// others under 0.2.
#include <benchmark/benchmark.h>

#include "benchmarks/rule_work.h"

int main(int argc, char** argv) {
  for (const brontavia::Work& work : brontavia::RuleWork()) {
    benchmark::RegisterBenchmark(work.Name.c_str(), [run = work.Run](benchmark::State& state) {
      for (auto _ : state) run();
    });
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
