// Benchmarks of the simplify loop: one pass over a tree, and a whole silent Simplify.
#include <benchmark/benchmark.h>

#include <string>

#include "core/input_split.h"
#include "core/node_pool.h"
#include "simplify/simplify_driver.h"
#include "support/recording_frontend.h"

namespace tavimor {
namespace {

constexpr const char* kItem = "x-(2-x)+(3)+x/2+x/3-1/6+1/2+(a+b)+(c-(d+e))";

void BM_OneSimplifyPass(benchmark::State& state) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  NodeIdx root = NewNode(s);
  LoadSide(s, root, "x^2+2*x+1+y^3-y+z/2");  // in house form: a pass finds nothing
  for (auto _ : state) benchmark::DoNotOptimize(ApplyPassToTree(s, 4, root));
}
BENCHMARK(BM_OneSimplifyPass);

void BM_SimplifyText(benchmark::State& state) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  for (auto _ : state) {
    s.RewriteCount = 0;
    benchmark::DoNotOptimize(SimplifyText(s, kItem));
  }
}
BENCHMARK(BM_SimplifyText);

}  // namespace
}  // namespace tavimor
