// The terminal's side of the front-end interface: the work space kept as rich text and printed
// with its mathematics set in two dimensions; pauses and questions at the prompt.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "core/frontend.h"
#include "core/session.h"
#include "present/display_list.h"
#include "present/rich_text.h"

namespace tavimor {

// Control characters shown in caret notation, so that they never act on the terminal.
std::string PrintableText(const std::string& text);

class TerminalFrontend : public Frontend {
 public:
  // With `live`, the work space is printed line by line as it is written, and pauses and
  // questions are asked on `in`; otherwise nothing waits and questions take their defaults.
  TerminalFrontend(std::ostream& out, std::ostream& err, std::istream& in, bool live)
      : out_(out), err_(err), in_(in), live_(live) {}

  void AttachSession(Session& s) { s_ = &s; }

  void AppendToWorkSpace(const RichRun& run) override;
  void ClearWorkSpace() override;
  const FontMetrics& Metrics() override { return metrics_; }
  PauseInput WaitButton(const std::string& tag, float x, float y) override;
  void ShowMessageBox(const std::string& text, int help_number, MessageIcon icon) override;
  void ShowHintBox(const RichText& body, int help_number) override;
  bool AskYesNo(const std::string& question) override;
  std::optional<std::string> AskText(const std::string& question,
                                     const std::string& suggestion) override;
  std::optional<std::vector<std::string>> AskValues(
      const std::vector<std::string>& letters,
      const std::vector<std::string>& suggestions) override;
  bool AskValueAgain(const std::string& letter) override;
  void ShowHelp(int help_number) override;

  // Values given beforehand ("x" -> "2"), answered for those letters without asking.
  void SetGivenValues(std::vector<std::pair<std::string, std::string>> values) {
    given_values_ = std::move(values);
  }
  // Letters whose value was asked for and neither given nor typed, since the last Reset.
  const std::vector<std::string>& MissingValues() const { return missing_values_; }
  // Letters whose given value was refused where nothing can be asked, since the last Reset.
  const std::vector<std::string>& RefusedValues() const { return refused_values_; }

  // Prints what is left of the current line (live mode).
  void Flush();
  const RichText& WorkSpace() const { return work_space_; }
  const std::vector<std::string>& Messages() const { return messages_; }
  const std::vector<std::string>& Hints() const { return hints_; }
  // Forgets the work space and the messages, for the next line of a batch.
  void Reset();

 private:
  void PrintLines(const RichText& runs);

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
  std::vector<std::pair<std::string, std::string>> given_values_;
  std::vector<std::string> missing_values_;
  std::vector<std::string> refused_values_;
  // Letters whose given value was refused: asked for at the prompt.
  std::vector<std::string> ask_again_;
};

}  // namespace tavimor
