// Isolation of the unknown: one layer around it undone on both sides, the inversion of functions
// and powers, and the branching at a square root.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// The message of a square root that branched: the driver writes it before the first branch.
inline constexpr const char* kProceedMessage = "139#Now proceed to solve the equation:";

// One child of the root of a side, as the inversion needs it.
struct SideChild {
  char Role = ' ';
  char Kind = ' ';
  std::string Text;
};

// The shape of a side around the unknown: the root's Kind, its children, the child (0-based)
// that holds the first occurrence of the unknown (-1 when none), and whether every occurrence
// lies in that child.
struct SideLayer {
  char Kind = ' ';
  std::vector<SideChild> Children;
  int Kept = -1;
  bool AllInKept = false;
};

// One layer of the side holding the unknown undone on both sides (the driver's isolation loop).
FormStatus IsolateStep(Session& s, SolveRun& run, std::string& message);
// The same when every occurrence of the unknown lies in one child of the left side's root;
// false (nothing done) otherwise.
bool IsolateOuterLayer(Session& s, SolveRun& run, FormStatus& status, std::string& message);
// The operations around the one occurrence of the letter: 0 for the letter itself, -1 when it
// does not occur exactly once. Only compared with 1.
int LayerCount(Session& s, const std::string& text, const std::string& letter);

// The root of the text and its children, with the child that holds the letter.
SideLayer ReadSideLayer(Session& s, const std::string& text, const std::string& letter);
// Puts the introduction of an equation in which the unknown occurs once between the message's
// number and its text, once per equation.
std::string AddOnceIntro(const std::string& message, const std::string& letter,
                         bool& once_intro_shown);
// Removes one term or factor, other than the kept one, from a sum or product on both sides.
void InvertLayer(Session& s, std::string& left, std::string& right, const SideLayer& layer,
                 std::string& message);
// The note on a logarithm taken of the right side ("ln" or "log"): a power's exponent comes
// down, a reciprocal's sign comes out; empty otherwise.
std::string LogarithmNote(Session& s, const std::string& right, const std::string& log);
// A function call on the left undone by its inverse on both sides.
void InvertFunction(Session& s, std::string& left, std::string& right, std::string& message);
// A power on the left undone: mode 1 with the unknown in the exponent, mode 2 in the base.
// `intro` says whether a write of its own may carry the introduction. Steps it writes itself go
// through ReportStep; a hint shown stops it.
void InvertPower(Session& s, SolveRun& run, const SideLayer& layer, int mode, bool intro,
                 std::string& message);
// Both square roots of the right side: two equations on the stack (status 1), or both solutions
// in one right side when the base is one letter (status 3).
int TakeSquareRoot(Session& s, SolveRun& run, bool intro);
// Whether the base and the right side are whole powers of one number; if so the step is written
// and the sides become the two exponents.
bool UseSameBase(Session& s, std::string& left, std::string& right, const std::string& base,
                 const std::string& exponent);

}  // namespace tavimor
