// The main form: the equation box with OK and Next, the five button panels, the work space, the
// status bar with its nine panels; all of it a view of the session's screen-free form.
#include "qt/main_window.h"

#include <QApplication>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QVBoxLayout>

#include "qt/display_painter.h"
#include "shell/buttons.h"
#include "shell/main_flow.h"

namespace tavimor {

namespace {

// The captions of the buttons on the panels.
const std::map<std::string, QString> kCaptions = {
    {"cmdSigFigs", "Significant figures"},
    {"cmdFactor", "Prime factors"},
    {"cmdSimplify", "Simplify"},
    {"cmdExpand", "Expand"},
    {"cmdAutoFactor", "Factor"},
    {"cmd1Frac", "Add fractions"},
    {"cmdCombineLogs", "Combine logs"},
    {"cmdCSExpr", "Complete the square"},
    {"cmdExpandTrig", "Break apart trig"},
    {"cmdCombineTrig", "Combine trig"},
    {"cmdUFOO", "Useful form of one"},
    {"cmdBrackets", " Unneeded     brackets"},
    {"cmdEvaluate", "Evaluate"},
    {"cmdTree", "Tree"},
    {"cmdShowEqnFrame", "Equation"},
    {"cmdAutoSolve", "Auto solve"},
    {"cmdDoToEqn", "Do to both sides"},
    {"cmdDoLHS", "Left side"},
    {"cmdDoRHS", "Right side"},
    {"cmdSolvingHint", "Solving hint"},
    {"cmdGraph", "Graph"},
    {"cmdSimplifyFraction", "Simplify fraction"},
    {"cmdAddFractions", "Add fractions"},
    {"MultiAutoSolve", "Auto solve all"},
    {"cmdSolveByElim", "By elimination"},
    {"cmdSolveBySubs", "By substitution"},
    {"cmdSubstitute", "Substitute"},
};

QString Tooltip(const std::string& button) {
  QString tip = QString::fromStdString(ButtonTooltip(button));
  if (!ButtonIsBuilt(button)) {
    tip += (tip.isEmpty() ? "" : " ") + QStringLiteral("(not yet part of the tutor)");
  }
  return tip;
}

}  // namespace

void CommandButton::mousePressEvent(QMouseEvent* event) {
  if (!isEnabled()) return;
  if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton) {
    setDown(true);
    emit Pressed(event->button() == Qt::RightButton);
    setDown(false);
    event->accept();
    return;
  }
  QPushButton::mousePressEvent(event);
}

void CommandButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
      event->key() == Qt::Key_Space) {
    emit Pressed(false);
    return;
  }
  QPushButton::keyPressEvent(event);
}

void StatusPanel::mousePressEvent(QMouseEvent* event) {
  emit Clicked();
  event->accept();
}

MainWindow::MainWindow(Session& s) : s_(s) {
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  layout->setContentsMargins(10, 8, 10, 4);
  layout->setSpacing(8);

  // The equation box with OK and Next.
  auto* top = new QHBoxLayout;
  auto* prompt = new QLabel(QStringLiteral("Problem:"), central);
  equation_box_ = new QComboBox(central);
  equation_box_->setEditable(true);
  equation_box_->setInsertPolicy(QComboBox::NoInsert);
  equation_box_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  equation_box_->setFont(WorkSpaceFont(13.0f));
  equation_box_->lineEdit()->setPlaceholderText(
      QStringLiteral("Type an equation, an expression, a number or a fraction, e.g. 2x+3=7"));
  ok_ = new CommandButton(QStringLiteral("OK"), central);
  ok_->setToolTip(QString::fromStdString(ButtonTooltip("cmdLoadEquation")));
  next_ = new CommandButton(QStringLiteral("Next"), central);
  next_->setToolTip(ok_->toolTip());
  top->addWidget(prompt);
  top->addWidget(equation_box_, 1);
  top->addWidget(ok_);
  top->addWidget(next_);
  layout->addLayout(top);
  connect(ok_, &CommandButton::Pressed, this, &MainWindow::LoadTyped);
  connect(next_, &CommandButton::Pressed, this, &MainWindow::LoadNext);
  connect(equation_box_->lineEdit(), &QLineEdit::returnPressed, this, [this] { LoadTyped(false); });
  connect(equation_box_, QOverload<int>::of(&QComboBox::activated), this,
          [this](int index) { s_.Form.equation_box_selected = index; });

  // The panels beside the work space.
  auto* middle = new QHBoxLayout;
  middle->setSpacing(10);
  middle->addWidget(BuildPanels());
  work_space_ = new WorkSpaceView(central);
  work_space_->SetFontSize(s_.FontSize);
  middle->addWidget(work_space_, 1);
  layout->addLayout(middle, 1);
  setCentralWidget(central);

  // The status bar: nine panels, each a click away from its option.
  for (int i = 1; i <= 9; ++i) {
    auto* panel = new StatusPanel(this);
    panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    panel->setCursor(Qt::PointingHandCursor);
    panel->setToolTip(QStringLiteral("Click to change"));
    connect(panel, &StatusPanel::Clicked, this, [this, i] { ClickStatus(i); });
    statusBar()->addWidget(panel);
    status_.push_back(panel);
  }
  BuildMenus();
  setMinimumSize(760, 480);
  resize(1100, 760);
  SyncFromState();
}

QWidget* MainWindow::BuildPanels() {
  auto* column = new QWidget(this);
  column->setFixedWidth(190);
  auto* layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  panels_ = new QStackedWidget(column);
  auto* welcome = new QLabel(
      QStringLiteral("Type a problem in the box above and press OK.\n\nThe buttons for it will "
                     "appear here."),
      panels_);
  welcome->setWordWrap(true);
  welcome->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  panels_->addWidget(welcome);
  for (int panel = 0; panel <= 4; ++panel) {
    auto* box = new QGroupBox(panels_);
    auto* buttons = new QVBoxLayout(box);
    auto* title = new QLabel(box);
    QFont bold = title->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.15);
    title->setFont(bold);
    buttons->addWidget(title);
    panel_titles_[panel] = title;
    for (const std::string& name : PanelButtons(panel)) {
      auto* button = new CommandButton(kCaptions.at(name), box);
      button->setToolTip(Tooltip(name));
      button->setObjectName(QString::fromStdString(name + "_" + std::to_string(panel)));
      buttons->addWidget(button);
      connect(button, &CommandButton::Pressed, this,
              [this, name](bool right_button) { Press(name, right_button); });
      if (buttons_.count(name) == 0 || panel == s_.Form.visible_panel) buttons_[name] = button;
      buttons_[name + "#" + std::to_string(panel)] = button;
    }
    buttons->addStretch(1);
    panels_->addWidget(box);
  }
  layout->addWidget(panels_, 1);
  diagnostics_ = new QLabel(column);
  diagnostics_->setStyleSheet(QStringLiteral("color: gray"));
  layout->addWidget(diagnostics_);
  return column;
}

void MainWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  file->addAction(QStringLiteral("&Print workspace"), QKeySequence::Print, this,
                  &MainWindow::PrintWorkSpace);
  file->addAction(QStringLiteral("Export workspace as P&DF..."), this,
                  [this] { ExportWorkSpace(QStringLiteral("pdf")); });
  file->addAction(QStringLiteral("Export workspace as &HTML..."), this,
                  [this] { ExportWorkSpace(QStringLiteral("html")); });
  file->addSeparator();
  file->addAction(QStringLiteral("E&xit"), QKeySequence::Quit, this, &QWidget::close);
  QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
  help->addAction(QStringLiteral("Help on the last &step"), QKeySequence(Qt::Key_F1), this,
                  [this] { s_.Screen().ShowHelp(s_.HelpNumber); });
  help->addAction(QStringLiteral("&About The Tavimor"), this, [this] {
    QMessageBox::about(this, QStringLiteral("The Tavimor"),
                       QStringLiteral("<b>The Tavimor</b><br>A step-by-step algebra tutor.<br>"
                                      "Every step names its rule."));
  });
}

CommandButton* MainWindow::Button(const std::string& name) const {
  const int panel = s_.Form.visible_panel;
  if (auto it = buttons_.find(name + "#" + std::to_string(panel)); it != buttons_.end()) {
    return it->second;
  }
  const auto it = buttons_.find(name);
  return it == buttons_.end() ? nullptr : it->second;
}

StatusPanel* MainWindow::Status(int panel) const {
  return panel >= 1 && panel <= 9 ? status_[static_cast<std::size_t>(panel - 1)] : nullptr;
}

QString MainWindow::VisiblePanelCaption() const {
  if (s_.Form.visible_panel < 0) return {};
  return QString::fromStdString(PanelCaption(s_, s_.Form.visible_panel));
}

void MainWindow::LoadTyped(bool right_button) {
  const std::string text = equation_box_->currentText().toStdString();
  s_.Form.equation_box_text = text;
  cmdLoadEquation(s_, text, right_button);
  SyncFromState();
}

void MainWindow::LoadNext(bool right_button) {
  cmdNextEquation(s_, right_button);
  SyncFromState();
}

void MainWindow::Press(const std::string& button, bool right_button) {
  // The pacing button stands over the right end of the pressed button.
  if (CommandButton* pressed = Button(button); pressed != nullptr) {
    const QPoint corner = pressed->mapToGlobal(QPoint(pressed->width(), 0));
    s_.WaitX = static_cast<float>(corner.x() - 90);
    s_.WaitY = static_cast<float>(corner.y());
  }
  QApplication::setOverrideCursor(Qt::WaitCursor);
  std::string error;
  PressButton(s_, button, right_button, error);
  QApplication::restoreOverrideCursor();
  SyncFromState();
}

void MainWindow::ClickStatus(int panel) {
  ClickStatusPanel(s_, panel);
  SyncFromState();
}

void MainWindow::SyncFromState() {
  const FormState& form = s_.Form;
  setWindowTitle(QString::fromStdString(form.caption));
  panels_->setCurrentIndex(form.visible_panel < 0 ? 0 : form.visible_panel + 1);
  for (const auto& [panel, title] : panel_titles_) {
    title->setText(QString::fromStdString(PanelCaption(s_, panel)));
  }
  for (const auto& [key, button] : buttons_) {
    const std::string name = key.substr(0, key.find('#'));
    button->setEnabled(form.Enabled(name) && ButtonIsBuilt(name));
    button->setVisible(form.Visible(name));
  }
  next_->setVisible(form.Visible("cmdNextEquation"));
  for (int i = 0; i < 9; ++i) {
    status_[static_cast<std::size_t>(i)]->setText(
        QString::fromStdString(form.status_panels[static_cast<std::size_t>(i)]));
  }
  diagnostics_->setText(QString::fromStdString(form.diagnostics));
  const QString typed = equation_box_->currentText();
  if (equation_box_->count() != static_cast<int>(form.equation_box_items.size())) {
    equation_box_->clear();
    for (const std::string& item : form.equation_box_items) {
      equation_box_->addItem(QString::fromStdString(item));
    }
    equation_box_->setCurrentIndex(form.equation_box_selected);
    equation_box_->setEditText(QString::fromStdString(
        form.equation_box_text.empty() ? typed.toStdString() : form.equation_box_text));
  }
  if (CommandButton* focus = Button(form.focus); focus != nullptr && focus->isEnabled()) {
    focus->setFocus();
  }
}

void MainWindow::PrintWorkSpace() {
  QPrinter printer;
  QPrintDialog dialog(&printer, this);
  dialog.setWindowTitle(QStringLiteral("Print workspace"));
  if (work_space_->textCursor().hasSelection()) {
    dialog.setOption(QAbstractPrintDialog::PrintSelection);
  }
  if (dialog.exec() != QDialog::Accepted) return;
  work_space_->PrintableCopy()->print(&printer);
}

void MainWindow::ExportWorkSpace(const QString& kind) {
  const QString filter = kind == QLatin1String("pdf") ? QStringLiteral("PDF files (*.pdf)")
                                                      : QStringLiteral("Web pages (*.html)");
  QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Export workspace"),
                                              QStringLiteral("workspace.") + kind, filter);
  if (path.isEmpty()) return;
  const bool done =
      kind == QLatin1String("pdf") ? work_space_->ExportPdf(path) : work_space_->ExportHtml(path);
  if (!done) {
    QMessageBox::warning(this, QStringLiteral("Export workspace"),
                         QStringLiteral("The file %1 could not be written.").arg(path));
  }
}

}  // namespace tavimor
