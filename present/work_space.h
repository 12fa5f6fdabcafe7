// Writing into the work space (or a hint box): formatted text, messages, pictures, and the pacing.
#pragma once

#include <string>

#include "core/session.h"
#include "present/rich_text.h"

namespace tavimor {

// Where writing goes: the work space through the front end, or a hint box being filled.
class RichTextSink {
 public:
  virtual ~RichTextSink() = default;
  virtual void Append(const RichRun& run) = 0;
};

// The work space of the session's front end.
class WorkSpaceSink : public RichTextSink {
 public:
  explicit WorkSpaceSink(Session& s) : s_(s) {}
  void Append(const RichRun& run) override;

 private:
  Session& s_;
};

// Rich text collected for a box of its own.
class CollectingSink : public RichTextSink {
 public:
  void Append(const RichRun& run) override { text.push_back(run); }
  RichText text;
};

// Appends text in a format such as "FFF0", with line ends before and after, at FontSize.
void WriteText(Session& s, RichTextSink& box, const std::string& text, int lines_before,
               int lines_after, const std::string& format);
// Appends bold text in a point size, followed by a line end at FontSize.
void WriteHeading(Session& s, RichTextSink& box, const std::string& text, int lines_before,
                  int lines_after, float size);
// Writes the rule "_____________________________" after two line ends, in that colour.
void WriteRule(Session& s, RichTextSink& box, int colour);
// Writes the lines of a message body (help prefix already removed): "|" ends a line, "\\" ends
// a line and pauses unless streaming, the first "@...@" pair of a line is typeset inline.
void WriteMessage(Session& s, RichTextSink& box, const std::string& body, bool streaming);
// Appends a picture with its mathematics, on the text baseline (the offset of AlignPicture).
void InsertPicture(Session& s, RichTextSink& box, Picture picture, int lines_before,
                   int lines_after, bool indent);

// The writers of steps.
// Takes Message, sets HelpNumber, writes it, then the side with `n` in place of the side being
// worked on (the whole equation when panel 1 is "Left Side" or "Right Side").
void ShowStep(Session& s, NodeIdx n);
// ShowStep, then a rule in the help colour that closes the command's narration (Factor and
// Complete the square end so).
void ShowStepClosedByRule(Session& s, NodeIdx n);
// The side a command's narration names, by panel 1's caption: 0 the expression, 1 the left side
// of the equation, 2 the right side.
int SideOfPanel(const Session& s);
// Writes a message and the equation given.
void ShowStepEqn(Session& s, const std::string& message, const std::string& left,
                 const std::string& right);
// The solver's report: counts the step, writes it when steps are shown, paces, and gives the
// step as a hint when one is wanted (the result is then true and the engine stops).
bool ReportStep(Session& s, const std::string& message, const std::string& left,
                const std::string& right, int hint);
// A message without an equation; a requested stop of a solve raises the cancel error.
void ShowNote(Session& s, const std::string& message);
// The message in the hint box.
void ShowHint(Session& s, const std::string& message);

// The pacing button: waits for the student. Enter goes on; F1 shows help and waits again; for a
// solve the right button asks "Really want to stop AutoSolve?"; Esc stops. A stop marks the solve
// button "Cancel;" and raises the cancel error 0x80045401.
void ShowWaitButton(Session& s, const std::string& tag);

}  // namespace tavimor
