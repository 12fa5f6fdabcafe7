// The dialogs of the Number panel: a number to significant figures, its prime factors a step at
// a time.
#include "qt/number_tools_dialogs.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "shell/number_tools.h"

namespace tavimor {

SigFigsForm::SigFigsForm(QWidget* parent, const std::string& number, int figures)
    : QDialog(parent),
      txtNumber_(new QLineEdit(this)),
      txtSigFigs_(new QSpinBox(this)),
      cmdOK_(new QPushButton(QStringLiteral("OK"), this)) {
  setObjectName(QStringLiteral("SigFigsForm"));
  setWindowTitle(QStringLiteral("Significant figures"));
  setModal(true);
  txtNumber_->setObjectName(QStringLiteral("txtNumber"));
  txtNumber_->setText(QString::fromStdString(number));
  txtNumber_->setReadOnly(true);
  txtNumber_->setMinimumWidth(220);
  // The figures box with its up-down control: one figure a click, 1 to 20.
  txtSigFigs_->setObjectName(QStringLiteral("txtSigFigs"));
  txtSigFigs_->setRange(kMinFigures, kMaxFigures);
  txtSigFigs_->setValue(figures);
  cmdOK_->setObjectName(QStringLiteral("cmdOK"));
  cmdOK_->setDefault(true);
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("Number:"), txtNumber_);
  form->addRow(QStringLiteral("Significant figures:"), txtSigFigs_);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addLayout(buttons);
  connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);
  txtSigFigs_->setFocus();
}

FactorForm::FactorForm(QWidget* parent)
    : QDialog(parent),
      txtFactors_(new QPlainTextEdit(this)),
      cmdOK_(new QPushButton(QStringLiteral("OK"), this)) {
  setObjectName(QStringLiteral("FactorForm"));
  setWindowTitle(QStringLiteral("Prime factors"));
  setModal(true);
  txtFactors_->setObjectName(QStringLiteral("txtFactors"));
  txtFactors_->setReadOnly(true);
  txtFactors_->setMinimumSize(460, 200);
  cmdOK_->setObjectName(QStringLiteral("cmdOK"));
  cmdOK_->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txtFactors_);
  layout->addLayout(buttons);
  connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);
}

void FactorForm::Show(const std::string& box, const std::string& caption) {
  QString text = QString::fromStdString(box);
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  txtFactors_->setPlainText(text);
  txtFactors_->moveCursor(QTextCursor::End);
  cmdOK_->setText(QString::fromStdString(caption));
  cmdOK_->setFocus();
}

}  // namespace tavimor
