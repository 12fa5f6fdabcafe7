// Benchmarks of evaluation at a new point, the inner loop of plotting, and of Simplify on
// products, powers and radicals.
#include <benchmark/benchmark.h>

#include "core/evaluate.h"
#include "core/input_split.h"
#include "core/node_pool.h"
#include "simplify/simplify_driver.h"
#include "support/recording_frontend.h"

namespace tavimor {
namespace {

void BM_EvaluateAllAtANewPoint(benchmark::State& state) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  const NodeIdx root = NewNode(s);
  LoadSide(s, root, "3*x^2-2*x+sin(x)/e+sqrt(x^2+1)-1.5E-3*x^3");
  double x = 0.0;
  for (auto _ : state) {
    x += 0.001;
    SetVarValue(s, 'x', x);
    EvaluateAll(s, root);
    benchmark::DoNotOptimize(s.Pool[root].Value);
  }
}
BENCHMARK(BM_EvaluateAllAtANewPoint);

void BM_SimplifyPowersAndRadicals(benchmark::State& state) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  for (auto _ : state) {
    s.RewriteCount = 0;
    benchmark::DoNotOptimize(
        SimplifyText(s, "(2*x)^3*x^(-2)/(4*x)*sqrt(8)*sqrt(2)*x^(1/2)*(x^2)^3/sqrt(x)"));
  }
}
BENCHMARK(BM_SimplifyPowersAndRadicals);

}  // namespace
}  // namespace tavimor
