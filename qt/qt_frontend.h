// The window's side of the front-end interface: the work space widget, the pacing button, the
// message box with its help button, the hint box, and the questions.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <functional>
#include <memory>

#include <QMessageBox>
#include "core/frontend.h"
#include "qt/both_sides_dialog.h"
#include "qt/display_painter.h"
#include "qt/help_browser.h"
#include "qt/number_tools_dialogs.h"

namespace tavimor {

class MainWindow;

// The pacing button: a small modal form over the pressed command. Enter or the left button go
// on, the right button asks to stop a solve, Esc stops, F1 shows the help of the last step.
class PacingDialog : public QDialog {
  Q_OBJECT

 public:
  explicit PacingDialog(QWidget* parent);
  PauseInput Input() const { return input_; }
  QPushButton* ContinueButton() const { return button_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Finish(PauseInput input);
  QPushButton* button_;
  PauseInput input_ = PauseInput::Continue;
};

// The system's message box: its text, the icon, OK, and a Help button that shows the message's
// help topic and leaves the box open (as F1 does). With topic 0 the button leads nowhere and is
// greyed out.
class CustomMsgBox : public QMessageBox {
  Q_OBJECT

 public:
  CustomMsgBox(QWidget* parent, const QString& text, int help_number, MessageIcon icon,
               std::function<void(int)> show_help);
  QPushButton* HelpButton() const { return help_; }
  int HelpNumber() const { return help_number_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPushButton* help_;
  int help_number_;
  std::function<void(int)> show_help_;
};

class QtFrontend : public Frontend {
 public:
  QtFrontend() = default;
  QtFrontend(const QtFrontend&) = delete;
  QtFrontend& operator=(const QtFrontend&) = delete;
  ~QtFrontend() override {
    if (both_sides_ != nullptr && both_sides_->parent() == nullptr) delete both_sides_.data();
  }
  void SetWindow(MainWindow* window) { window_ = window; }
  // The session whose help topic map leads from a help number to its page.
  void AttachSession(Session& s) { s_ = &s; }
  // With nobody at the screen (a screenshot run), no modal form is shown: every question takes
  // its default answer, and messages, hints and questions are written to standard error.
  void SetUnattended(bool unattended) { unattended_ = unattended; }
  bool Unattended() const { return unattended_; }

  void AppendToWorkSpace(const RichRun& run) override;
  void ClearWorkSpace() override;
  const FontMetrics& Metrics() override { return metrics_; }
  PauseInput WaitButton(const std::string& tag, float x, float y) override;
  void ShowMessageBox(const std::string& text, int help_number, MessageIcon icon) override;
  void ShowHintBox(const RichText& body, int help_number) override;
  bool AskYesNo(const std::string& question) override;
  YesNoCancel AskYesNoCancel(const std::string& question) override;
  std::optional<std::string> AskText(const std::string& question,
                                     const std::string& suggestion) override;
  std::optional<std::vector<std::string>> AskValues(
      const std::vector<std::string>& letters,
      const std::vector<std::string>& suggestions) override;
  void ShowHelp(int help_number) override;
  // The page in the help browser, brought forward; over a modal form it is modal too, so that it
  // can be read and closed.
  void OpenHelpPage(const std::string& path) override;
  // The tree view, modal; F1 and its Help button show its topic.
  void ShowTreeView(const std::vector<TreeViewEntry>& entries) override;
  // The Help menu: the program's help page, and the index of the algebra help.
  void OpenProgramHelp();
  void OpenAlgebraHelp();
  // The help browser while it is open, else nullptr.
  HelpBrowser* HelpWindow() const { return help_.data(); }
  std::optional<int> AskSignificantFigures(const std::string& number, int figures) override;
  bool ShowFactorForm(const std::string& box, const std::string& caption) override;
  void OpenSystemWindow(Session& s, SysEqState& state) override;
  bool AskUfoo(Session& s, UfooDialogState& dialog) override;
  // The graph window, modal; it writes its settings back when it closes.
  void OpenGraphWindow(Session& s) override;
  // Opens the modeless dialog of operations on both sides, or brings it forward.
  void OpenBothSidesDialog(Session& s);
  // The dialog of operations on both sides while it exists, and its field Q brought in line.
  BothSidesDialog* BothSides() const { return both_sides_.data(); }
  void RefreshBothSidesDialog();

 private:
  // The prime-factor dialog while it is open.
  std::unique_ptr<FactorForm> factor_form_;
  // Owned by the window it stands over (deleted with it), else by this front end.
  QPointer<BothSidesDialog> both_sides_;
  HelpBrowser* MakeHelpWindow();
  MainWindow* window_ = nullptr;
  Session* s_ = nullptr;
  QPointer<HelpBrowser> help_;
  QtFontMetrics metrics_;
  bool unattended_ = false;
  int unattended_value_questions_ = 0;
};

}  // namespace tavimor
