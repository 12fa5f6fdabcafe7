// The dialog that applies one operation to both sides of the equation, modeless and on top.
#include "qt/both_sides_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "shell/commands/both_sides_command.h"
#include "shell/commands/solving_hint_command.h"

namespace tavimor {

namespace {

// The help topic of each operation, as its step is numbered.
constexpr std::array<int, kBothSidesOperationCount> kHelp = {105, 124, 125, 126, 121, 122, 123,
                                                             131, 132, 127, 129, 130, 136, 141,
                                                             140, 140, 143, 142, 145, 144, 148};

}  // namespace

BothSidesDialog::BothSidesDialog(QWidget* parent, Session& s, std::function<void()> after)
    : QDialog(parent), s_(s), after_(std::move(after)), group_(new QButtonGroup(this)) {
  setWindowTitle(QStringLiteral("Apply this operation to both sides of the equation"));
  setModal(false);
  setWindowFlag(Qt::WindowStaysOnTopHint, true);
  auto* layout = new QVBoxLayout(this);
  auto* grid = new QGridLayout;
  // Three columns: the functions, the powers and roots, the operations with Q.
  constexpr int kColumns = 3;
  constexpr int kRows = (kBothSidesOperationCount + kColumns - 1) / kColumns;
  for (int index = 0; index < kBothSidesOperationCount; ++index) {
    const auto operation = static_cast<BothSidesOperation>(index);
    auto* option = new QRadioButton(QString::fromStdString(BothSidesCaption(operation)), this);
    option->setObjectName(QStringLiteral("optOperation%1").arg(index));
    group_->addButton(option, index);
    options_.push_back(option);
    grid->addWidget(option, index % kRows, index / kRows);
  }
  options_.front()->setChecked(true);
  layout->addLayout(grid);
  auto* q_row = new QHBoxLayout;
  q_row->addWidget(new QLabel(QStringLiteral("where Q is"), this));
  text1_ = new QLineEdit(this);
  text1_->setObjectName(QStringLiteral("Text1"));
  text1_->setText(QString::fromStdString(s_.DoToBothSidesQ));
  q_row->addWidget(text1_, 1);
  layout->addLayout(q_row);
  auto* buttons = new QHBoxLayout;
  apply_ = new QPushButton(QStringLiteral("Apply"), this);
  hint_ = new QPushButton(QStringLiteral("Solving Hint"), this);
  help_ = new QPushButton(QStringLiteral("Help"), this);
  close_ = new QPushButton(QStringLiteral("Close"), this);
  apply_->setDefault(true);
  for (QPushButton* button : {apply_, hint_, help_, close_}) buttons->addWidget(button);
  layout->addLayout(buttons);
  connect(text1_, &QLineEdit::textEdited,
          [this](const QString& text) { s_.DoToBothSidesQ = text.toStdString(); });
  connect(apply_, &QPushButton::clicked, this, &BothSidesDialog::Apply);
  connect(hint_, &QPushButton::clicked, this, &BothSidesDialog::Hint);
  connect(help_, &QPushButton::clicked,
          [this] { s_.Screen().ShowHelp(kHelp[static_cast<std::size_t>(Chosen())]); });
  connect(close_, &QPushButton::clicked, this, &QDialog::close);
}

BothSidesOperation BothSidesDialog::Chosen() const {
  return static_cast<BothSidesOperation>(std::max(0, group_->checkedId()));
}

void BothSidesDialog::Refresh() {
  const QString q = QString::fromStdString(s_.DoToBothSidesQ);
  if (text1_->text() != q) text1_->setText(q);
}

void BothSidesDialog::Apply() {
  s_.DoToBothSidesQ = text1_->text().toStdString();
  std::optional<char> sign = root_sign_;
  if (Chosen() == BothSidesOperation::SquareRoot && !sign.has_value()) {
    const QMessageBox::StandardButton answer = QMessageBox::question(
        this, QString::fromUtf8(kSquareRootSignTitle), QString::fromUtf8(kSquareRootSignQuestion));
    sign = answer == QMessageBox::Yes ? '+' : '-';
  }
  setCursor(Qt::WaitCursor);
  cmdApply(s_, Chosen(), sign);
  unsetCursor();
  if (Chosen() != BothSidesOperation::SwapSides && UsesQ(Chosen()) && !s_.DoToBothSidesQ.empty()) {
    text1_->setFocus();  // Q was refused: it is there to be mended
  }
  Refresh();
  if (after_) after_();
}

void BothSidesDialog::Hint() {
  setCursor(Qt::WaitCursor);
  cmdSolvingHint(s_);
  unsetCursor();
  if (after_) after_();
}

}  // namespace tavimor
