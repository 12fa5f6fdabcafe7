// SysEqForm: the window that solves a set of linear equations by elimination. It maps its
// widgets onto the screen-free SysEqState (linsys/sys_eq_form.h) and holds no logic of its own.
#pragma once

#include <QDialog>

#include <array>

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace tavimor {

class Session;
struct SysEqState;

class SysEqForm : public QDialog {
  Q_OBJECT

 public:
  SysEqForm(QWidget* parent, Session& s, SysEqState& state);

  // The widgets, for the tests.
  QTableWidget* Grid() const { return grid_; }
  QPushButton* AssistButton() const { return assist_; }
  QPushButton* TestButton() const { return test_; }
  QPushButton* OkButton() const { return ok_; }
  QPushButton* CancelButton() const { return cancel_; }
  QLineEdit* KeyboardLine() const { return keyboard_; }
  QLineEdit* NumberBox(int kind) const { return kind == 1 ? ero1_number_ : ero2_number_; }
  QLabel* AssistBox() const { return assist_box_; }
  QPushButton* PanelButton(int kind) const {
    return panel_buttons_[static_cast<std::size_t>(kind - 1)];
  }
  // Button k (0 to 3) of the row set: 0 ERO1, 1 ERO2a, 2 ERO2b, 3 ERO3a, 4 ERO3b.
  QRadioButton* RowButton(int set, int k) const {
    return rows_[static_cast<std::size_t>(set)][static_cast<std::size_t>(k)];
  }

  // Brings every widget in line with the state.
  void Sync();

 private:
  // Runs a button's work; a run-time error ends the window with the command's message.
  template <typename Work>
  void Guarded(Work work);
  void ReadControls();
  void Finish();

  Session& s_;
  SysEqState& state_;
  QLabel* assist_box_;
  QTableWidget* grid_;
  std::array<QPushButton*, 3> panel_buttons_{};
  std::array<QGroupBox*, 3> panels_{};
  // The row buttons of the sets ERO1, ERO2a, ERO2b, ERO3a, ERO3b.
  std::array<std::array<QRadioButton*, 4>, 5> rows_{};
  std::array<QButtonGroup*, 5> row_groups_{};
  QRadioButton* multiply_;
  QRadioButton* divide_;
  QRadioButton* add_;
  QRadioButton* subtract_;
  QLineEdit* ero1_number_;
  QLineEdit* ero2_number_;
  QLineEdit* keyboard_;
  QPushButton* test_;
  QPushButton* ok_;
  QPushButton* cancel_;
  QPushButton* assist_;
};

}  // namespace tavimor
