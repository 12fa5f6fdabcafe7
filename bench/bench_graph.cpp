// Benchmark of a whole redraw: sampling three explicit curves on the default window and building
// the display list with its frame.
#include <benchmark/benchmark.h>

#include "core/node_pool.h"
#include "graph/classify_graphs.h"
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

}  // namespace
}  // namespace tavimor
