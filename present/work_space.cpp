// Writing into the work space (or a hint box): formatted text, messages, pictures, and the pacing.
#include "present/work_space.h"

#include "core/errors.h"
#include "present/step_markup.h"
#include "present/typesetter.h"

namespace tavimor {

namespace {

constexpr const char* kRuleText = "_____________________________";

void LineEnds(RichTextSink& box, int count) {
  for (int i = 0; i < count; ++i) box.Append(RichRun{RunKind::LineEnd, "", {}, {}});
}

// Draws the mathematics of an "@" pair: a relation if one is found, else an expression.
Picture DrawMathematics(Session& s, std::string text) {
  std::string right;
  int code = 0;
  FindRelation(text, right, code);
  if (code == 0) return DrawAnyExpression(s, s.Screen().Metrics(), text);
  return DrawAnyEquation(s, s.Screen().Metrics(), code, text, right);
}

bool IsToolTag(const std::string& tag) {
  return tag == "print" || tag == "simp frac" || tag == "add fracs" || tag == "sys eqs";
}

// The side drawn after a step: the whole equation while a side is worked on.
Picture StepPicture(Session& s, NodeIdx n) {
  const std::string& caption = s.Form.panel1_caption;
  const FontMetrics& metrics = s.Screen().Metrics();
  if (caption == "Left Side") {
    s.DoToBothSidesQ.clear();
    return DrawEquation(s, metrics, s.Pool[n].Text, s.Pool[kRightRoot].Text);
  }
  if (caption == "Right Side") {
    s.DoToBothSidesQ.clear();
    return DrawEquation(s, metrics, s.Pool[kLeftRoot].Text, s.Pool[n].Text);
  }
  return DrawExpression(s, metrics, s.Pool[n].Text);
}

}  // namespace

void WorkSpaceSink::Append(const RichRun& run) { s_.Screen().AppendToWorkSpace(run); }

void WriteText(Session& s, RichTextSink& box, const std::string& text, int lines_before,
               int lines_after, const std::string& format) {
  s.WritingWorkSpace = true;
  LineEnds(box, lines_before);
  if (!text.empty())
    box.Append(RichRun{RunKind::Text, text, TextFormat::Parse(format, s.FontSize), {}});
  LineEnds(box, lines_after);
  s.WritingWorkSpace = false;
}

void WriteHeading(Session& s, RichTextSink& box, const std::string& text, int lines_before,
                  int lines_after, float size) {
  s.WritingWorkSpace = true;
  LineEnds(box, lines_before);
  TextFormat format = TextFormat::Parse("TFF0", size);
  box.Append(RichRun{RunKind::Text, text, format, {}});
  LineEnds(box, 1);
  LineEnds(box, lines_after);
  s.WritingWorkSpace = false;
}

void WriteRule(Session& s, RichTextSink& box, int colour) {
  WriteText(s, box, kRuleText, 2, 0, "FFF" + std::to_string(colour));
}

void WriteMessage(Session& s, RichTextSink& box, const std::string& body, bool streaming) {
  std::string rest = body;
  for (bool last = false; !last;) {
    int position = 0;
    std::string mark;
    FindBreak(rest, position, mark);
    std::string line;
    if (position == 0) {
      line = rest;
      last = true;
    } else {
      line = rest.substr(0, static_cast<std::size_t>(position - 1));
      rest = rest.substr(static_cast<std::size_t>(position));
    }
    const std::size_t open = line.find('@');
    if (open == std::string::npos) {
      WriteText(s, box, line, 0, 1, "FFF0");
    } else {
      // Only the first pair of a line is typeset; an "@" alone closes at the end of the line.
      const std::size_t close = line.find('@', open + 1);
      const std::size_t end = close == std::string::npos ? line.size() : close;
      const std::string mathematics = line.substr(open + 1, end - open - 1);
      WriteText(s, box, line.substr(0, open), 0, 0, "FFF0");
      if (!mathematics.empty()) {
        InsertPicture(s, box, DrawMathematics(s, mathematics), 0, 0, false);
      }
      WriteText(s, box, close == std::string::npos ? "" : line.substr(close + 1), 0, 1, "FFF0");
    }
    // A pause mark that opens what is left of the message does not pause.
    if (mark == "\\" && position > 1 && !streaming) ShowWaitButton(s, "print");
  }
}

void InsertPicture(Session& s, RichTextSink& box, Picture picture, int lines_before,
                   int lines_after, bool indent) {
  s.WritingWorkSpace = true;
  LineEnds(box, lines_before);
  if (indent) box.Append(RichRun{RunKind::Tab, "", {}, {}});
  const FontMetrics& metrics = s.Screen().Metrics();
  const float font_height =
      metrics.Ascent(Face::Text, s.FontSize) + metrics.Descent(Face::Text, s.FontSize);
  picture.baseline_offset = picture.drawing.height - picture.drawing.baseline - 0.35f * font_height;
  RichRun run;
  run.kind = RunKind::Picture;
  run.picture = std::move(picture);
  box.Append(run);
  LineEnds(box, lines_after);
  s.WritingWorkSpace = false;
}

void ShowStep(Session& s, NodeIdx n) {
  s.HelpNumber = static_cast<std::int16_t>(HelpNumberOf(s.Message));
  s.Message = StripHelpPrefix(s.Message);
  WorkSpaceSink box(s);
  WriteMessage(s, box, s.Message, s.StreamingOutput);
  InsertPicture(s, box, StepPicture(s, n), 1, 2, true);
}

void ShowStepClosedByRule(Session& s, NodeIdx n) {
  ShowStep(s, n);
  constexpr int kHelpColour = 9;
  WorkSpaceSink box(s);
  WriteRule(s, box, kHelpColour);
  WriteText(s, box, "", 0, 2, "FFF0");
}

int SideOfPanel(const Session& s) {
  if (s.Form.panel1_caption == "Left Side") return 1;
  if (s.Form.panel1_caption == "Right Side") return 2;
  return 0;
}

void ShowStepEqn(Session& s, const std::string& message, const std::string& left,
                 const std::string& right) {
  s.HelpNumber = static_cast<std::int16_t>(HelpNumberOf(message));
  WorkSpaceSink box(s);
  WriteMessage(s, box, StripHelpPrefix(message), s.StreamingOutput);
  InsertPicture(s, box, DrawEquation(s, s.Screen().Metrics(), left, right), 1, 2, true);
}

bool ReportStep(Session& s, const std::string& message, const std::string& left,
                const std::string& right, int hint) {
  ++s.StepCount;
  if (s.SolveDetail > 0) {
    ShowStepEqn(s, message, left, right);
    if (!s.StreamingOutput) ShowWaitButton(s, "");
  }
  if (hint == 1 && s.HintState == 1) {
    s.HelpNumber = static_cast<std::int16_t>(HelpNumberOf(message));
    ShowHint(s, StripHelpPrefix(message));
    s.HintState = 2;
    return true;
  }
  return false;
}

void ShowNote(Session& s, const std::string& message) {
  s.HelpNumber = static_cast<std::int16_t>(HelpNumberOf(message));
  const std::string body = StripHelpPrefix(message);
  if (s.SolveDetail > 0) {
    WorkSpaceSink box(s);
    WriteMessage(s, box, body, s.StreamingOutput);
    if (!s.StreamingOutput) ShowWaitButton(s, "");
  }
  if (s.AutoSolveTag.rfind("Cancel", 0) == 0) throw AppError(kErrorCancel, "Cancelled");
}

void ShowHint(Session& s, const std::string& message) {
  CollectingSink box;
  // The hint box never pauses.
  WriteMessage(s, box, message, true);
  s.Screen().ShowHintBox(box.text, s.HelpNumber);
}

void ShowWaitButton(Session& s, const std::string& tag) {
  for (;;) {
    const PauseInput input = s.Screen().WaitButton(tag, s.WaitX, s.WaitY);
    switch (input) {
      case PauseInput::Continue: return;
      case PauseInput::Help: s.Screen().ShowHelp(s.HelpNumber); continue;
      case PauseInput::RightButton:
        if (IsToolTag(tag)) continue;
        if (!s.Screen().AskYesNo("Really want to stop AutoSolve?")) return;
        break;
      case PauseInput::Escape: break;
    }
    s.AutoSolveTag = "Cancel;";
    throw AppError(kErrorCancel, "Cancelled");
  }
}

}  // namespace tavimor
