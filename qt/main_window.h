// The main form: the equation box with OK and Next, the five button panels, the work space, the
// status bar with its nine panels; all of it a view of the session's screen-free form.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QStackedWidget>
#include <map>

#include "core/session.h"
#include "qt/work_space_view.h"

namespace tavimor {

// A button whose command runs on mouse down, so that the right button can be told apart.
class CommandButton : public QPushButton {
  Q_OBJECT

 public:
  using QPushButton::QPushButton;

 signals:
  void Pressed(bool right_button);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

// A status bar panel that changes its option when clicked.
class StatusPanel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

 signals:
  void Clicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
};

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(Session& s);

  WorkSpaceView* WorkSpace() const { return work_space_; }
  QComboBox* EquationBox() const { return equation_box_; }
  CommandButton* OkButton() const { return ok_; }
  CommandButton* NextButton() const { return next_; }
  CommandButton* Button(const std::string& name) const;
  StatusPanel* Status(int panel) const;  // 1 to 9
  QLabel* Diagnostics() const { return diagnostics_; }
  // The caption of the visible button panel, empty before the first item.
  QString VisiblePanelCaption() const;

  // What the buttons do.
  void LoadTyped(bool right_button);
  void LoadNext(bool right_button);
  void Press(const std::string& button, bool right_button);
  void ClickStatus(int panel);
  // Brings every widget in line with the session's form.
  void SyncFromState();

  void PrintWorkSpace();
  void ExportWorkSpace(const QString& kind);

 private:
  QWidget* BuildPanels();
  void BuildMenus();

  Session& s_;
  QComboBox* equation_box_ = nullptr;
  CommandButton* ok_ = nullptr;
  CommandButton* next_ = nullptr;
  QStackedWidget* panels_ = nullptr;
  std::map<int, QLabel*> panel_titles_;
  std::map<std::string, CommandButton*> buttons_;
  WorkSpaceView* work_space_ = nullptr;
  QLabel* diagnostics_ = nullptr;
  std::vector<StatusPanel*> status_;
};

}  // namespace tavimor
