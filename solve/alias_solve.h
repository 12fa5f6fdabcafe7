// What the alias solvers share: the scan for the nodes of one function, the choice of an alias
// letter, and the equation in the alias solved and its answers put back as equations.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "solve/solve_state.h"

namespace tavimor {

// The name that makes ScanFunctionNodes look for exponentials: exp calls and powers whose base
// is free of the unknown.
inline constexpr const char* kExponentialScan = "exponential";

// The nodes of one function in a tree, in the order of a bottom-up walk.
struct FunctionScan {
  // The node when it holds the unknown; its negative when it doesn't.
  std::vector<NodeIdx> Entries;
  int InsideCount = 0;   // nodes that hold the unknown
  int OutsideCount = 0;  // nodes without it
  int NodeCount = 0;     // both together
};

// Every node under `root` (itself included) that is a call of the function `name` (its text
// starts with the name), or with kExponentialScan an exp call or a power whose base is free of
// the unknown.
FunctionScan ScanFunctionNodes(Session& s, const std::string& name, const std::string& unknown,
                               NodeIdx root);
// Where the unknown stands relative to the functions of the names: FormNotThisForm when no such
// node holds it, FormChanged (1) when every occurrence lies inside one, FormUnsolvable (0) when
// some occurrence lies outside them all.
FormStatus ClassifyByFunction(Session& s, const std::vector<std::string>& names,
                              const std::string& unknown, NodeIdx root);
// The same on a text.
FormStatus ClassifyTextByFunction(Session& s, const std::vector<std::string>& names,
                                  const std::string& unknown, const std::string& text);
// The argument of a function call's text: "ln(x+1)" gives "x+1".
std::string FunctionArgument(const std::string& call);

// A letter that does not occur in the text and is no constant: the first free one from
// `preferred` on, in the order a..z A..Z, turned round to start there.
std::string PickAlias(Session& s, const std::string& text, const std::string& preferred);

// The equation SavedLeft=SavedRight of the run, written in the alias letter, solved for the
// alias by a nested run of the solver, its answers cleaned; then `replaced` (what the alias
// stood for) = each value becomes the equation in hand or rows of the stack, told with the
// messages of putting back the alias. FormChanged when there are values to go on with (the
// saved sides then hold the first), FormUnsolvable or FormNoSolution when the nested run ended
// so. A hint shown inside the nested run leaves HintState at 2.
// The help numbers of the messages that put the alias back: one value, the first of several, the
// next, and going on with the first.
struct AliasBackNumbers {
  int one;
  int first;
  int next;
  int proceed;
};
inline constexpr AliasBackNumbers kExponentialAliasBack = {175, 176, 177, 178};
inline constexpr AliasBackNumbers kCosineAliasBack = {196, 196, 197, 198};
inline constexpr AliasBackNumbers kSineAliasBack = {202, 202, 203, 204};
FormStatus SolveInAlias(Session& s, SolveRun& run, const std::string& alias,
                        const std::string& replaced,
                        const AliasBackNumbers& numbers = kExponentialAliasBack);

}  // namespace tavimor
