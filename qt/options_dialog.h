// The Options dialog: every option of the tutor, with Close, Cancel, Factory settings and Help.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QRadioButton>

#include "core/session.h"

namespace tavimor {

class OptionsDialog : public QDialog {
  Q_OBJECT

 public:
  OptionsDialog(Session& s, QWidget* parent);

  // The controls, for the window and for tests.
  QComboBox* Unknown() const { return unknown_; }
  QComboBox* SigFigs() const { return sig_figs_; }
  QComboBox* FontSize() const { return font_size_; }
  QCheckBox* SpecialE() const { return special_e_; }
  QCheckBox* SpecialP() const { return special_p_; }
  QCheckBox* SpecialD() const { return special_d_; }
  QRadioButton* Radians() const { return radians_; }
  QRadioButton* Degrees() const { return degrees_; }
  QButtonGroup* Detail() const { return detail_; }
  QButtonGroup* Stream() const { return stream_; }
  QButtonGroup* Complex() const { return complex_; }
  QButtonGroup* Quadratic() const { return quadratic_; }
  QPushButton* CloseButton() const { return close_; }
  QPushButton* CancelButton() const { return cancel_; }
  QPushButton* FactoryButton() const { return factory_; }

 private:
  void ShowState(const OptionSet& from);  // the controls from a set of options
  void Accept();                          // the controls into the options, then close
  void UpdateEnabling();

  Session& s_;
  QComboBox* unknown_;
  QComboBox* sig_figs_;
  QComboBox* font_size_;
  QCheckBox* special_e_;
  QCheckBox* special_p_;
  QCheckBox* special_d_;
  QRadioButton* radians_;
  QRadioButton* degrees_;
  QButtonGroup* radical_;
  QButtonGroup* reciprocal_;
  QButtonGroup* exponential_;
  QButtonGroup* float_math_;
  QButtonGroup* arc_;
  QButtonGroup* complex_;
  QButtonGroup* detail_;
  QButtonGroup* stream_;
  QButtonGroup* quadratic_;
  QPushButton* close_;
  QPushButton* cancel_;
  QPushButton* factory_;
};

}  // namespace tavimor
