// The dialogs of the Number panel: a number to significant figures, its prime factors a step at
// a time.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <string>

namespace tavimor {

// SigFigsForm: the number, the figures box with its up and down buttons (1 to 20), and OK.
class SigFigsForm : public QDialog {
  Q_OBJECT

 public:
  SigFigsForm(QWidget* parent, const std::string& number, int figures);
  int Figures() const { return txtSigFigs_->value(); }
  QSpinBox* FiguresBox() const { return txtSigFigs_; }
  QPushButton* OkButton() const { return cmdOK_; }

 private:
  QLineEdit* txtNumber_;
  QSpinBox* txtSigFigs_;
  QPushButton* cmdOK_;
};

// FactorForm: the box of texts and the button that reads "OK" until the number is completely
// factored, then "Close". A press of the button accepts the dialog; closing it rejects it.
class FactorForm : public QDialog {
  Q_OBJECT

 public:
  explicit FactorForm(QWidget* parent);
  void Show(const std::string& box, const std::string& caption);
  QPlainTextEdit* Box() const { return txtFactors_; }
  QPushButton* OkButton() const { return cmdOK_; }

 private:
  QPlainTextEdit* txtFactors_;
  QPushButton* cmdOK_;
};

}  // namespace tavimor
