// The system grid: a set of linear equations as a table of coefficients, built from the
// equations of the work item, and its texts.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/session.h"
#include "linsys/grid_number.h"

namespace tavimor {

// Fifteen is the hard limit of rows and of columns.
inline constexpr int kSysLimit = 15;

// SysGrid, SysRows, SysCols, SysVars. Row i is equation i; columns 1 to cols - 1 hold the
// coefficients of the letters in `vars` order, column `cols` the constant of the right side.
struct SystemGrid {
  std::int16_t rows = 0;
  std::int16_t cols = 0;
  std::vector<char> vars;  // vars[k - 1] is the letter of column k

  // The entry at (row, column), both from 1; outside the 15 by 15 table a bounds error.
  GridNumber& At(int row, int column);
  const GridNumber& At(int row, int column) const;
  void Clear();

 private:
  std::array<GridNumber, kSysLimit * kSysLimit> cells_{};
};

// One term of a simplified side: a number moves to the right side with its sign turned and an
// empty letter; a letter or a number times a letter gives the letter and its coefficient. False
// for anything else ("Error").
bool LinearTerm(Session& s, NodeIdx term, char& letter, GridNumber& coefficient);
// The column of a letter; `cols` when it is not one of the letters.
int ColumnOfVar(const SystemGrid& g, char letter);
// The equations of EquationList to the grid. Returns the message of a refusal, or empty.
std::string BuildGrid(Session& s, SystemGrid& g);

// Row i as an equation in the tutor's text: "2*x-1/3*y=5"; a row of zeros is "0=0".
std::string RowEquationText(const Session& s, const SystemGrid& g, int row);
// Row i as the grid shows it, with `figures` significant figures: three cells a coefficient
// (sign or operator, size, letter), then "=" and the constant. A zero coefficient is blank.
std::vector<std::string> RowCells(const Session& s, const SystemGrid& g, int row, int figures);
// The rows as lists of exact number texts: the coefficients and the constant.
std::vector<std::vector<std::string>> GridNumberTexts(const Session& s, const SystemGrid& g);

}  // namespace tavimor
