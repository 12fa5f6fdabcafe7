// The main form: the equation box with OK and Next, the five button panels, the work space, the
// status bar with its nine panels; all of it a view of the session's screen-free form.
#include "qt/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "qt/display_painter.h"
#include "qt/list_editor_form.h"
#include "qt/options_dialog.h"
#include "qt/qt_frontend.h"
#include "shell/algebra_file.h"
#include "shell/buttons.h"
#include "shell/file_commands.h"
#include "shell/help_topics.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"
#include "shell/version.h"

namespace tavimor {

namespace {

// The save dialog, opening on algebra files.
QString ChooseSaveAsPath(QWidget* parent) {
  QString algebra_files = QStringLiteral("Algebra Files (*.txt)");
  return QFileDialog::getSaveFileName(parent, QStringLiteral("Save As"), QString(),
                                      QStringLiteral("All Files (*.*);;Algebra Files (*.txt)"),
                                      &algebra_files);
}

QString Tooltip(const std::string& button) {
  QString tip = QString::fromStdString(ButtonTooltip(button));
  if (!ButtonIsBuilt(button)) {
    tip += (tip.isEmpty() ? "" : " ") + QStringLiteral("(not yet part of the tutor)");
  }
  return tip;
}

// What a click on each status panel changes.
const std::array<QString, 9> kStatusTips = {
    QStringLiteral("Click to change how steps are shown: the result only, one by one, or in a "
                   "stream"),
    QStringLiteral("Click to change the arithmetic: real only, or complex using i, using j, or "
                   "using neither"),
    QStringLiteral("Click to switch between floating point and exact arithmetic"),
    QStringLiteral("Click to switch angles between degrees and radians"),
    QStringLiteral("Click to change how quadratic equations are solved: by factoring, by the "
                   "formula, by completing the square, or by graphing"),
    QStringLiteral("Click to choose the letter of the unknown"),
    QStringLiteral("Click to make e the number 2.718.. or an ordinary variable"),
    QStringLiteral("Click to make p the number pi or an ordinary variable"),
    QStringLiteral("Click to make d the degree (pi/180) or an ordinary variable; d is a variable "
                   "in radians"),
};

// The least size of the form, in pixels.
constexpr int kLeastFormWidth = 760;
constexpr int kLeastFormHeight = 480;

}  // namespace

QSize FormSizeOnScreen(float width_twips, float height_twips, const QSize& available) {
  const auto pixels = [](float twips, int least, int most) {
    const float wanted = std::isfinite(twips) ? twips / 15.0f : 0.0f;
    const int upper = std::max(1, most);
    return std::clamp(static_cast<int>(std::clamp(wanted, 0.0f, static_cast<float>(upper))),
                      std::min(least, upper), upper);
  };
  return {pixels(width_twips, kLeastFormWidth, available.width()),
          pixels(height_twips, kLeastFormHeight, available.height())};
}

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

MainWindow::MainWindow(Session& s, SettingsStore* store, std::string program_directory)
    : s_(s), store_(store), program_directory_(std::move(program_directory)) {
  // The help locations beside the program, and the session the window's help looks them up in.
  LoadHelpTopics(s_, program_directory_);
  if (auto* screen = dynamic_cast<QtFrontend*>(&s_.Screen())) screen->AttachSession(s_);
  if (store_ != nullptr) {
    LoadSettings(s_, *store_, program_directory_, recent_);
    UpdateStatusPanel(s_);
    OptionSnapshot(s_, "Set");
  }
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  layout->setContentsMargins(10, 8, 10, 4);
  layout->setSpacing(8);

  // The heading of the chosen topic and subtopic, then the equation box with OK and Next.
  heading_ = new QLabel(central);
  heading_->setVisible(false);
  layout->addWidget(heading_);
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
  show_topics_ = new QPushButton(QStringLiteral("Topics"), central);
  show_topics_->setToolTip(QStringLiteral("Back to the topics of the algebra file"));
  top->addWidget(show_topics_);
  connect(show_topics_, &QPushButton::clicked, this, &MainWindow::ShowTopics);
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
  center_ = new QStackedWidget(central);
  work_space_ = new WorkSpaceView(center_);
  work_space_->SetFontSize(s_.FontSize);
  topics_ = new TopicsPanel(s_, center_);
  center_->addWidget(work_space_);
  center_->addWidget(topics_);
  middle->addWidget(center_, 1);
  connect(topics_, &TopicsPanel::EquationsChosen, this, [this](int start) {
    LoadEqns(s_, start);
    // SetupEqnHeading: the captions of the chosen topic and subtopic.
    QString heading;
    const auto caption = [](QListWidget* list, int number) {
      return number > 0 && number <= list->count() ? list->item(number - 1)->text() : QString();
    };
    heading = caption(topics_->Topics(), s_.CurrentTopic);
    const QString sub = caption(topics_->SubTopics(), s_.CurrentSubTopic);
    if (!sub.isEmpty()) heading += QStringLiteral("  \u2013  ") + sub;
    heading_->setText(QStringLiteral("<b>%1</b>").arg(heading.toHtmlEscaped()));
    heading_->setVisible(!heading.isEmpty());
    center_->setCurrentWidget(work_space_);
    equation_box_->clear();
    SyncFromState();
    equation_box_->setFocus();
  });
  layout->addLayout(middle, 1);
  setCentralWidget(central);

  // The status bar: nine panels, each a click away from its option, in rows as the width needs.
  status_box_ = new QWidget(this);
  new QVBoxLayout(status_box_);
  status_box_->layout()->setContentsMargins(0, 0, 0, 0);
  status_box_->layout()->setSpacing(2);
  for (int i = 1; i <= 9; ++i) {
    auto* panel = new StatusPanel(status_box_);
    panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    panel->setCursor(Qt::PointingHandCursor);
    panel->setToolTip(kStatusTips[static_cast<std::size_t>(i - 1)]);
    connect(panel, &StatusPanel::Clicked, this, [this, i] { ClickStatus(i); });
    status_.push_back(panel);
  }
  statusBar()->addWidget(status_box_, 1);
  BuildMenus();
  // The form's size is kept in twips; whatever the settings hold, the form fits the screen.
  const QRect available = screen()->availableGeometry();
  setMinimumSize(std::min(kLeastFormWidth, available.width()),
                 std::min(kLeastFormHeight, available.height()));
  const QSize size = FormSizeOnScreen(s_.FormWidth, s_.FormHeight, available.size());
  resize(size);
  s_.FormWidth = static_cast<float>(size.width() * 15);
  s_.FormHeight = static_cast<float>(size.height() * 15);
  // Its corner where the whole form is on the screen.
  const int x = std::clamp(pos().x(), available.left(),
                           std::max(available.left(), available.right() + 1 - size.width()));
  const int y = std::clamp(pos().y(), available.top(),
                           std::max(available.top(), available.bottom() + 1 - size.height()));
  move(x, y);
  if (s_.FormWindowState == 2) setWindowState(Qt::WindowMaximized);
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
      auto* button = new CommandButton(QString::fromStdString(ButtonCaption(name)), box);
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
  file->addAction(QStringLiteral("&New"), QKeySequence::New, this, [this] { FileNew(); });
  file->addAction(QStringLiteral("&Open..."), QKeySequence::Open, this, [this] {
    if (!AskSaveChanges()) return;
    QString algebra_files = QStringLiteral("Algebra Files (*.txt)");  // the dialog opens on these
    const QString path = QFileDialog::getOpenFileName(
        this, QStringLiteral("Open"), QString(),
        QStringLiteral("All Files (*.*);;Algebra Files (*.txt)"), &algebra_files);
    if (!path.isEmpty()) OpenFile(path);
  });
  save_ =
      file->addAction(QStringLiteral("&Save"), QKeySequence::Save, this, [this] { FileSave(); });
  file->addAction(QStringLiteral("Save &As..."), this, [this] {
    const QString path = ChooseSaveAsPath(this);
    if (path.isEmpty()) {
      QMessageBox::information(this, QStringLiteral("Tavimor"), QStringLiteral("File not saved."));
      return;
    }
    FileSaveAs(path);
  });
  connect(file, &QMenu::aboutToShow, this, [this] { save_->setEnabled(!s_.FileName.empty()); });
  file->addAction(QStringLiteral("List &Editor"), this, &MainWindow::EditList);
  recent_separator_ = file->addSeparator();
  for (int i = 0; i < 4; ++i) {
    recent_actions_[static_cast<std::size_t>(i)] =
        file->addAction(QString(), this, [this, i] { OpenRecent(i + 1); });
  }
  file->addSeparator();
  file->addAction(QStringLiteral("&Print workspace"), QKeySequence::Print, this,
                  &MainWindow::PrintWorkSpace);
  file->addAction(QStringLiteral("Export workspace as P&DF..."), this,
                  [this] { ExportWorkSpace(QStringLiteral("pdf")); });
  file->addAction(QStringLiteral("Export workspace as &HTML..."), this,
                  [this] { ExportWorkSpace(QStringLiteral("html")); });
  file->addSeparator();
  file->addAction(QStringLiteral("E&xit"), QKeySequence::Quit, this, &QWidget::close);
  menuBar()->addAction(QStringLiteral("Algebra &Options"), this, &MainWindow::ShowOptions);
  UpdateRecentMenu();
  QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
  help->addAction(QStringLiteral("Help with using this &program"), this, [this] {
    if (auto* screen = dynamic_cast<QtFrontend*>(&s_.Screen())) screen->OpenProgramHelp();
  });
  help->addAction(QStringLiteral("Help with algebra"), this, [this] {
    if (auto* screen = dynamic_cast<QtFrontend*>(&s_.Screen())) screen->OpenAlgebraHelp();
  });
  // F1: the help topic of the step written last.
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
  // The box shows the problem Next has loaded, not the one before it.
  const FormState& form = s_.Form;
  if (form.equation_box_selected >= 0 && form.equation_box_selected < equation_box_->count()) {
    equation_box_->setCurrentIndex(form.equation_box_selected);
  }
  equation_box_->setEditText(QString::fromStdString(form.equation_box_text));
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
  // The dialog of operations on both sides is the window's own: it stays open beside it.
  if (button == "cmdDoToEqn" && error.empty()) {
    if (auto* frontend = dynamic_cast<QtFrontend*>(&s_.Screen()); frontend != nullptr) {
      frontend->OpenBothSidesDialog(s_);
    }
  }
  SyncFromState();
}

void MainWindow::ClickStatus(int panel) {
  ClickStatusPanel(s_, panel);
  SyncFromState();
}

void MainWindow::SyncFromState() {
  const FormState& form = s_.Form;
  if (auto* frontend = dynamic_cast<QtFrontend*>(&s_.Screen()); frontend != nullptr) {
    frontend->RefreshBothSidesDialog();
  }
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
  show_topics_->setVisible(topics_->TopicCount() > 0);
  for (int i = 0; i < 9; ++i) {
    status_[static_cast<std::size_t>(i)]->setText(
        QString::fromStdString(form.status_panels[static_cast<std::size_t>(i)]));
  }
  ArrangeStatusPanels();
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

void MainWindow::ArrangeStatusPanels() {
  // Fill each row with the panels that fit in the width of the status bar.
  const int room = std::max(1, width() - 30);  // less the margins and the size grip
  const int spacing = 4;
  std::vector<int> rows;
  int row = 0;
  int used = 0;
  for (StatusPanel* panel : status_) {
    const int width = panel->sizeHint().width();
    if (used > 0 && used + spacing + width > room) {
      ++row;
      used = 0;
    }
    used += (used > 0 ? spacing : 0) + width;
    rows.push_back(row);
  }
  if (rows == status_rows_) return;
  status_rows_ = rows;
  auto* column = static_cast<QVBoxLayout*>(status_box_->layout());
  while (QLayoutItem* item = column->takeAt(0)) delete item;  // the old rows, not the panels
  QHBoxLayout* line = nullptr;
  for (std::size_t i = 0; i < status_.size(); ++i) {
    if (line == nullptr || (i > 0 && rows[i] != rows[i - 1])) {
      if (line != nullptr) line->addStretch(1);
      line = new QHBoxLayout;
      line->setSpacing(spacing);
      column->addLayout(line);
    }
    line->addWidget(status_[i]);
  }
  if (line != nullptr) line->addStretch(1);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  ArrangeStatusPanels();
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

namespace tavimor {

bool MainWindow::AskSaveChanges() {
  if (!HasUnsavedChanges(s_)) return true;
  const auto answer = QMessageBox::information(
      this, QStringLiteral("Tavimor"), QString::fromStdString(AskSaveChangesText(s_)),
      QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  if (answer == QMessageBox::Cancel) return false;
  if (answer == QMessageBox::Yes) {
    if (!s_.FileName.empty()) return FileSave();
    const QString path = ChooseSaveAsPath(this);
    return !path.isEmpty() && FileSaveAs(path);
  }
  return true;
}

void MainWindow::SetFileCaption() {
  const std::string name = s_.FileName.empty() ? "[Untitled]" : s_.FileName;
  s_.Form.caption = std::string(" Tavimor ") + kProgramVersion + " - " + name;
  setWindowTitle(QString::fromStdString(s_.Form.caption));
}

void MainWindow::EditList() {
  ListEditorForm editor(this, s_);
  editor.exec();
  // A changed list is shown again; the caption and Save follow the changed flag.
  if (s_.TopicsStaleFlag) AfterFileLoaded();
}

void MainWindow::AfterFileLoaded() {
  topics_->Reload();
  if (topics_->TopicCount() > 0) {
    center_->setCurrentWidget(topics_);
  } else {
    center_->setCurrentWidget(work_space_);
    equation_box_->clear();
  }
  SetFileCaption();
  SyncFromState();
}

bool MainWindow::FileNew() {
  if (!AskSaveChanges()) return false;
  std::string problem;
  OpenAlgebraFile(s_, "", problem);
  AfterFileLoaded();
  return true;
}

bool MainWindow::OpenFile(const QString& path) {
  std::string problem;
  if (!OpenAlgebraFile(s_, path.toStdString(), problem)) {
    QMessageBox::warning(this, QStringLiteral("Tavimor"), QString::fromStdString(problem));
    AfterFileLoaded();
    return false;
  }
  AddRecentFile(recent_, s_.FileName);
  UpdateRecentMenu();
  AfterFileLoaded();
  return true;
}

bool MainWindow::FileSave() {
  std::string reason;
  if (s_.FileName.empty() || !SaveAlgebraFile(s_, s_.FileName, reason)) {
    QMessageBox::information(this, QStringLiteral("Tavimor"),
                             QString::fromStdString(FileNotSavedText(reason)));
    return false;
  }
  return true;
}

bool MainWindow::FileSaveAs(const QString& path) {
  std::string reason;
  if (!SaveAlgebraFile(s_, path.toStdString(), reason)) {
    QMessageBox::information(this, QStringLiteral("Tavimor"),
                             QString::fromStdString(FileNotSavedText(reason)));
    return false;
  }
  SetFileCaption();
  AddRecentFile(recent_, s_.FileName);
  UpdateRecentMenu();
  return true;
}

bool MainWindow::OpenRecent(int index) {
  if (!AskSaveChanges()) return false;
  const std::string& name = recent_[static_cast<std::size_t>(index - 1)];
  if (!QFile::exists(QString::fromStdString(name))) {
    QMessageBox::warning(this, QStringLiteral("Tavimor"), QStringLiteral("File no longer exists."));
    return false;
  }
  return OpenFile(QString::fromStdString(name));
}

void MainWindow::UpdateRecentMenu() {
  for (int i = 0; i < 4; ++i) {
    QAction* action = recent_actions_[static_cast<std::size_t>(i)];
    if (action == nullptr) return;
    const std::string& name = recent_[static_cast<std::size_t>(i)];
    action->setText(QStringLiteral("&%1 %2").arg(i + 1).arg(QString::fromStdString(name)));
    action->setVisible(!name.empty());
  }
  if (recent_separator_ != nullptr) recent_separator_->setVisible(!recent_[0].empty());
  if (store_ != nullptr) SaveSettings(s_, *store_, recent_);
}

void MainWindow::ShowOptions() {
  OptionsDialog dialog(s_, this);
  if (dialog.exec() == QDialog::Accepted) {
    work_space_->SetFontSize(s_.FontSize);
    SyncFromState();
  }
}

bool MainWindow::TopicsShown() const { return center_->currentWidget() == topics_; }

void MainWindow::ShowTopics() {
  if (topics_->TopicCount() > 0) center_->setCurrentWidget(topics_);
}

void MainWindow::ShowWelcomeIfWanted() {
  if (!s_.ShowWelcomeScreen) return;
  QDialog welcome(this);
  welcome.setWindowTitle(QStringLiteral("The Tavimor"));
  auto* layout = new QVBoxLayout(&welcome);
  auto* picture = new QLabel(&welcome);
  const QPixmap image(QString::fromStdString(program_directory_ + "/splashscreen.jpg"));
  if (!image.isNull()) picture->setPixmap(image.scaledToWidth(560, Qt::SmoothTransformation));
  auto* words = new QLabel(QStringLiteral("welcome to<br><b><big>The Tavimor</big></b>"), &welcome);
  words->setAlignment(Qt::AlignCenter);
  auto* button =
      new QPushButton(QStringLiteral("Got it.  Don't show this screen again."), &welcome);
  layout->addWidget(words);
  layout->addWidget(picture);
  layout->addWidget(button);
  connect(button, &QPushButton::clicked, &welcome, [this, &welcome] {
    s_.ShowWelcomeScreen = false;
    welcome.accept();
  });
  welcome.exec();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!AskSaveChanges()) {
    event->ignore();
    return;
  }
  // Twips of the form's size, and its state: 0 normal, 1 minimised, 2 maximised.
  s_.FormWindowState = static_cast<std::int16_t>(isMinimized() ? 1 : (isMaximized() ? 2 : 0));
  s_.FormWidth = static_cast<float>(width() * 15);
  s_.FormHeight = static_cast<float>(height() * 15);
  if (store_ != nullptr) SaveSettings(s_, *store_, recent_);
  work_space_->Clear();
  event->accept();
}

}  // namespace tavimor
