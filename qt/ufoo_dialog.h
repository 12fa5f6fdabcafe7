// The dialog that multiplies the expression by a useful form of one, modal, over the screen-free
// state of the Useful form of one.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <vector>

#include "core/session.h"
#include "shell/commands/ufoo_command.h"

namespace tavimor {

class UfooDialog : public QDialog {
  Q_OBJECT

 public:
  UfooDialog(QWidget* parent, Session& s, UfooDialogState& state);

  QRadioButton* Option(UfooOption option) const {
    return options_[static_cast<std::size_t>(option)];
  }
  QCheckBox* ExpandNumerator() const { return expand_[0]; }
  QCheckBox* ExpandDenominator() const { return expand_[1]; }
  QLineEdit* NumeratorBox() const { return boxes_[0]; }
  QLineEdit* DenominatorBox() const { return boxes_[1]; }
  QPushButton* ApplyButton() const { return apply_; }
  QPushButton* CancelButton() const { return cancel_; }

 private:
  void Choose(UfooOption option);
  void Typed(const QString& text);
  void Apply();
  void Refresh();

  Session& s_;
  UfooDialogState& state_;
  std::vector<QRadioButton*> options_;
  QCheckBox* expand_[2] = {nullptr, nullptr};
  QLineEdit* boxes_[2] = {nullptr, nullptr};
  QPushButton* apply_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QPushButton* help_ = nullptr;
};

}  // namespace tavimor
