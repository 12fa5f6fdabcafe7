// The interface through which the engines reach whoever shows their work: window, terminal or test.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tavimor {

struct RichRun;
class FontMetrics;
class Session;
struct SysEqState;
struct UfooDialogState;
using RichText = std::vector<RichRun>;

enum class MessageIcon { Information, Critical, Exclamation };

// One entry of the expression tree view: its depth below the root (0 for the root) and its label.
struct TreeViewEntry {
  int depth = 0;
  std::string label;
};

// The answer to a question with Yes, No and Cancel.
enum class YesNoCancel { Yes, No, Cancel };

// What the student did at the pacing button.
enum class PauseInput {
  Continue,     // left button or Enter
  RightButton,  // asks whether to stop a solve
  Escape,       // stops without asking
  Help,         // F1: the help topic of the last step; the button stays
};

// Engines never paint, print or block: they report through this interface. Each front end
// implements it; tests use a recording one.
class Frontend {
 public:
  virtual ~Frontend() = default;

  // Appends a run to the work space, which only grows.
  virtual void AppendToWorkSpace(const RichRun& run) = 0;
  virtual void ClearWorkSpace() = 0;
  // How the work space measures text, for the typesetter.
  virtual const FontMetrics& Metrics() = 0;
  // Whether the front end paints the typesetter's drawings. One that shows mathematics only as
  // lines of text (the terminal) gets each picture set as text instead, from the same tree.
  virtual bool PaintsDrawings() const { return true; }

  // The pacing button, shown modally at (x, y) over the command that was pressed; `tag` says who
  // waits: "print" inside a message, "simp frac", "add fracs", "sys eqs", else a solve.
  virtual PauseInput WaitButton(const std::string& tag, float x, float y) = 0;
  // A modal message box with a help button leading to the topic `help_number` (0: no topic).
  virtual void ShowMessageBox(const std::string& text, int help_number, MessageIcon icon) = 0;
  // The hint box, holding rich text with inline mathematics.
  virtual void ShowHintBox(const RichText& body, int help_number) = 0;
  // A question with Yes and No.
  virtual bool AskYesNo(const std::string& question) = 0;
  // A question with Yes, No and Cancel.
  virtual YesNoCancel AskYesNoCancel(const std::string& question) = 0;
  // A question answered with a short text; nothing when the student cancels.
  virtual std::optional<std::string> AskText(const std::string& question,
                                             const std::string& suggestion) = 0;
  // The values of letters: one row per letter, shown as the letter and " =", each with its
  // suggestion filled in; nothing when the student cancels.
  virtual std::optional<std::vector<std::string>> AskValues(
      const std::vector<std::string>& letters, const std::vector<std::string>& suggestions) = 0;
  // The value given for the letter was refused, and its message shown. True when the front end
  // can ask for it again; one whose values were fixed beforehand says no, and the command ends.
  virtual bool AskValueAgain(const std::string& /*letter*/) { return true; }
  // The help topic with that number. The window and the terminal look it up in the help topic
  // map (shell/help_topics.h), which then asks for the page with OpenHelpPage.
  virtual void ShowHelp(int help_number) = 0;
  // Shows a help page, a file the help topic map led to: in a help browser, or as text.
  virtual void OpenHelpPage(const std::string& /*path*/) {}
  // The tree view of a side: every node of its tree, the root first, each before its children.
  virtual void ShowTreeView(const std::vector<TreeViewEntry>& /*entries*/) {}

  // The number tools of the Number panel.
  // The significant-figures dialog on the number, its figures box starting at `figures` (1 to
  // 20): the figures chosen with OK, or nothing when the dialog is closed.
  virtual std::optional<int> AskSignificantFigures(const std::string& number, int figures) = 0;
  // The prime-factor dialog shows the text of its box and its button's caption ("OK", then
  // "Close"), and waits: true when the button was pressed, false when the dialog was closed. A
  // press of "Close" closes the dialog.
  virtual bool ShowFactorForm(const std::string& box, const std::string& caption) = 0;
  // The window that solves a set of linear equations, made ready in `form`. A front end that
  // shows it modally returns once it has closed; one that drives it word by word (the terminal,
  // the tests) returns at once and leaves it open.
  virtual void OpenSystemWindow(Session& /*s*/, SysEqState& /*form*/) {}
  // The dialog of the Useful form of one on `dialog`, made ready: true when Apply was pressed
  // with a choice it allows, false when it was cancelled.
  virtual bool AskUfoo(Session& /*s*/, UfooDialogState& /*dialog*/) { return false; }
  // The graph of the classified equations (EquationList). A window returns once it has closed,
  // having written its settings back to GraphParms; the terminal draws the picture at once. A
  // front end that shows no graphs ignores it.
  virtual void OpenGraphWindow(Session& /*s*/) {}
};

}  // namespace tavimor
