// The terminal's side of the front-end interface: the work space kept as rich text and printed
// with its mathematics set in two dimensions; pauses and questions at the prompt.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "core/frontend.h"
#include "core/session.h"
#include "graph/draw_graphs.h"
#include "present/display_list.h"
#include "present/rich_text.h"

namespace tavimor {

// Control characters shown in caret notation (a C1 control as the escape sequence it stands
// for, ^[ and a letter), so that they never act on the terminal; a byte that is no part of valid
// UTF-8 becomes U+FFFD. Line feeds and tabs stay.
std::string PrintableText(const std::string& text);
// The text as valid UTF-8: each byte that is no part of a valid sequence becomes U+FFFD.
std::string ValidUtf8(const std::string& text);

// The longest line the terminal tutor reads, from the keyboard, a pipe or a batch file.
inline constexpr std::size_t kMaxLineBytes = 1u << 20;

// Reads one line of at most `max` bytes; the rest of a longer line is read and dropped, and
// `too_long` says so. A line end is LF, CR LF or CR at the end of the input. False at the end
// of the input.
bool ReadBoundedLine(std::istream& in, std::string& line, std::size_t max, bool& too_long);

// Where the answers typed at a prompt come from: shows the prompt, reads a line; false at the
// end of the input.
using LineSource = std::function<bool(const std::string& prompt, std::string& line)>;

class TerminalFrontend : public Frontend {
 public:
  // With `live`, the work space is printed line by line as it is written and not kept, and
  // pauses and questions are asked on `in`; otherwise nothing waits, questions take their
  // defaults, and the work space is kept for printing.
  TerminalFrontend(std::ostream& out, std::ostream& err, std::istream& in, bool live)
      : out_(out), err_(err), in_(in), live_(live) {}

  void AttachSession(Session& s) { s_ = &s; }
  // The answers to pauses and questions are read through `source` (the line editor).
  void SetLineSource(LineSource source) { line_source_ = std::move(source); }

  void AppendToWorkSpace(const RichRun& run) override;
  void ClearWorkSpace() override;
  const FontMetrics& Metrics() override { return metrics_; }
  bool PaintsDrawings() const override { return false; }
  PauseInput WaitButton(const std::string& tag, float x, float y) override;
  void ShowMessageBox(const std::string& text, int help_number, MessageIcon icon) override;
  void ShowHintBox(const RichText& body, int help_number) override;
  bool AskYesNo(const std::string& question) override;
  // Takes the next given answer, written with the question in the work space; beyond them, asks
  // at the prompt when live, else takes Yes.
  YesNoCancel AskYesNoCancel(const std::string& question) override;
  std::optional<std::string> AskText(const std::string& question,
                                     const std::string& suggestion) override;
  std::optional<std::vector<std::string>> AskValues(
      const std::vector<std::string>& letters,
      const std::vector<std::string>& suggestions) override;
  bool AskValueAgain(const std::string& letter) override;
  // The page of the topic, printed as text; a topic without a page is told on the error stream.
  void ShowHelp(int help_number) override;
  void OpenHelpPage(const std::string& path) override;
  // The tree printed one node a line, two blanks of indentation a level, as the tree command
  // prints it; a one-shot run keeps its lines with the dialog's.
  void ShowTreeView(const std::vector<TreeViewEntry>& entries) override;
  std::optional<int> AskSignificantFigures(const std::string& number, int figures) override;
  bool ShowFactorForm(const std::string& box, const std::string& caption) override;
  // The Useful form of one: the choice set by SetUfooAnswer is applied; without one, the
  // choices on offer are listed and nothing is applied.
  bool AskUfoo(Session& s, UfooDialogState& dialog) override;
  // Draws the graph: kept for the JSON, written to the --plot file, sketched when live.
  void OpenGraphWindow(Session& s) override;

  // The file the picture of a graph is written to as SVG (--plot); empty for none.
  void SetPlotFile(std::string path) { plot_file_ = std::move(path); }
  // The graph drawn since the last Reset, and why its picture could not be written.
  const std::optional<GraphPicture>& Graph() const { return graph_; }
  const std::string& PlotError() const { return plot_error_; }

  // The figures the next significant-figures dialog takes (sig-figs N); else the live tutor
  // asks, and a one-shot run takes the dialog's start.
  void SetFiguresAnswer(std::optional<int> figures) { figures_answer_ = figures; }
  // The form the next Useful form of one dialog takes (ufoo TEXT).
  void SetUfooAnswer(std::optional<std::string> text) { ufoo_answer_ = std::move(text); }
  // The lines the last tool dialog showed (the prime-factor box, the number and its figures),
  // since the last Reset.
  const std::vector<std::string>& DialogLines() const { return dialog_lines_; }

  // Values given beforehand ("x" -> "2"), answered for those letters without asking.
  void SetGivenValues(std::vector<std::pair<std::string, std::string>> values) {
    given_values_ = std::move(values);
  }
  // Answers given beforehand to the questions with Yes, No and Cancel, in turn.
  void SetGivenAnswers(std::vector<std::string> answers) { given_answers_ = std::move(answers); }
  // Letters whose value was asked for and neither given nor typed, since the last Reset.
  const std::vector<std::string>& MissingValues() const { return missing_values_; }
  // Letters whose given value was refused where nothing can be asked, since the last Reset.
  const std::vector<std::string>& RefusedValues() const { return refused_values_; }

  // Prints what is left of the current line (live mode).
  void Flush();
  const RichText& WorkSpace() const { return work_space_; }
  const std::vector<std::string>& Messages() const { return messages_; }
  const std::vector<std::string>& Hints() const { return hints_; }
  // The hints as the box holds them, with their mathematics as pictures.
  const std::vector<RichText>& HintBodies() const { return hint_bodies_; }
  // Forgets the work space and the messages, for the next line of a batch.
  void Reset();

 private:
  void PrintLines(const RichText& runs);
  bool ReadAnswer(const std::string& prompt, std::string& answer);

  std::ostream& out_;
  std::ostream& err_;
  std::istream& in_;
  bool live_;
  Session* s_ = nullptr;
  FixedMetrics metrics_;
  RichText work_space_;
  RichText pending_line_;  // live mode: the runs of the line not yet printed
  std::vector<std::string> messages_;
  std::vector<std::string> hints_;
  std::vector<RichText> hint_bodies_;
  std::vector<std::pair<std::string, std::string>> given_values_;
  std::vector<std::string> given_answers_;
  std::size_t answers_taken_ = 0;
  std::vector<std::string> missing_values_;
  LineSource line_source_;
  std::vector<std::string> refused_values_;
  std::string plot_file_;
  std::optional<GraphPicture> graph_;
  std::string plot_error_;
  // Letters whose given value was refused: asked for at the prompt.
  std::vector<std::string> ask_again_;
  std::optional<int> figures_answer_;
  std::optional<std::string> ufoo_answer_;
  std::vector<std::string> dialog_lines_;
  std::size_t dialog_lines_printed_ = 0;  // live mode: lines of the box already printed
};

}  // namespace tavimor
