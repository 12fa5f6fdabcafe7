// The main form: the equation box with OK and Next, the five button panels, the work space, the
// status bar with its nine panels; all of it a view of the session's screen-free form.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QStackedWidget>
#include <map>

#include <array>

#include "core/session.h"
#include "qt/topics_panel.h"
#include "qt/work_space_view.h"
#include "shell/settings.h"

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

// The form's size in pixels from its size in twips (fifteen to a pixel), never below the least
// size of the form nor beyond the available screen.
QSize FormSizeOnScreen(float width_twips, float height_twips, const QSize& available);

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  // `store` keeps the options and recent files; `program_directory` holds the sample files.
  MainWindow(Session& s, SettingsStore* store = nullptr, std::string program_directory = ".");

  WorkSpaceView* WorkSpace() const { return work_space_; }
  QComboBox* EquationBox() const { return equation_box_; }
  CommandButton* OkButton() const { return ok_; }
  CommandButton* NextButton() const { return next_; }
  CommandButton* Button(const std::string& name) const;
  StatusPanel* Status(int panel) const;  // 1 to 9
  QLabel* Diagnostics() const { return diagnostics_; }
  QLabel* EquationHeading() const { return heading_; }
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

  // The File menu. Each asks about unsaved changes first; false when the student cancels.
  bool FileNew();
  bool OpenFile(const QString& path);  // Open with the file chosen
  bool FileSave();
  bool FileSaveAs(const QString& path);
  bool OpenRecent(int index);  // 1 to 4
  bool AskSaveChanges();
  const std::array<std::string, 4>& RecentFiles() const { return recent_; }
  void ShowOptions();
  void EditList();  // the list editor, modal
  TopicsPanel* Topics() const { return topics_; }
  bool TopicsShown() const;
  void ShowTopics();
  void ShowWelcomeIfWanted();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* BuildPanels();
  void BuildMenus();
  void AfterFileLoaded();
  void UpdateRecentMenu();
  void SetFileCaption();
  // Lays the status panels in as many rows as the width needs, so that none is cut off.
  void ArrangeStatusPanels();

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
  QWidget* status_box_ = nullptr;
  std::vector<int> status_rows_;  // the row of each status panel as laid out
  QStackedWidget* center_ = nullptr;
  TopicsPanel* topics_ = nullptr;
  QPushButton* show_topics_ = nullptr;
  QLabel* heading_ = nullptr;  // the chosen topic and subtopic, above the equation box
  QAction* save_ = nullptr;
  std::array<QAction*, 4> recent_actions_{};
  QAction* recent_separator_ = nullptr;
  SettingsStore* store_;
  std::string program_directory_;
  std::array<std::string, 4> recent_{};
};

}  // namespace tavimor
