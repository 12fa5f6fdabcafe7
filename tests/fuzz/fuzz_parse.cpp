// Fuzz target: validate, load, regenerate, reparse; no crash, no sanitizer report, no node lost.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/errors.h"
#include "core/input_split.h"
#include "core/node_pool.h"
#include "core/regenerate.h"
#include "core/session.h"
#include "core/validate.h"
#include "support/recording_frontend.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavimor;
  if (size > 4096) return 0;
  RecordingFrontend frontend;
  Session s(frontend);
  if (size > 0 && data[0] == ',') s.DecimalPoint = ",";
  std::string text(reinterpret_cast<const char*>(data), size);
  if (ValidateInput(s, text) != 0) return 0;
  InitFunctionTable(s);
  InitNodePool(s);
  for (const ItemSides& item : SplitInput(text)) {
    for (const std::string& side : {item.left, item.right}) {
      const auto before = s.Pool.NodesInUse;
      NodeIdx n = kNoNode;
      try {
        n = NewNode(s);
        LoadSide(s, n, side);
        const std::string first = s.Pool[n].Text;
        // The regenerated text parses to the same text again.
        const NodeIdx again = NewNode(s);
        LoadSide(s, again, first);
        if (s.Pool[again].Text != first) std::abort();
        FreeChildren(s, again);
        FreeNode(s, again);
        FreeChildren(s, n);
        FreeNode(s, n);
        if (s.Pool.NodesInUse != before) std::abort();
      } catch (const RunTimeError&) {
        // A full pool or the bound of one level: the command's message; the next load
        // reinitialises the pool.
        InitNodePool(s);
      }
    }
  }
  return 0;
}
