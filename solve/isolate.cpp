// The isolation step: the outermost operation around the unknown undone on both sides, and the
// removal of a term or factor from a sum or product.
#include "solve/isolate.h"

#include "core/brackets.h"
#include "core/node_queries.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

constexpr const char* kOnceIntro =
    "This is an equation in which the unknown occurs just once.  "
    "Invert the operations that were applied to the unknown, one at a time, "
    "starting with the outermost, until @";
constexpr const char* kNotInvertible =
    "114#This equation is unsolvable with this version of the program.";

// The letter the introduction names: the solver's own while a solve runs.
std::string IntroLetter(const Session& s, const SolveRun& run) {
  return s.ExtraUnknown.empty() ? run.Unknown : s.ExtraUnknown;
}

// Inverts the layer the left side's root makes; false when the root is no layer around the
// unknown (a letter, a number, or a side without it).
bool InvertRootLayer(Session& s, SolveRun& run, const SideLayer& layer, bool intro,
                     FormStatus& status, std::string& message) {
  if (layer.Kind == kKindFunction) {
    InvertFunction(s, run.WorkLeft, run.WorkRight, message);
    status = FormStatus::FormStepped;
    return true;
  }
  if (layer.Kept < 0) return false;
  if (layer.Kind == kKindPower) {
    const int mode = layer.Kept == 0 ? 1 : 2;
    InvertPower(s, run, layer, mode, intro, message);
    status = FormStatus::FormStepped;
    if (mode == 2 && run.WorkLeft == run.Unknown && run.WorkRight.find("; ") != std::string::npos) {
      status = FormStatus::FormAgain;
    }
    return true;
  }
  if (layer.Kind != kKindSumOrProduct) return false;
  InvertLayer(s, run.WorkLeft, run.WorkRight, layer, message);
  status = FormStatus::FormStepped;
  return true;
}

// A side that no rule can undo ends the branch as unsolvable instead of going round for ever.
void EndUnsolvable(SolveRun& run, FormStatus& status, std::string& message) {
  run.WorkLeft = run.Unknown;
  run.WorkRight = kUnsolvable;
  status = FormStatus::FormUnsolvable;
  message = kNotInvertible;
}

void SimplifyBothSides(Session& s, SolveRun& run) {
  run.WorkLeft = StripBrackets(SimplifyText(s, run.WorkLeft));
  run.WorkRight = SimplifyText(s, run.WorkRight);
}

}  // namespace

int LayerCount(Session& s, const std::string& text, const std::string& letter) {
  return WrapDepth(s, text, letter);
}

SideLayer ReadSideLayer(Session& s, const std::string& text, const std::string& letter) {
  SideLayer layer;
  const TempTree t(s, text, TempTree::Depth::Whole);
  const NodeIdx root = t.Root();
  layer.Kind = t[root].Kind;
  std::vector<NodeIdx> nodes;
  for (NodeIdx c = t[root].FirstChild; c != kNoNode; c = t[c].Next) {
    layer.Children.push_back({t[c].Role, t[c].Kind, t[c].Text});
    nodes.push_back(c);
  }
  const std::vector<NodeIdx> occurrences = FindOccurrences(s, letter, root);
  if (occurrences.empty()) return layer;
  const NodeIdx holder = TopChildBelow(s, occurrences.front(), root);
  for (std::size_t k = 0; k < nodes.size(); ++k) {
    if (nodes[k] == holder) layer.Kept = static_cast<int>(k);
  }
  layer.AllInKept = layer.Kept >= 0;
  for (const NodeIdx n : occurrences) {
    if (TopChildBelow(s, n, root) != holder) layer.AllInKept = false;
  }
  return layer;
}

std::string AddOnceIntro(const std::string& message, const std::string& letter,
                         bool& once_intro_shown) {
  if (once_intro_shown) return message;
  once_intro_shown = true;
  const std::size_t hash = message.find('#');
  const std::size_t cut = hash == std::string::npos ? 0 : hash + 1;
  return message.substr(0, cut) + kOnceIntro + letter + "@ is isolated.||" + message.substr(cut);
}

void InvertLayer(Session& s, std::string& left, std::string& right, const SideLayer& layer,
                 std::string& message) {
  // 1/A = R  ->  A = 1/R
  if (left.rfind("1/", 0) == 0 && layer.Children.size() == 2 &&
      IsProductRole(layer.Children.front().Role)) {
    left = StripBrackets(left.substr(2));
    right = "1/(" + right + ")";
    message = "141#Take the reciprocal of both sides.";
    return;
  }
  for (int k = 0; k < static_cast<int>(layer.Children.size()); ++k) {
    if (k == layer.Kept) continue;
    const SideChild& child = layer.Children[static_cast<std::size_t>(k)];
    std::string text = child.Text;
    if (text == "-") text = "-1";
    if (text == "+") text = "1";
    switch (child.Role) {
      case kRolePlus:
        left += "-" + text;
        right += "-" + text;
        message = "142#Subtract @" + text + "@ from both sides.";
        return;
      case kRoleMinus:
        left += "+" + text;
        right += "+" + text;
        message = "143#Add @" + text + "@ to both sides.";
        return;
      case kRoleNumerator: {
        if (text == "1") break;
        const std::string t = StripBrackets(text);
        left = "(" + left + ")/(" + t + ")";
        right = "(" + right + ")/(" + t + ")";
        message = std::string("144#") + (t == "-1" ? "Multiply " : "Divide ") + "both sides by @" +
                  t + "@ .";
        return;
      }
      case kRoleDenominator: {
        const std::string t = StripBrackets(text);
        left = "(" + left + ")*(" + t + ")";
        right = "(" + right + ")*(" + t + ")";
        message = "145#Multiply both sides by @" + t + "@ .";
        return;
      }
      default: break;  // the factor 1, a term with a typed plus
    }
  }
  (void)s;
}

FormStatus IsolateStep(Session& s, SolveRun& run, std::string& message) {
  message.clear();
  run.WorkLeft = StripBrackets(run.WorkLeft);
  const std::string before_left = run.WorkLeft;
  const std::string before_right = run.WorkRight;
  const SideLayer layer = ReadSideLayer(s, run.WorkLeft, run.Unknown);
  const bool intro = LayerCount(s, before_left, run.Unknown) > 1;
  FormStatus status = FormStatus::FormStepped;
  if (!InvertRootLayer(s, run, layer, intro, status, message)) {
    EndUnsolvable(run, status, message);
    return status;
  }
  if (s.HintState == 2) return status;
  if (run.WorkRight == kNoSolution) {
    run.WorkLeft = run.Unknown;
    status = FormStatus::FormNoSolution;
  } else if (status != FormStatus::FormAgain) {
    if (run.WorkLeft == before_left && run.WorkRight == before_right) {
      // No layer came off: a side not yet in its simplest form is simplified and tried again.
      const std::string simplified = StripBrackets(SimplifyText(s, run.WorkLeft));
      if (simplified == run.WorkLeft) {
        EndUnsolvable(run, status, message);
      } else {
        run.WorkLeft = simplified;
        message.clear();
        status = FormStatus::FormAgain;
      }
      return status;
    }
    SimplifyBothSides(s, run);
  }
  if (!message.empty() && message != kProceedMessage && intro) {
    message = AddOnceIntro(message, IntroLetter(s, run), run.OnceIntroShown);
  }
  return status;
}

bool IsolateOuterLayer(Session& s, SolveRun& run, FormStatus& status, std::string& message) {
  message.clear();
  run.WorkLeft = StripBrackets(run.WorkLeft);
  const SideLayer layer = ReadSideLayer(s, run.WorkLeft, run.Unknown);
  if (layer.Kind != kKindFunction) {
    const bool layered = layer.Kind == kKindPower || layer.Kind == kKindSumOrProduct;
    if (!layered || !layer.AllInKept) return false;
  }
  const std::string before_left = run.WorkLeft;
  const std::string before_right = run.WorkRight;
  FormStatus step_status = FormStatus::FormStepped;
  if (!InvertRootLayer(s, run, layer, false, step_status, message)) return false;
  if (run.WorkLeft == before_left && run.WorkRight == before_right) return false;
  if (s.HintState == 2) {
    status = FormStatus::FormChanged;
    return true;
  }
  if (run.WorkRight == kNoSolution) {
    run.WorkLeft = run.Unknown;
    status = FormStatus::FormNoSolution;
    return true;
  }
  status = FormStatus::FormChanged;
  run.WorkLeft = StripBrackets(SimplifyText(s, run.WorkLeft));
  run.WorkRight = StripBrackets(SimplifyText(s, run.WorkRight));
  return true;
}

}  // namespace tavimor
