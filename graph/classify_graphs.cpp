// Classifying the equations of the work item into graph kinds, and giving each curve its colour.
#include "graph/classify_graphs.h"

#include <algorithm>

#include "core/evaluate.h"
#include "core/number_text.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "graph/graph_parms.h"

namespace tavimor {

std::string GraphLetters(Session& s, const std::string& text) {
  ScopedOverride keep_vars(s.SubstitutionVars, {});
  ScopedOverride keep_count(s.SubstitutionCount, std::int16_t{0});
  std::string letters;
  {
    TempTree tree(s, text, TempTree::Depth::Whole);
    CollectVars(s, tree.Root());
  }
  for (const char letter : s.SubstitutionVars) {
    const bool constant = (letter == 'e' && s.SpecialE) || (letter == 'p' && s.SpecialP) ||
                          (letter == 'd' && s.SpecialD && !s.Degrees);
    if (!constant && letters.find(letter) == std::string::npos) letters += letter;
  }
  std::sort(letters.begin(), letters.end());
  return letters;
}

std::string ClassifyGraphs(Session& s) {
  std::vector<EquationRow>& rows = s.EquationList;
  for (const EquationRow& row : rows) {
    if (row[1].empty()) return "Can't graph because " + row[0] + " is not an equation.";
  }
  for (EquationRow& row : rows) {
    row[2] = GraphLetters(s, "(" + row[0] + ")-(" + row[1] + ")");
    row[3] = GraphLetters(s, row[1]);
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EquationRow& row = rows[i];
    if (i + 1 < rows.size() && row[0] == "x" && row[3] == "t" && rows[i + 1][0] == "y" &&
        rows[i + 1][3] == "t") {
      row[3] = kGraphParametricX;
      rows[i + 1][3] = kGraphParametricY;
      ++i;
      continue;
    }
    const std::string& all = row[2];
    if (all == "xy" || all == "x" || all == "y") {
      row[3] = row[0] == "y" && (row[3] == "x" || row[3].empty()) ? kGraphExplicit : kGraphContour;
    } else if (all == "rt" || all == "r" || all == "t") {
      row[3] = row[0] == "r" && (row[3] == "t" || row[3].empty()) ? kGraphExplicitPolar
                                                                  : kGraphContourPolar;
    } else {
      return "Can't graph " + row[0] + "=" + row[1] + ".";
    }
  }
  const GraphParms parms = ReadGraphParms(s, s.GraphParms);
  int number = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i == 0 || rows[i][3] != kGraphParametricY) ++number;
    const int field = number < kGraphColours ? number : kGraphColours;
    rows[i][2] = std::to_string(parms.colours[static_cast<std::size_t>(field - 1)]);
  }
  s.HelpNumber = rows.size() == 1 ? 394 : 395;
  return "";
}

void StoreCurveColours(const Session& s, GraphParms& parms) {
  std::size_t field = 0;  // 0 stands for field 17
  bool first = true;
  for (const EquationRow& row : s.EquationList) {
    if (row[3] == kGraphParametricY) continue;
    if (!first && field + 1 < parms.colours.size()) ++field;
    first = false;
    parms.colours[field] = static_cast<std::int32_t>(SafeValue(s, row[2]));
  }
}

}  // namespace tavimor
