// The window's side of the front-end interface: the work space widget, the pacing button, the
// message box with its help button, the hint box, and the questions.
#include "qt/qt_frontend.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>
#include <iostream>

#include "linsys/sys_eq_form.h"
#include "platform/file_system.h"
#include "qt/graph_form.h"
#include "qt/main_window.h"
#include "qt/sys_eq_form.h"
#include "qt/tree_form.h"
#include "qt/ufoo_dialog.h"
#include "shell/commands/tree_view_command.h"
#include "shell/help_topics.h"

namespace tavimor {

namespace {

// How often an unattended run answers the values of the letters.
constexpr int kUnattendedValueQuestions = 10;

// What an unattended run would have shown in a modal form, on one line of standard error.
void Tell(const std::string& what, const std::string& text) {
  std::string line = text;
  for (char& c : line) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  std::cerr << what << ": " << line << "\n";
}

}  // namespace

PacingDialog::PacingDialog(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), button_(new QPushButton(this)) {
  setModal(true);
  button_->setText(QStringLiteral("Next step"));
  button_->setToolTip(
      QStringLiteral("Enter or click: the next step.  Right click or Esc: stop.  F1: help"));
  button_->setDefault(true);
  button_->installEventFilter(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(2, 2, 2, 2);
  layout->addWidget(button_);
  connect(button_, &QPushButton::clicked, this, [this] { Finish(PauseInput::Continue); });
}

void PacingDialog::Finish(PauseInput input) {
  input_ = input;
  accept();
}

void PacingDialog::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape: Finish(PauseInput::Escape); return;
    case Qt::Key_F1: Finish(PauseInput::Help); return;
    case Qt::Key_Return:
    case Qt::Key_Enter: Finish(PauseInput::Continue); return;
    default: QDialog::keyPressEvent(event);
  }
}

bool PacingDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == button_ && event->type() == QEvent::MouseButtonPress &&
      static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
    Finish(PauseInput::RightButton);
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

void QtFrontend::AppendToWorkSpace(const RichRun& run) {
  if (window_ != nullptr) window_->WorkSpace()->Append(run);
}

void QtFrontend::ClearWorkSpace() {
  if (window_ != nullptr) window_->WorkSpace()->Clear();
}

PauseInput QtFrontend::WaitButton(const std::string&, float x, float y) {
  if (unattended_) return PauseInput::Continue;
  PacingDialog dialog(window_);
  dialog.adjustSize();
  if (x > 0 || y > 0) dialog.move(static_cast<int>(x), static_cast<int>(y));
  QApplication::restoreOverrideCursor();
  dialog.exec();
  return dialog.Input();
}

CustomMsgBox::CustomMsgBox(QWidget* parent, const QString& text, int help_number, MessageIcon icon,
                           std::function<void(int)> show_help)
    : QMessageBox(icon == MessageIcon::Critical      ? QMessageBox::Critical
                  : icon == MessageIcon::Exclamation ? QMessageBox::Warning
                                                     : QMessageBox::Information,
                  QStringLiteral("The Tavimor"), text, QMessageBox::Ok, parent),
      help_(addButton(QStringLiteral("Help"), QMessageBox::HelpRole)),
      help_number_(help_number),
      show_help_(std::move(show_help)) {
  setObjectName(QStringLiteral("CustomMsgBox"));
  help_->setObjectName(QStringLiteral("cmdHelp"));
  button(QMessageBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
  help_->setEnabled(help_number_ != 0);
  // The box would close on any of its buttons: Help shows the topic instead, and the box stays.
  QObject::disconnect(help_, &QAbstractButton::clicked, nullptr, nullptr);
  QObject::connect(help_, &QAbstractButton::clicked, this, [this] { show_help_(help_number_); });
  setDefaultButton(QMessageBox::Ok);
  setEscapeButton(QMessageBox::Ok);
}

void CustomMsgBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    event->accept();
    if (help_number_ != 0) show_help_(help_number_);
    return;
  }
  QMessageBox::keyPressEvent(event);
}

void QtFrontend::ShowMessageBox(const std::string& text, int help_number, MessageIcon icon) {
  if (unattended_) {
    Tell("Message", text);
    return;
  }
  CustomMsgBox box(window_, QString::fromStdString(text), help_number, icon,
                   [this](int number) { ShowHelp(number); });
  box.exec();
}

void QtFrontend::ShowHintBox(const RichText& body, int help_number) {
  if (unattended_) {
    Tell("Hint", PlainText(body));
    return;
  }
  QDialog box(window_);
  box.setObjectName(QStringLiteral("HintMsgBox"));
  box.setWindowTitle(QStringLiteral("Hint"));
  auto* layout = new QVBoxLayout(&box);
  auto* text = new WorkSpaceView(&box);
  for (const RichRun& run : body) text->Append(run);
  text->setMinimumSize(420, 160);
  layout->addWidget(text);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Help, &box);
  layout->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::helpRequested, &box,
                   [this, help_number] { ShowHelp(help_number); });
  auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), &box);
  QObject::connect(f1, &QShortcut::activated, &box, [this, help_number] { ShowHelp(help_number); });
  box.exec();
}

bool QtFrontend::AskYesNo(const std::string& question) {
  if (unattended_) {
    Tell(question, "No");
    return false;
  }
  return QMessageBox::question(window_, QStringLiteral("The Tavimor"),
                               QString::fromStdString(question)) == QMessageBox::Yes;
}

YesNoCancel QtFrontend::AskYesNoCancel(const std::string& question) {
  if (unattended_) {
    Tell(question, "Yes");
    return YesNoCancel::Yes;
  }
  const QMessageBox::StandardButton answer = QMessageBox::question(
      window_, QStringLiteral("The Tavimor"), QString::fromStdString(question),
      QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  if (answer == QMessageBox::Yes) return YesNoCancel::Yes;
  if (answer == QMessageBox::No) return YesNoCancel::No;
  return YesNoCancel::Cancel;
}

std::optional<std::string> QtFrontend::AskText(const std::string& question,
                                               const std::string& suggestion) {
  if (unattended_) {
    Tell(question, suggestion);
    return suggestion;
  }
  bool ok = false;
  const QString answer = QInputDialog::getText(window_, QStringLiteral("The Tavimor"),
                                               QString::fromStdString(question), QLineEdit::Normal,
                                               QString::fromStdString(suggestion), &ok);
  if (!ok) return std::nullopt;
  return answer.toStdString();
}

std::optional<std::vector<std::string>> QtFrontend::AskValues(
    const std::vector<std::string>& letters, const std::vector<std::string>& suggestions) {
  if (unattended_) {
    // The suggested values when every letter has one; otherwise, or when the question keeps
    // coming back, it is cancelled.
    std::string asked;
    bool complete = suggestions.size() >= letters.size();
    for (std::size_t k = 0; k < letters.size(); ++k) {
      const std::string value = k < suggestions.size() ? suggestions[k] : "";
      complete = complete && !value.empty();
      asked += (k > 0 ? ", " : "") + letters[k] + " = " + value;
    }
    ++unattended_value_questions_;
    if (!complete || unattended_value_questions_ > kUnattendedValueQuestions) {
      Tell("Values of the letters", asked + " (no values given: cancelled)");
      return std::nullopt;
    }
    Tell("Values of the letters", asked);
    return suggestions;
  }
  QDialog dialog(window_);
  dialog.setObjectName(QStringLiteral("VarsInputForm"));
  dialog.setWindowTitle(QStringLiteral("Values of the letters"));
  auto* layout = new QVBoxLayout(&dialog);
  auto* form = new QFormLayout;
  std::vector<QLineEdit*> edits;
  for (std::size_t k = 0; k < letters.size(); ++k) {
    auto* edit = new QLineEdit(&dialog);
    edit->setObjectName(QString::fromStdString("value_" + letters[k]));
    if (k < suggestions.size()) edit->setText(QString::fromStdString(suggestions[k]));
    form->addRow(QString::fromStdString(letters[k] + " ="), edit);
    edits.push_back(edit);
  }
  layout->addLayout(form);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  layout->addWidget(buttons);
  if (!edits.empty()) edits.front()->setFocus();
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  std::vector<std::string> values;
  for (const QLineEdit* edit : edits) values.push_back(edit->text().toStdString());
  return values;
}

void QtFrontend::ShowHelp(int help_number) {
  if (unattended_) {
    Tell("Help", "topic " + std::to_string(help_number));
    return;
  }
  if (s_ != nullptr) tavimor::ShowHelp(*s_, help_number);
}

HelpBrowser* QtFrontend::MakeHelpWindow() {
  if (s_ == nullptr) return nullptr;
  if (help_ == nullptr) {
    help_ = new HelpBrowser(*s_, AlgebraHelpFolder(s_->Help), window_);
    help_->setAttribute(Qt::WA_DeleteOnClose);
  }
  // Over a modal form the browser is modal too, or it could not be read; else it stays beside
  // the main window.
  const QWidget* modal = QApplication::activeModalWidget();
  const Qt::WindowModality wanted =
      modal != nullptr && modal != help_ ? Qt::ApplicationModal : Qt::NonModal;
  if (help_->windowModality() != wanted) {
    help_->hide();
    help_->setWindowModality(wanted);
  }
  return help_;
}

void QtFrontend::OpenHelpPage(const std::string& path) {
  if (unattended_) {
    Tell("Help", path);
    return;
  }
  HelpBrowser* browser = MakeHelpWindow();
  if (browser == nullptr) return;
  browser->OpenPage(path);
  browser->show();
  browser->raise();
  browser->activateWindow();
}

void QtFrontend::OpenProgramHelp() {
  if (s_ == nullptr) return;
  const std::string path = ProgramHelpPath(s_->Help);
  if (path.empty() || !FactsOf(path).regular) return;
  OpenHelpPage(path);
}

void QtFrontend::OpenAlgebraHelp() {
  if (unattended_) return;
  HelpBrowser* browser = MakeHelpWindow();
  if (browser == nullptr) return;
  browser->ShowIndex();
  browser->show();
  browser->raise();
  browser->activateWindow();
}

void QtFrontend::ShowTreeView(const std::vector<TreeViewEntry>& entries) {
  if (unattended_) {
    std::string lines;
    for (const TreeViewEntry& entry : entries) {
      lines += std::string(static_cast<std::size_t>(2 * entry.depth), ' ') + entry.label + "; ";
    }
    Tell("Tree", lines);
    return;
  }
  const int help_number = s_ != nullptr ? s_->HelpNumber : kTreeViewHelp;
  TreeForm form(window_, entries, [this, help_number] { ShowHelp(help_number); });
  form.exec();
}

std::optional<int> QtFrontend::AskSignificantFigures(const std::string& number, int figures) {
  if (unattended_) {
    Tell("Significant figures of " + number, std::to_string(figures));
    return figures;
  }
  SigFigsForm form(window_, number, figures);
  if (form.exec() != QDialog::Accepted) return std::nullopt;
  return form.Figures();
}

bool QtFrontend::ShowFactorForm(const std::string& box, const std::string& caption) {
  if (unattended_) {
    Tell("Prime factors", box);
    return true;
  }
  if (factor_form_ == nullptr) factor_form_ = std::make_unique<FactorForm>(window_);
  factor_form_->Show(box, caption);
  const bool pressed = factor_form_->exec() == QDialog::Accepted;
  // The button pressed as "Close", or the dialog closed: it is gone.
  if (!pressed || caption == "Close") factor_form_.reset();
  return pressed;
}

// The elimination window, modal over the main window. With nobody at the screen it stays shut:
// the grid is told on standard error and the system is left for the student.
void QtFrontend::OpenSystemWindow(Session& s, SysEqState& state) {
  if (unattended_) {
    for (const std::string& line : GridTextLines(s, state)) Tell("system window", line);
    return;
  }
  SysEqForm form(window_, s, state);
  form.exec();
}

// The dialog of the Useful form of one, modal. With nobody at the screen it is cancelled.
bool QtFrontend::AskUfoo(Session& s, UfooDialogState& dialog) {
  if (unattended_) {
    Tell("ufoo dialog", kUfooCaption);
    return false;
  }
  UfooDialog form(window_, s, dialog);
  return form.exec() == QDialog::Accepted;
}

void QtFrontend::OpenGraphWindow(Session& s) {
  if (unattended_) {
    for (const EquationRow& row : s.EquationList) {
      Tell("graph window", row[0] + "=" + row[1] + " (kind " + row[3] + ")");
    }
    return;
  }
  GraphForm form(window_, s);
  form.exec();
}

void QtFrontend::OpenBothSidesDialog(Session& s) {
  if (both_sides_ == nullptr) {
    both_sides_ = new BothSidesDialog(window_, s, [this] {
      if (window_ != nullptr) window_->SyncFromState();
    });
  }
  both_sides_->Refresh();
  both_sides_->show();
  both_sides_->raise();
}

void QtFrontend::RefreshBothSidesDialog() {
  if (both_sides_ != nullptr) both_sides_->Refresh();
}

}  // namespace tavimor
