// Fuzz target: validate, load, regenerate, reload, typeset, set as text and simplify; no crash, no
// sanitizer report, no pool node lost, and the regenerated text reads back to itself. Long inputs
// of up to 100,000 characters come from a short pattern (fuzz/long_input.h).
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
#include "fuzz/long_input.h"
#include "present/text_picture.h"
#include "present/typesetter.h"
#include "simplify/simplify_driver.h"
#include "support/recording_frontend.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavimor;
  // Long inputs come through the long-input mode, so that each run stays short.
  if (size > 4096) return 0;
  RecordingFrontend frontend;
  Session s(frontend);
  if (size > 0 && data[0] == ',') s.DecimalPoint = ",";
  if (size > 1 && data[1] == 'p') s.SpecialP = s.SpecialD = true;
  std::string text = ExpandLongInput(data, size);
  InitFunctionTable(s);  // as the tutor starts: function names are known to the input check
  if (ValidateInput(s, text) != 0) return 0;
  InitNodePool(s);
  for (const ItemSides& item : SplitInput(text)) {
    for (const std::string& side : {item.left, item.right}) {
      const auto before = s.Pool.NodesInUse;
      bool loaded = false;
      try {
        const NodeIdx n = NewNode(s);
        LoadSide(s, n, side);
        loaded = true;
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
        // Typesetting and the terminal's text form take nodes and give them all back.
        const Picture picture = DrawEquation(s, frontend.metrics, first, item.left);
        TextPicture(s, picture);
        if (s.Pool.NodesInUse != before) std::abort();
        // The simplify loop ends and keeps the pool whole, also when the arithmetic fails.
        s.RewriteCount = 0;
        try {
          SimplifyText(s, first);
        } catch (const AppError&) {
          // 0/0 or 0 to a non-positive power: the command's own sentence.
        }
        if (s.Pool.NodesInUse != before) std::abort();
      } catch (const RunTimeError&) {
        // A side that does not load (an "=" inside brackets leaves one unclosed) is refused
        // with the whole item, as OK refuses it.
        if (!loaded) return 0;
        // A full pool or the bound of one level: the command's message; the next load
        // reinitialises the pool.
        InitNodePool(s);
      }
    }
  }
  return 0;
}
