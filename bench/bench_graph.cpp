// Benchmarks of a whole redraw (three explicit curves sampled on the default window and the
// display list built with its frame) and of implicit curves on the 101 x 101 lattice.
#include <benchmark/benchmark.h>

#include "core/node_pool.h"
#include "graph/classify_graphs.h"
#include "graph/contour_plot.h"
#include "graph/draw_graphs.h"
#include "support/recording_frontend.h"

namespace tavimor {
namespace {

void BM_DrawThreeExplicitCurvesOnTheDefaultWindow(benchmark::State& state) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  s.EquationList = {{"y", "x^2/4-5", "", ""}, {"y", "3*sin(x)", "", ""}, {"y", "1/x", "", ""}};
  if (!ClassifyGraphs(s).empty()) state.SkipWithError("the curves are not explicit");
  const GraphParms parms = ReadGraphParms(s, s.GraphParms);
  for (auto _ : state) {
    GraphPicture picture = DrawGraphs(s, parms);
    benchmark::DoNotOptimize(picture.display.items.data());
  }
}
BENCHMARK(BM_DrawThreeExplicitCurvesOnTheDefaultWindow)->Unit(benchmark::kMicrosecond);

// The lattice evaluated and every contour followed, as a redraw does it.
void BM_ContourLatticeAndTracing(benchmark::State& state, const char* f) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  for (auto _ : state) {
    std::vector<ContourLine> lines = ContourCartesian(s, f, -10, 10, -10, 10);
    benchmark::DoNotOptimize(lines.data());
  }
}
BENCHMARK_CAPTURE(BM_ContourLatticeAndTracing, Circle, "(x^2+y^2)-(4)")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_ContourLatticeAndTracing, Hyperbola, "(x*y)-(1)")
    ->Unit(benchmark::kMicrosecond);

// The tracing alone, on a lattice filled beforehand.
void BM_ContourTracingOnly(benchmark::State& state, double (*f)(double, double)) {
  ContourGrid filled;
  ContourLattice lattice;
  lattice.x_origin = lattice.y_origin = -10;
  lattice.x_end = lattice.y_end = 10;
  for (int i = 1; i <= kContourSamples; ++i) {
    for (int j = 1; j <= kContourSamples; ++j) {
      filled.At(i, j) = static_cast<float>(f(lattice.XAt(i), lattice.YAt(j)));
    }
  }
  for (auto _ : state) {
    ContourGrid grid = filled;
    std::vector<ContourLine> lines = ContourEngine(grid, lattice);
    benchmark::DoNotOptimize(lines.data());
  }
}
BENCHMARK_CAPTURE(BM_ContourTracingOnly, Circle, [](double x, double y) {
  return x * x + y * y - 4;
})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_ContourTracingOnly, Hyperbola, [](double x, double y) {
  return x * y - 1;
})->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tavimor
