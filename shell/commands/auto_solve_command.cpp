// The Auto solve button: the unknown chosen, the equation solved step by step, the answers
// checked and stated.
#include "shell/commands/auto_solve_command.h"

#include "core/message_box.h"
#include "core/pieces.h"
#include "core/scoped_override.h"
#include "core/text_predicates.h"
#include "present/typesetter.h"
#include "present/work_space.h"
#include "shell/command_frame.h"
#include "shell/status_bar.h"
#include "simplify/simplify_driver.h"
#include "solve/auto_solve.h"
#include "solve/check_solutions.h"
#include "solve/solve_state.h"

namespace tavimor {

namespace {

constexpr const char* kSolveError = "Error in AutoSolve.";

// The letter to solve for: the unknown when it occurs, the only letter when there is one, else
// the one the student accepts. False when there is none, or the student cancelled.
bool ChooseLetter(Session& s, const std::string& equation) {
  std::string letter;
  const int count = ChooseUnknown(s, equation, letter);
  if (count == 0) {
    ShowCustomMessage(s, "There is nothing to do.  This equation does not contain any unknowns.",
                      0);
    return false;
  }
  if (count == -1) return true;
  if (count > 1) {
    // Each No offers the candidate after the one just offered.
    for (int asked = 0;; ++asked) {
      const YesNoCancel answer = s.Screen().AskYesNoCancel(
          s.Unknown + " does not appear in this equation.\nDo you want the unknown to be " +
          letter + "?");
      if (answer == YesNoCancel::Cancel) return false;
      if (answer == YesNoCancel::Yes) break;
      ScopedOverride offered(s.Unknown, letter);
      ChooseUnknown(s, equation, letter);
    }
  }
  s.Unknown = letter;
  UpdateStatusPanel(s);
  return true;
}

// The answers as the tutor states them after a solve with no steps shown, or after several.
void WriteAnswers(Session& s, const std::string& answers, int rejected) {
  WorkSpaceSink box(s);
  const FontMetrics& metrics = s.Screen().Metrics();
  const int count = CountPieces(answers, "; ");
  if (IsReservedAnswer(answers)) {
    if (s.SolveDetail == 0) {
      std::string line;
      if (answers == kUnsolvable) {
        line = "This equation is unsolvable with this version of the program.";
      } else if (answers == kNoSolution) {
        line = s.ComplexForm == 0 ? "This equation has no solution over the real numbers."
                                  : "This equation has no solution.";
      } else {
        line = "This equation is any identity and any value of @" + s.Unknown + "@ is a solution.";
      }
      WriteMessage(s, box, line, s.StreamingOutput);
      return;
    }
  } else {
    if (s.SolveDetail > 0 && count >= 2) {
      WriteText(s, box, "The solution set consists of " + std::to_string(count) + " solutions:", 0,
                1, "FFF0");
    } else if (s.SolveDetail == 0) {
      WriteText(s, box,
                count == 1 ? "Solving this equation yields the solution:"
                           : "Solving this equation yields the solution set:",
                0, 1, "FFF0");
    }
    if (s.SolveDetail == 0 || count >= 2) {
      for (int k = 1; k <= count; ++k) {
        WriteText(s, box, k == 1 ? "" : "and", 0, 0, "FFF0");
        InsertPicture(s, box, DrawEquation(s, metrics, s.Unknown, GetPiece(answers, k, "; ")), 1, 0,
                      true);
        WriteText(s, box, "  ", 0, 1, "FFF0");
      }
    }
    if (s.SolveDetail > 0 && count == 1 && rejected >= 1) {
      ShowStepEqn(
          s, std::to_string(s.HelpNumber) + "#The solution set consists of the single solution:",
          s.Unknown, answers);
    }
  }
  if (s.SolveDetail > 0) WriteRule(s, box, 0);
}

}  // namespace

std::string AutoSolveCommand(Session& s, bool) {
  const std::string left = s.Pool[kLeftRoot].Text;
  const std::string right = s.Pool[kRightRoot].Text;
  const std::string equation = left + "=" + right;
  bool solved = false;
  std::string answers;
  int rejected = 0;
  s.SolveAnswers.clear();
  return RunCommandFrame(
      s, kSolveError,
      [&](NodeIdx) {
        if (left == s.Unknown && CountOccurrences(s, right, s.Unknown) == 0 &&
            SimplifyText(s, right) == right) {
          ShowCustomMessage(
              s, "There is nothing to do.  This equation is already solved for " + s.Unknown + ".",
              0);
          return;
        }
        if (!ChooseLetter(s, equation)) return;
        if (s.SolveDetail > 0) {
          WorkSpaceSink box(s);
          WriteText(s, box,
                    "Solve this equation for " + s.Unknown + " by following these steps:", 0, 1,
                    "FTF0");
        }
        ResetDiagnostics(s);
        AutoSolve(s, equation, s.Unknown, answers);
        CleanAnswers(answers, rejected);
        CheckSolutions(s, equation, s.Unknown, answers, rejected);
        if (!IsReservedAnswer(answers)) {
          RestoreSides(s, s.Unknown, GetPiece(answers, 1, "; "));
        }
        s.SolveAnswers = answers;
        solved = true;
      },
      [&] {
        if (solved) WriteAnswers(s, answers, rejected);
      });
}

}  // namespace tavimor
