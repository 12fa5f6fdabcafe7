// A front end for tests that records everything the engines show and answers from a script.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "core/frontend.h"
#include "present/display_list.h"
#include "present/rich_text.h"
#include "shell/commands/ufoo_command.h"

namespace tavimor {

struct RecordedMessage {
  std::string text;
  int help_number = 0;
  MessageIcon icon = MessageIcon::Information;
};

class RecordingFrontend : public Frontend {
 public:
  void AppendToWorkSpace(const RichRun& run) override { work_space.push_back(run); }
  void ClearWorkSpace() override {
    work_space.clear();
    ++clears;
  }
  const FontMetrics& Metrics() override { return metrics; }
  PauseInput WaitButton(const std::string& tag, float, float) override {
    pauses.push_back(tag);
    if (pause_answers.empty()) return PauseInput::Continue;
    const PauseInput answer = pause_answers.front();
    pause_answers.pop_front();
    return answer;
  }
  void ShowMessageBox(const std::string& text, int help_number, MessageIcon icon) override {
    messages.push_back({text, help_number, icon});
  }
  void ShowHintBox(const RichText& body, int help_number) override {
    hints.push_back(PlainText(body));
    hint_help.push_back(help_number);
  }
  bool AskYesNo(const std::string& question) override {
    questions.push_back(question);
    return yes;
  }
  // Answers from the queue in turn, then Yes.
  YesNoCancel AskYesNoCancel(const std::string& question) override {
    questions.push_back(question);
    if (three_way_answers.empty()) return YesNoCancel::Yes;
    const YesNoCancel answer = three_way_answers.front();
    three_way_answers.pop_front();
    return answer;
  }
  std::optional<std::string> AskText(const std::string& question, const std::string&) override {
    questions.push_back(question);
    return text_answer;
  }
  std::optional<std::vector<std::string>> AskValues(
      const std::vector<std::string>& letters,
      const std::vector<std::string>& suggestions) override {
    asked_letters.push_back(letters);
    suggested_values.push_back(suggestions);
    if (each_value) return std::vector<std::string>(letters.size(), *each_value);
    if (!refused_letters.empty() && !values_answers_again.empty()) {
      std::vector<std::string> again = values_answers_again.front();
      values_answers_again.pop_front();
      return again;
    }
    return values_answer;
  }
  // Asks again only while a further answer is queued, so that a refused value never loops.
  bool AskValueAgain(const std::string& letter) override {
    refused_letters.push_back(letter);
    return !values_answers_again.empty();
  }
  void ShowHelp(int help_number) override { help_shown.push_back(help_number); }
  void OpenHelpPage(const std::string& path) override { help_pages.push_back(path); }
  void ShowTreeView(const std::vector<TreeViewEntry>& entries) override {
    tree_views.push_back(entries);
  }
  std::optional<int> AskSignificantFigures(const std::string& number, int figures) override {
    figures_asked.push_back(number + " (" + std::to_string(figures) + " to start)");
    if (figures_cancel) return std::nullopt;
    return figures_answer ? *figures_answer : figures;
  }
  // The button is pressed while `factor_presses` lasts (unlimited when negative), then the dialog
  // is closed.
  bool ShowFactorForm(const std::string& box, const std::string& caption) override {
    factor_forms.push_back("[" + caption + "] " + box);
    if (factor_presses == 0) return false;
    if (factor_presses > 0) --factor_presses;
    return true;
  }

  // The dialog of the Useful form of one: the choices it offered are kept; `ufoo_answer`, when
  // set, is the form chosen, else the dialog is cancelled.
  bool AskUfoo(Session& s, UfooDialogState& dialog) override {
    ufoo_dialogs.push_back(UfooChoiceLines(s, dialog));
    if (!ufoo_answer) return false;
    const std::string answer = *ufoo_answer;
    ufoo_answer.reset();
    return ChooseUfooByText(s, dialog, answer);
  }

  // The work space as plain text, pictures as "@mathematics@".
  std::string Transcript() const { return PlainText(work_space); }

  FixedMetrics metrics;
  RichText work_space;
  int clears = 0;
  std::vector<std::string> pauses;
  std::deque<PauseInput> pause_answers;
  std::vector<RecordedMessage> messages;
  std::vector<std::string> help_pages;
  std::vector<std::vector<TreeViewEntry>> tree_views;
  std::vector<std::string> hints;
  std::vector<int> hint_help;
  std::vector<std::string> questions;
  bool yes = true;
  std::deque<YesNoCancel> three_way_answers;
  std::optional<std::string> text_answer;
  std::vector<std::vector<std::string>> asked_letters;
  std::optional<std::vector<std::string>> values_answer;
  std::optional<std::string> each_value;  // when set, the answer for every letter
  std::deque<std::vector<std::string>> values_answers_again;  // answers after a refusal, in turn
  std::vector<std::vector<std::string>> suggested_values;
  std::vector<std::string> refused_letters;
  std::vector<int> help_shown;
  std::optional<int> figures_answer;  // the figures chosen; the dialog's start when empty
  bool figures_cancel = false;
  std::vector<std::string> figures_asked;
  int factor_presses = -1;
  std::vector<std::string> factor_forms;  // each showing of the prime-factor dialog
  std::optional<std::string> ufoo_answer;
  std::vector<std::vector<std::string>> ufoo_dialogs;
};

}  // namespace tavimor
