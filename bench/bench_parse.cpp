// Benchmarks of validating, parsing and regenerating typical items.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "core/input_split.h"
#include "core/node_pool.h"
#include "core/regenerate.h"
#include "core/session.h"
#include "core/validate.h"
#include "support/recording_frontend.h"

namespace tavimor {
namespace {

const std::vector<std::string> kItems = {
    "2x+3=7",
    "x^2-5x+6=0",
    "(3x-1)/(x+2)+(x+5)/(2x-3)",
    "sin(2x)^2+cos(2x)^2",
    "3*log(x+1)-ln(x^2)+exp(-x/2)",
    "sqrt(x^2+2x+1)=x+1",
    "1/2+3/4-5/6",
    "(a+b)^(c+d)*(x-y)/(2(a-b))",
};

void BM_ValidateInput(benchmark::State& state) {
  RecordingFrontend frontend;
  Session s(frontend);
  for (auto _ : state) {
    for (const std::string& item : kItems) {
      std::string text = item;
      benchmark::DoNotOptimize(ValidateInput(s, text));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kItems.size()));
}
BENCHMARK(BM_ValidateInput);

void BM_ParseNormaliseRegenerate(benchmark::State& state) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  for (auto _ : state) {
    for (const std::string& item : kItems) {
      for (const ItemSides& sides : SplitInput(item)) {
        const NodeIdx n = NewNode(s);
        LoadSide(s, n, sides.left);
        FreeChildren(s, n);
        FreeNode(s, n);
      }
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kItems.size()));
}
BENCHMARK(BM_ParseNormaliseRegenerate);

void BM_RegenerateOnly(benchmark::State& state) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  const NodeIdx n = NewNode(s);
  LoadSide(s, n, "(3x-1)/(x+2)+(x+5)/(2x-3)+sin(2x)^2+cos(2x)^2-4x^3+7x^2-x+12");
  for (auto _ : state) {
    RegenerateAll(s, n);
    benchmark::DoNotOptimize(s.Pool[n].Text);
  }
}
BENCHMARK(BM_RegenerateOnly);

void BM_LongSum(benchmark::State& state) {
  RecordingFrontend frontend;
  Session s(frontend);
  InitFunctionTable(s);
  InitNodePool(s);
  std::string text = "x";
  for (int i = 0; i < state.range(0); ++i)
    text += "+" + std::to_string(i) + "x^" + std::to_string(i % 5);
  for (auto _ : state) {
    const NodeIdx n = NewNode(s);
    LoadSide(s, n, text);
    FreeChildren(s, n);
    FreeNode(s, n);
  }
}
BENCHMARK(BM_LongSum)->Arg(10)->Arg(40);

}  // namespace
}  // namespace tavimor
