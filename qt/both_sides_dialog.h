// The dialog that applies one operation to both sides of the equation, modeless and on top.
#pragma once

#include <QButtonGroup>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <functional>
#include <optional>
#include <vector>

#include "core/session.h"
#include "solve/do_to_both_sides.h"

namespace tavimor {

class BothSidesDialog : public QDialog {
  Q_OBJECT

 public:
  // `after` runs after each command, to bring the main window in line with the session.
  BothSidesDialog(QWidget* parent, Session& s, std::function<void()> after);

  QRadioButton* Option(BothSidesOperation operation) const {
    return options_[static_cast<std::size_t>(operation)];
  }
  QLineEdit* QBox() const { return text1_; }
  QPushButton* ApplyButton() const { return apply_; }
  QPushButton* HintButton() const { return hint_; }
  QPushButton* CloseButton() const { return close_; }
  BothSidesOperation Chosen() const;
  // The field Q as the session holds it (cleared after an operation).
  void Refresh();
  // The square root's sign without asking (for a run with nobody at the screen); else asked.
  void SetRootSign(std::optional<char> sign) { root_sign_ = sign; }

 private:
  void Apply();
  void Hint();

  Session& s_;
  std::function<void()> after_;
  std::vector<QRadioButton*> options_;
  QButtonGroup* group_;
  QLineEdit* text1_;
  QPushButton* apply_;
  QPushButton* hint_;
  QPushButton* help_;
  QPushButton* close_;
  std::optional<char> root_sign_;
};

}  // namespace tavimor
