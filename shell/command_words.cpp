// The command words of the front ends and the buttons they press.
#include "shell/command_words.h"

namespace tavimor {

namespace {

const std::vector<CommandWord> kWords = {
    {"simplify", "cmdSimplify", false, "simplify the expression"},
    {"expand", "cmdExpand", false, "expand the expression"},
    {"expand-denominators", "cmdExpand", true, "expand, denominators too"},
    {"factor", "cmdAutoFactor", false, "factor the expression"},
    {"factor-lcm", "cmdAutoFactor", true, "factor, the LCM out of denominators too"},
    {"add-fractions", "cmd1Frac", false, "add the fractions"},
    {"combine-logs", "cmdCombineLogs", false, "combine the logarithms"},
    {"complete-square", "cmdCSExpr", false, "complete the square"},
    {"break-trig", "cmdExpandTrig", false, "break apart trig functions"},
    {"combine-trig", "cmdCombineTrig", false, "combine trig functions"},
    {"brackets", "cmdBrackets", false, "remove one set of unneeded brackets"},
    {"evaluate", "cmdEvaluate", false, "evaluate for values of the letters"},
    {"left", "cmdDoLHS", false, "work on the left side"},
    {"right", "cmdDoRHS", false, "work on the right side"},
    {"equation", "cmdShowEqnFrame", false, "back to the whole equation"},
    {"solve", "cmdAutoSolve", false, "solve step by step"},
    {"hint", "cmdSolvingHint", false, "the next step of solving"},
};

}  // namespace

const std::vector<CommandWord>& CommandWords() { return kWords; }

const CommandWord* FindCommandWord(const std::string& word) {
  for (const CommandWord& entry : kWords) {
    if (word == entry.word) return &entry;
  }
  return nullptr;
}

}  // namespace tavimor
