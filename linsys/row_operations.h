// The three elementary row operations on the system grid: applying one, its comment and step
// texts, and the keyboard syntax that names one.
#pragma once

#include <cstdint>
#include <string>

#include "core/session.h"
#include "linsys/system_grid.h"

namespace tavimor {

// An ERO: # 1 scales row `row` (by `factor`, or divides when `second`), # 2 adds `factor` times
// row `row2` to row `row` (subtracts when `second`), # 3 swaps rows `row` and `row2`.
struct Ero {
  std::int16_t kind = 0;  // 1, 2 or 3; 0 none
  std::int16_t row = 0;
  std::int16_t row2 = 0;
  bool second = false;  // ERO1Op(1) divide, ERO2Op(1) subtract
  GridNumber factor{1};
};

// Applies the ERO to every column of its row. In ERO # 1 an entry within 1E-10 of 1 becomes
// exactly 1; in ERO # 2 an entry below 1E-10 in size becomes exactly 0.
void ApplyEro(SystemGrid& g, const Ero& e);
// The comment the grid shows beside the changed row: "R2 * 3", "R1 - (-2) * R3"; empty for a
// swap, which shows two arrows.
std::string EroComment(const Session& s, const Ero& e);
// The arrow of a comment, behind nine blanks.
std::string CommentArrow();
// The work-space step of the ERO, without the system: "Apply ERO # 1, replacing R2 → R2 / 3"
// (the rows' names stay plain text: typeset, R2 would read as a product).
std::string EroStepText(const Session& s, const Ero& e);

// The keyboard syntax of an ERO, blanks ignored. True with the ERO filled in when understood;
// a zero number, a row outside 1 to the grid's rows, or anything else gives false. A typed
// number that agrees at `figures` significant figures with a coefficient shown in the row being
// changed stands for that coefficient, with the sign typed.
bool ParseEROText(Session& s, const std::string& text, const SystemGrid& g, int figures, Ero& e);
// The coefficient of row `row` the typed number stands for, as above; the number itself when it
// agrees with none.
GridNumber SnapToShownCoefficient(const Session& s, const SystemGrid& g, int row, int figures,
                                  const GridNumber& typed);

}  // namespace tavimor
