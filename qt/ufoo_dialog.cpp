// The dialog of the Useful form of one: five choices, the form's two boxes, the two expansions.
#include "qt/ufoo_dialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tavimor {

UfooDialog::UfooDialog(QWidget* parent, Session& s, UfooDialogState& state)
    : QDialog(parent), s_(s), state_(state) {
  setWindowTitle(QString::fromUtf8(kUfooCaption));
  setModal(true);
  auto* layout = new QVBoxLayout(this);
  auto* choices = new QVBoxLayout;
  const std::vector<std::string>& captions = UfooOptionCaptions();
  for (std::size_t k = 0; k < captions.size(); ++k) {
    // The first two show the form as it is written: -1/-1 and the sign of pi.
    QString caption = QString::fromStdString(captions[k]);
    if (k == 1) caption = QString::fromUtf8("\u03c0/\u03c0");
    auto* option = new QRadioButton(caption, this);
    const auto which = static_cast<UfooOption>(k);
    connect(option, &QRadioButton::clicked, this, [this, which] { Choose(which); });
    options_.push_back(option);
    choices->addWidget(option);
  }
  layout->addLayout(choices);
  auto* form = new QHBoxLayout;
  form->addWidget(new QLabel(QString::fromUtf8(kUfooBoxLabel), this));
  auto* fraction = new QVBoxLayout;
  for (int k = 0; k < 2; ++k) {
    boxes_[k] = new QLineEdit(this);
    fraction->addWidget(boxes_[k]);
  }
  boxes_[1]->setReadOnly(true);
  form->addLayout(fraction);
  layout->addLayout(form);
  connect(boxes_[0], &QLineEdit::textEdited, this, &UfooDialog::Typed);
  auto* after = new QGroupBox(QString::fromUtf8(kUfooOptionsHeading), this);
  auto* after_layout = new QVBoxLayout(after);
  expand_[0] = new QCheckBox(QString::fromUtf8(kUfooExpandNumerator), after);
  expand_[1] = new QCheckBox(QString::fromUtf8(kUfooExpandDenominator), after);
  for (int k = 0; k < 2; ++k) {
    after_layout->addWidget(expand_[k]);
    connect(expand_[k], &QCheckBox::toggled, this, [this, k](bool on) {
      (k == 0 ? state_.expand_numerator : state_.expand_denominator) = on;
    });
  }
  layout->addWidget(after);
  auto* buttons = new QHBoxLayout;
  apply_ = new QPushButton(QStringLiteral("Apply"), this);
  cancel_ = new QPushButton(QStringLiteral("Cancel"), this);
  help_ = new QPushButton(QStringLiteral("Help"), this);
  apply_->setDefault(true);
  buttons->addWidget(apply_);
  buttons->addWidget(cancel_);
  buttons->addWidget(help_);
  layout->addLayout(buttons);
  connect(apply_, &QPushButton::clicked, this, &UfooDialog::Apply);
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
  connect(help_, &QPushButton::clicked, this, [this] { s_.Screen().ShowHelp(2); });
  Refresh();
}

void UfooDialog::Choose(UfooOption option) {
  ChooseUfooOption(s_, state_, option);
  Refresh();
}

void UfooDialog::Typed(const QString& text) {
  TypeUfooNumerator(state_, text.toStdString());
  Refresh();
}

void UfooDialog::Apply() {
  if (UfooApplyAllowed(s_, state_)) accept();
}

void UfooDialog::Refresh() {
  for (std::size_t k = 0; k < options_.size(); ++k) {
    const auto which = static_cast<UfooOption>(k);
    options_[k]->setEnabled(state_.OptionEnabled(which));
    options_[k]->setChecked(state_.option == which);
  }
  for (int k = 0; k < 2; ++k) {
    const std::string& text = k == 0 ? state_.numerator_box : state_.denominator_box;
    if (boxes_[k]->text().toStdString() != text) boxes_[k]->setText(QString::fromStdString(text));
  }
  boxes_[0]->setReadOnly(!state_.BoxesEditable());
  const QSignalBlocker block_top(expand_[0]);
  const QSignalBlocker block_bottom(expand_[1]);
  expand_[0]->setChecked(state_.expand_numerator);
  expand_[1]->setChecked(state_.expand_denominator);
}

}  // namespace tavimor
