// The buttons of the Fraction panel: simplify one fraction of integers, add two of them.
#include "shell/commands/fraction_panel_command.h"

#include "core/errors.h"
#include "core/number_text.h"
#include "manipulate/fraction_narration.h"
#include "shell/command_frame.h"

namespace tavimor {

namespace {

// The integer of a numerator or denominator: a number, or a hidden bracket around one.
std::int32_t IntegerOf(const Session& s, NodeIdx n) {
  NodeIdx leaf = n;
  if (s.Pool[n].Kind == kKindHiddenBracket && s.Pool[n].FirstChild != kNoNode) {
    leaf = s.Pool[n].FirstChild;
  }
  return static_cast<std::int32_t>(SafeValue(s, s.Pool[leaf].Text));
}

// The numerator and denominator of a simple fraction; a subtracted term's numerator negated.
void ReadFraction(const Session& s, NodeIdx fraction, std::int32_t& n, std::int32_t& d) {
  const NodeIdx numerator = s.Pool[fraction].FirstChild;
  n = IntegerOf(s, numerator);
  d = IntegerOf(s, s.Pool[numerator].Next);
  if (s.Pool[fraction].Role == kRoleMinus) n = -n;
}

// Runs a narration in the frame; the tangent error ends an addition whose LCD is too large,
// after its warning, and closes the run quietly.
std::string RunNarration(Session& s, const char* button, const std::string& error_text,
                         const std::function<void(NodeIdx)>& narrate) {
  const std::string error = RunCommandFrame(
      s, error_text,
      [&](NodeIdx side) {
        try {
          narrate(side);
        } catch (const AppError& e) {
          if (e.Number() != kErrorTangent) throw;
        }
      },
      [] {});
  s.Form.Button(button).enabled = false;
  return error;
}

}  // namespace

std::string cmdSimplifyFraction(Session& s, bool) {
  return RunNarration(s, "cmdSimplifyFraction", "Error in Simplify Fraction.", [&](NodeIdx side) {
    std::int32_t n = 0;
    std::int32_t d = 0;
    ReadFraction(s, side, n, d);
    SimplifyFractionNarration(s, n, d);
  });
}

std::string cmdAddFractions(Session& s, bool) {
  return RunNarration(s, "cmdAddFractions", "Error in Add Fractions.", [&](NodeIdx side) {
    const NodeIdx first = s.Pool[side].FirstChild;
    std::int32_t n1 = 0;
    std::int32_t d1 = 0;
    std::int32_t n2 = 0;
    std::int32_t d2 = 0;
    ReadFraction(s, first, n1, d1);
    ReadFraction(s, s.Pool[first].Next, n2, d2);
    AddFractionsNarration(s, n1, d1, n2, d2);
  });
}

}  // namespace tavimor
