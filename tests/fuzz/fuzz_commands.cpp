// Fuzz target: any input loaded as OK does, then every button on offer pressed, the pauses
// answered, the values of letters given and other questions refused (no question blocks): no
// crash, no sanitizer report, no pool node lost, and the work item always whole.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/brackets.h"
#include "core/node_pool.h"
#include "fuzz/long_input.h"
#include "shell/buttons.h"
#include "shell/command_table.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"
#include "support/recording_frontend.h"

namespace {

// The deepest nesting of brackets whose items have every button pressed here.
constexpr int kDeepestFuzzedNesting = 40;

// The values letters are given when evaluate asks.
constexpr const char* kValues[] = {"2", "0", "-3", "1/2", "0.25", "p", "-1", "10"};

// Nodes a work item holds: nodes 2 and 3 and everything below them.
int ItemNodes(const tavimor::Session& s) {
  return 2 + tavimor::CountChildren(s, tavimor::kLeftRoot, true) +
         tavimor::CountChildren(s, tavimor::kRightRoot, true);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavimor;
  if (size < 2 || size > 2048) return 0;
  RecordingFrontend frontend;
  Session s(frontend);
  s.SetFirstRunOptions();
  // The first byte chooses the options: detail, pacing, decimal comma, the written forms of
  // powers; the last byte the value every letter is given.
  const std::uint8_t choice = data[0];
  StartUp(s, (choice & 1) != 0 ? "," : ".");
  s.SolveDetailDefault = s.SolveDetail = static_cast<std::int16_t>((choice >> 1) % 3);
  s.StreamingOutput = (choice & 8) != 0;
  s.ExponentToReciprocal = (choice & 16) == 0;
  s.ExponentToRadical = (choice & 32) == 0;
  s.ExactToFloat = (choice & 64) != 0;
  s.ExponentToExponentialFunction = (choice & 128) != 0;
  frontend.each_value = kValues[data[size - 1] % 8];
  UpdateStatusPanel(s);
  // The item: the bytes behind the first, or in the long-input mode the long text they stand for.
  const std::string text = ExpandLongInput(data + 1, size - 1);
  // Every button pressed three times on an item nested 200 deep writes hundreds of steps, each
  // with the whole item set again: a minute or two under the sanitizers, seconds in a release
  // build. Items nested deeper than this are pressed by the stress tests, in every build.
  if (BracketNesting(text) > kDeepestFuzzedNesting) return 0;
  if (!cmdLoadEquation(s, text, false)) return 0;
  if (s.Form.item_kind == "set of equations") return 0;
  // Every button on offer, each word in turn, three rounds (one step per press).
  for (int round = 0; round < 3; ++round) {
    for (const CommandWord& word : CommandWords()) {
      if (!ButtonOnOffer(s, word.button)) continue;
      std::string error;
      PressButton(s, word.button, word.right_button, error);
      if (s.Pool.NodesInUse != ItemNodes(s)) std::abort();
      if (s.Pool[kLeftRoot].Text.empty()) std::abort();
    }
  }
  return 0;
}
