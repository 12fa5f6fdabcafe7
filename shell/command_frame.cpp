// The frame every command runs in: both sides kept, the diagnostics, the detail level, the error
// trap that restores the sides, and the result sentences of an expression command.
#include "shell/command_frame.h"

#include <array>
#include <chrono>
#include <cmath>

#include "core/errors.h"
#include "core/input_split.h"
#include "core/message_box.h"
#include "core/node_pool.h"
#include "core/number_format.h"
#include "present/text_picture.h"
#include "present/typesetter.h"
#include "present/work_space.h"

namespace tavimor {

namespace {

// Numbered mathematical errors: their sentences and help topics.
struct NumberedError {
  std::uint32_t number;
  const char* text;
  int help;
};
constexpr std::array<NumberedError, 5> kNumberedErrors = {{
    {kErrorLogZero, "You are attempting to take the logarithm of 0 and this is undefined.", 255},
    {kErrorLnZero, "You are attempting to take the natural logarithm of 0 and this is undefined.",
     256},
    {kErrorTangent,
     "You are attempting to take the tangent of an angle for which the tangent is undefined.", 257},
    {kErrorZeroPower, "You are attempting to raise 0 to non-positive power and this is undefined.",
     258},
    {kErrorZeroOverZero, "You are attempting to evaluate 0/0 and this is indeterminate.", 259},
}};
constexpr const char* kDivideByZero = "You are attempting to divide by 0 and this is undefined.";
constexpr int kDivideByZeroHelp = 260;

double NowSeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Whether two forms are set alike on paper, as the terminal sets them.
bool DrawnAlike(Session& s, const std::string& a, const std::string& b) {
  Picture first;
  first.left = a;
  Picture second;
  second.left = b;
  return TextPicture(s, first).Utf8Rows() == TextPicture(s, second).Utf8Rows();
}

}  // namespace

NodeIdx CurrentSide(const Session& s) {
  return s.Form.panel1_caption == "Right Side" ? kRightRoot : kLeftRoot;
}

// Loads the kept texts of both sides as the work item again, on a fresh pool.
void RestoreSides(Session& s, const std::string& left, const std::string& right) {
  InitNodePool(s);
  NewNode(s);
  NewNode(s);
  LoadSide(s, kLeftRoot, left);
  if (!right.empty()) LoadSide(s, kRightRoot, right);
}

void ResetDiagnostics(Session& s) {
  s.CommandStartSeconds = NowSeconds();
  s.StepCount = 0;
  s.Pool.MaxNodesInUse = 0;
}

void ShowDiagnostics(Session& s) {
  const double seconds = std::max(0.0, NowSeconds() - s.CommandStartSeconds);
  // "0.##": up to two decimals, none written when they are zero.
  std::string time = GeneralNumberFormat(std::round(seconds * 100.0) / 100.0, s.Dp());
  std::string label = "n=" + std::to_string(s.Pool.MaxNodesInUse) + ", t=" + time + "s\n" +
                      std::to_string(s.Pool.NodesInUse);
  if (s.StepCount != 0) label += "\nsteps=" + std::to_string(s.StepCount);
  s.Form.diagnostics = label;
}

std::array<std::string, 6> ResultPhrases(const std::string& verb, const std::string& nothing) {
  return {verb + " on the left side of the equation yields",
          nothing + " on the left side of the equation.",
          verb + " on the right side of the equation yields",
          nothing + " on the right side of the equation.",
          verb + " yields",
          nothing + "."};
}

bool TellSimplifiedInstead(Session& s, NodeIdx side, const std::string& input,
                           const std::string& simplified, const std::string& note) {
  if (simplified == input) return false;
  FreeChildren(s, side);
  LoadSide(s, side, input);
  if (note.empty() || DrawnAlike(s, input, simplified)) return false;
  ShowHint(s, note);
  s.SimplifiedInsteadTold = true;
  return true;
}

void ShowResult(Session& s, const std::array<std::string, 6>& phrases, bool changed) {
  WorkSpaceSink box(s);
  const FontMetrics& metrics = s.Screen().Metrics();
  const int panel_side = SideOfPanel(s);
  const bool side = panel_side != 0;
  constexpr std::size_t kFirstPhrase[] = {4, 0, 2};  // expression, left side, right side
  const std::size_t first = kFirstPhrase[panel_side];
  if (changed) {
    WriteMessage(s, box, phrases[first], s.StreamingOutput);
    Picture picture =
        side ? DrawEquation(s, metrics, s.Pool[kLeftRoot].Text, s.Pool[kRightRoot].Text)
             : DrawExpression(s, metrics, s.Pool[kLeftRoot].Text);
    InsertPicture(s, box, std::move(picture), 1, 2, true);
  } else {
    WriteText(s, box, phrases[first + 1], 0, 1, "FFF0");
  }
  if (side) s.DoToBothSidesQ.clear();
}

std::string CommandError(Session& s, const std::string& command_text, const std::exception& error,
                         const std::string& left, const std::string& right) {
  std::string message = command_text;
  int help = 0;
  bool cancelled = false;
  if (const auto* app = dynamic_cast<const AppError*>(&error)) {
    cancelled = app->Number() == kErrorCancel;
    for (const NumberedError& numbered : kNumberedErrors) {
      if (numbered.number == app->Number()) {
        message = numbered.text;
        help = numbered.help;
      }
    }
  } else if (const auto* run_time = dynamic_cast<const RunTimeError*>(&error)) {
    if (run_time->Number() == RunTimeErrorNumber::DivisionByZero) {
      message = kDivideByZero;
      help = kDivideByZeroHelp;
    }
  }
  try {
    RestoreSides(s, left, right);
  } catch (const std::exception&) {
    // The kept texts loaded before; a pool anew always holds them.
  }
  s.AutoSolveTag.clear();
  if (cancelled) return "";  // the student asked to stop: no error to report
  if (help != 0) s.HelpNumber = static_cast<std::int16_t>(help);
  ShowCustomMessage(s, message, help);
  return message;
}

std::string RunCommandFrame(Session& s, const std::string& error_text,
                            const std::function<void(NodeIdx side)>& work,
                            const std::function<void()>& close) {
  const NodeIdx side = CurrentSide(s);
  const std::string left = s.Pool[kLeftRoot].Text;
  const std::string right = s.Pool[kRightRoot].Text;
  // What a command counts starts afresh: rewrites against endless loops, and the one message of
  // a drawing that failed.
  s.RewriteCount = 0;
  s.DrawFailureShown = false;
  s.SimplifiedInsteadTold = false;
  try {
    ResetDiagnostics(s);
    work(side);
    ShowDiagnostics(s);
    close();
    s.DetailNow = 0;
    return "";
  } catch (const std::exception& error) {
    s.DetailNow = 0;
    ShowDiagnostics(s);
    return CommandError(s, error_text, error, left, right);
  }
}

std::string RunExpressionCommand(Session& s, const ExpressionCommand& command,
                                 const SideEngine& engine) {
  bool changed = false;
  return RunCommandFrame(
      s, command.error,
      [&](NodeIdx side) {
        s.DetailNow = s.SolveDetailDefault;
        changed = engine(s, side);
      },
      [&] {
        if (s.DetailNow >= 1 && s.StreamingOutput) changed = false;
        if ((s.DetailNow == 0 || !changed) && !s.SimplifiedInsteadTold) {
          ShowResult(s, ResultPhrases(command.verb, command.nothing), changed);
        }
      });
}

}  // namespace tavimor
