// The system grid: the equations of the work item to a table of coefficients, and its texts.
#include "linsys/system_grid.h"

#include "core/errors.h"
#include "core/evaluate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "manipulate/factor.h"

namespace tavimor {

namespace {

constexpr const char* kNotEquation = " is not an equation";
constexpr const char* kNotValid = " is not a valid equation";
constexpr const char* kNotLinear = " is not a linear equation";

void CheckBounds(int row, int column) {
  if (row < 1 || row > kSysLimit || column < 1 || column > kSysLimit) {
    throw RunTimeError(RunTimeErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  }
}

// A number node's value; its text may carry a sign.
bool NumberValue(const Session& s, const ExprNode& node, GridNumber& value) {
  if (node.Text == "-") {
    value = GridNumber(-1);
    return true;
  }
  if (node.Text == "+") {
    value = GridNumber(1);
    return true;
  }
  return GridNumber::FromText(s, node.Text, value);
}

// The simplified difference of the two sides of equation `row` read into the grid's row: true
// when every term is linear; `valid` false for a shape that is no sum of terms.
bool ReadRow(Session& s, SystemGrid& g, int row, const std::string& difference, bool& valid) {
  valid = true;
  TempTree tree(s, difference, TempTree::Depth::Whole);
  const NodeIdx root = tree.Root();
  const ExprNode& node = s.Pool[root];
  std::vector<NodeIdx> terms;
  const bool product = node.Kind == kKindSumOrProduct && node.FirstChild != kNoNode &&
                       (s.Pool[node.FirstChild].Role == kRoleNumerator ||
                        s.Pool[node.FirstChild].Role == kRoleDenominator);
  if (node.Kind == kKindNumber || node.Kind == kKindVariable || product) {
    terms.push_back(root);
  } else if (node.Kind == kKindSumOrProduct) {
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) terms.push_back(c);
  } else {
    valid = false;
    return false;
  }
  for (int column = 1; column <= g.cols; ++column) g.At(row, column) = GridNumber(0);
  for (const NodeIdx term : terms) {
    char letter = 0;
    GridNumber coefficient;
    if (!LinearTerm(s, term, letter, coefficient)) return false;
    const int column = letter == 0 ? g.cols : ColumnOfVar(g, letter);
    g.At(row, column) = g.At(row, column) + coefficient;
  }
  return true;
}

}  // namespace

GridNumber& SystemGrid::At(int row, int column) {
  CheckBounds(row, column);
  return cells_[static_cast<std::size_t>((row - 1) * kSysLimit + column - 1)];
}

const GridNumber& SystemGrid::At(int row, int column) const {
  CheckBounds(row, column);
  return cells_[static_cast<std::size_t>((row - 1) * kSysLimit + column - 1)];
}

void SystemGrid::Clear() { cells_.fill(GridNumber(0)); }

bool LinearTerm(Session& s, NodeIdx term, char& letter, GridNumber& coefficient) {
  const ExprNode& node = s.Pool[term];
  const bool minus = node.Role == kRoleMinus;
  letter = 0;
  if (node.Kind == kKindNumber) {
    if (!NumberValue(s, node, coefficient)) return false;
    if (!minus) coefficient = -coefficient;  // it moves to the right side
    return true;
  }
  if (node.Kind == kKindVariable) {
    letter = node.Text.empty() ? 0 : node.Text[0];
    coefficient = GridNumber(minus ? -1 : 1);
    return letter != 0;
  }
  if (node.Kind != kKindSumOrProduct || node.FirstChild == kNoNode) return false;
  // A product: numbers over numbers, and one letter in the numerator.
  GridNumber value(1);
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (factor.Kind == kKindNumber) {
      GridNumber number;
      if (!NumberValue(s, factor, number)) return false;
      if (factor.Role == kRoleDenominator) {
        if (number.IsZero()) return false;
        value = value / number;
      } else if (factor.Role == kRoleNumerator) {
        value = value * number;
      } else {
        return false;
      }
    } else if (factor.Kind == kKindVariable && factor.Role == kRoleNumerator && letter == 0 &&
               !factor.Text.empty()) {
      letter = factor.Text[0];
    } else {
      return false;
    }
  }
  // Numbers alone are a constant: it moves to the right side.
  coefficient = (letter == 0) != minus ? -value : value;
  return true;
}

int ColumnOfVar(const SystemGrid& g, char letter) {
  for (std::size_t k = 0; k < g.vars.size(); ++k) {
    if (g.vars[k] == letter) return static_cast<int>(k) + 1;
  }
  return g.cols;
}

std::string BuildGrid(Session& s, SystemGrid& g) {
  const std::vector<EquationRow>& list = s.EquationList;
  // 1. Every row an equation.
  for (const EquationRow& row : list) {
    if (row[1].empty()) return row[0] + kNotEquation;
  }
  // 2. The letters of all equations, in the order first met.
  std::string all;
  for (const EquationRow& row : list) all += "+(" + row[0] + ")-(" + row[1] + ")";
  {
    TempTree tree(s, all, TempTree::Depth::Whole);
    s.SubstitutionCount = 0;
    s.SubstitutionVars.clear();
    CollectVars(s, tree.Root());
  }
  g.vars = s.SubstitutionVars;
  g.rows = static_cast<std::int16_t>(list.size());
  g.cols = static_cast<std::int16_t>(g.vars.size() + 1);
  CheckBounds(g.rows, g.cols);
  // 3. A clear grid.
  g.Clear();
  // 4. and 5. Each equation simplified and expanded, then read term by term. The exact
  // arithmetic keeps fractions; a side that is linear only once its numbers are decimals (a
  // root of a number, say) is read as decimals.
  for (int i = 1; i <= g.rows; ++i) {
    const EquationRow& row = list[static_cast<std::size_t>(i - 1)];
    const std::string difference = "(" + row[0] + ")-(" + row[1] + ")";
    bool valid = true;
    bool linear = false;
    {
      ScopedOverride silent(s.DetailNow, std::int16_t{0});
      ScopedOverride exact(s.ExactToFloat, false);
      linear = ReadRow(s, g, i, ExpandedText(s, difference), valid);
    }
    if (!linear) {
      ScopedOverride silent(s.DetailNow, std::int16_t{0});
      ScopedOverride decimals(s.ExactToFloat, true);
      linear = ReadRow(s, g, i, ExpandedText(s, difference), valid);
    }
    if (!valid) return row[0] + " = " + row[1] + kNotValid;
    if (!linear) return row[0] + " = " + row[1] + kNotLinear;
  }
  return "";
}

std::string RowEquationText(const Session& s, const SystemGrid& g, int row) {
  std::string left;
  for (int column = 1; column < g.cols; ++column) {
    const GridNumber& c = g.At(row, column);
    if (c.IsZero()) continue;
    const std::string letter(1, g.vars[static_cast<std::size_t>(column - 1)]);
    std::string term;
    if (c.IsOne()) {
      term = letter;
    } else if ((-c).IsOne()) {
      term = "-" + letter;
    } else {
      term = c.Text(s) + "*" + letter;
    }
    if (!left.empty() && term[0] != '-') left += "+";
    left += term;
  }
  if (left.empty()) left = "0";
  return left + "=" + g.At(row, g.cols).Text(s);
}

std::vector<std::string> RowCells(const Session& s, const SystemGrid& g, int row, int figures) {
  std::vector<std::string> cells;
  bool first = true;
  for (int column = 1; column < g.cols; ++column) {
    const GridNumber& c = g.At(row, column);
    if (c.IsZero()) {
      cells.insert(cells.end(), {"", "", ""});
      continue;
    }
    cells.push_back(c.Negative() ? "-" : (first ? "" : "+"));
    cells.push_back(c.SigFigsText(s, figures));
    cells.push_back(std::string(1, g.vars[static_cast<std::size_t>(column - 1)]));
    first = false;
  }
  if (first && !cells.empty()) cells[1] = "0";  // a row of zeros reads 0 = 0
  cells.push_back("=");
  const GridNumber& k = g.At(row, g.cols);
  cells.push_back((k.Negative() ? "-" : "") + k.SigFigsText(s, figures));
  return cells;
}

std::vector<std::vector<std::string>> GridNumberTexts(const Session& s, const SystemGrid& g) {
  std::vector<std::vector<std::string>> rows;
  for (int i = 1; i <= g.rows; ++i) {
    std::vector<std::string> row;
    for (int column = 1; column <= g.cols; ++column) row.push_back(g.At(i, column).Text(s));
    rows.push_back(row);
  }
  return rows;
}

}  // namespace tavimor
