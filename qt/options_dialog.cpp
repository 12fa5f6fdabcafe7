// The Options dialog: every option of the tutor, with Close, Cancel, Factory settings and Help.
#include "qt/options_dialog.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <array>

#include "shell/main_flow.h"
#include "shell/status_bar.h"

namespace tavimor {

namespace {

// A frame of option buttons with their captions; the index of each is its value.
QButtonGroup* Options(QWidget* parent, QBoxLayout* column, const QString& title,
                      const QStringList& captions) {
  auto* box = new QGroupBox(title, parent);
  auto* layout = new QVBoxLayout(box);
  auto* group = new QButtonGroup(box);
  for (int i = 0; i < captions.size(); ++i) {
    auto* button = new QRadioButton(captions[i], box);
    group->addButton(button, i);
    layout->addWidget(button);
  }
  column->addWidget(box);
  return group;
}

void Choose(QButtonGroup* group, int index) {
  if (QAbstractButton* button = group->button(index)) button->setChecked(true);
}

}  // namespace

OptionsDialog::OptionsDialog(Session& s, QWidget* parent) : QDialog(parent), s_(s) {
  setWindowTitle(QStringLiteral("Algebra Options"));
  auto* layout = new QVBoxLayout(this);
  // Three columns of frames, in a scroll area should the screen still be too small for them.
  auto* scroll = new QScrollArea(this);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  auto* page = new QWidget(scroll);
  auto* columns = new QHBoxLayout(page);
  columns->setContentsMargins(0, 0, 0, 0);
  std::array<QVBoxLayout*, 3> column{};
  for (QVBoxLayout*& c : column) {
    c = new QVBoxLayout;
    columns->addLayout(c);
  }
  QWidget* grid = page;  // the parent of the frames

  auto* general = new QGroupBox(QStringLiteral("General"), grid);
  auto* form = new QFormLayout(general);
  unknown_ = new QComboBox(general);
  for (char c = 'a'; c <= 'z'; ++c) unknown_->addItem(QString(QChar(c)));
  for (char c = 'A'; c <= 'Z'; ++c) unknown_->addItem(QString(QChar(c)));
  sig_figs_ = new QComboBox(general);
  for (int i = 1; i <= 8; ++i) sig_figs_->addItem(QString::number(i));
  font_size_ = new QComboBox(general);
  for (int k = 0; k <= 9; ++k) font_size_->addItem(QString::number(10 + 2 * k));
  form->addRow(QStringLiteral("name of unknown"), unknown_);
  form->addRow(QStringLiteral("number of significant figures to display"), sig_figs_);
  form->addRow(QStringLiteral("font size"), font_size_);
  column[0]->addWidget(general);

  auto* letters = new QGroupBox(QStringLiteral("Special letters and angles"), grid);
  auto* letter_layout = new QVBoxLayout(letters);
  special_e_ = new QCheckBox(letters);
  special_e_->setToolTip(QStringLiteral("so that e.g. ln(e)=1"));
  special_p_ = new QCheckBox(letters);
  special_p_->setToolTip(QStringLiteral("so that e.g. in radian mode sin(p/6)=1/2"));
  special_d_ = new QCheckBox(letters);
  special_d_->setToolTip(QStringLiteral("so that e.g. in radian mode sin(30d)=1/2"));
  radians_ = new QRadioButton(QStringLiteral("radians"), letters);
  degrees_ = new QRadioButton(QStringLiteral("degrees"), letters);
  for (QWidget* w :
       std::initializer_list<QWidget*>{special_e_, special_p_, special_d_, radians_, degrees_}) {
    letter_layout->addWidget(w);
  }
  column[1]->addWidget(letters);

  radical_ = Options(grid, column[0], QStringLiteral("1/2 exponent"),
                     {QStringLiteral("sqrt(x)"), QStringLiteral("x^(1/2)")});
  reciprocal_ = Options(grid, column[0], QStringLiteral(" negative exponent"),
                        {QStringLiteral("1/x"), QStringLiteral("x^(-1)")});
  exponential_ = Options(grid, column[0], QStringLiteral("exponential function"),
                         {QStringLiteral("exp(x)"), QStringLiteral("e^x")});
  float_math_ = Options(grid, column[1], QStringLiteral("Arithmetic"),
                        {QStringLiteral("convert to float"), QStringLiteral("keep exact")});
  arc_ = Options(
      grid, column[2], QStringLiteral("Inverse trig functions"),
      {QStringLiteral("don't evaluate"), QStringLiteral("return principal value"),
       QStringLiteral("return two values"), QStringLiteral("return all values using index n")});
  complex_ = Options(
      grid, column[2], QStringLiteral("Complex numbers"),
      {QStringLiteral("don't use complex numbers"), QStringLiteral("use i to represent"),
       QStringLiteral("use j to represent"), QStringLiteral("let \u221A\u22121 represent itself")});
  detail_ = Options(grid, column[1], QStringLiteral("Detail"),
                    {QStringLiteral("show only final result"), QStringLiteral("show all the steps"),
                     QStringLiteral("show all details")});
  stream_ = Options(grid, column[1], QStringLiteral("Steps"),
                    {QStringLiteral("list all at once"), QStringLiteral("show one at a time")});
  quadratic_ = Options(grid, column[2], QStringLiteral("Quadratic equations"),
                       {QStringLiteral("factoring"), QStringLiteral("quadratic formula"),
                        QStringLiteral("completing the square"), QStringLiteral("graphing")});
  for (QVBoxLayout* c : column) c->addStretch(1);
  scroll->setWidget(page);
  layout->addWidget(scroll, 1);

  auto* buttons = new QHBoxLayout;
  close_ = new QPushButton(QStringLiteral("Close"), this);
  close_->setToolTip(QStringLiteral("Accept changes; close dialog box"));
  close_->setDefault(true);
  cancel_ = new QPushButton(QStringLiteral("Cancel"), this);
  cancel_->setToolTip(QStringLiteral("Make no changes; close dialog box"));
  factory_ = new QPushButton(QStringLiteral("Factory settings"), this);
  factory_->setToolTip(QStringLiteral("Set all options to factory settings"));
  auto* help = new QPushButton(QStringLiteral("Help"), this);
  help->setToolTip(QStringLiteral("Explain the options"));
  buttons->addWidget(factory_);
  buttons->addWidget(help);
  buttons->addStretch(1);
  buttons->addWidget(cancel_);
  buttons->addWidget(close_);
  layout->addLayout(buttons);

  connect(close_, &QPushButton::clicked, this, &OptionsDialog::Accept);
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
  connect(factory_, &QPushButton::clicked, this, [this] { ShowState(OptionSet{}); });
  connect(help, &QPushButton::clicked, this, [this] { s_.Screen().ShowHelp(s_.HelpNumber); });
  for (QAbstractButton* b : detail_->buttons()) {
    connect(b, &QAbstractButton::toggled, this, &OptionsDialog::UpdateEnabling);
  }
  for (QWidget* w : std::initializer_list<QWidget*>{special_e_, radians_, degrees_}) {
    if (auto* box = qobject_cast<QAbstractButton*>(w)) {
      connect(box, &QAbstractButton::toggled, this, &OptionsDialog::UpdateEnabling);
    }
  }
  ShowState(s_);
  // As large as the frames want, but never beyond the available screen: the scroll area takes
  // what is left of the screen's height after the buttons and the window's frame.
  const QRect available = (parent != nullptr ? parent->screen() : screen())->availableGeometry();
  const QSize page_size = page->sizeHint();
  scroll->setMinimumSize(
      std::min(page_size.width() + scroll->verticalScrollBar()->sizeHint().width(),
               available.width() - 40),
      std::min(page_size.height(), std::max(200, available.height() - 160)));
  resize(sizeHint().boundedTo(available.size() - QSize(16, 48)));
}

void OptionsDialog::ShowState(const OptionSet& from) {
  const int letter = from.Unknown.empty() ? 23 : from.Unknown[0];
  unknown_->setCurrentIndex(letter >= 'a' ? letter - 'a' : 26 + letter - 'A');
  sig_figs_->setCurrentIndex(std::clamp<int>(from.SigFigs, 1, 8) - 1);
  font_size_->setCurrentIndex(std::clamp(static_cast<int>((from.FontSize - 10.0f) / 2.0f), 0, 9));
  special_e_->setChecked(from.SpecialE);
  special_p_->setChecked(from.SpecialP);
  special_d_->setChecked(from.SpecialD);
  (from.Degrees ? degrees_ : radians_)->setChecked(true);
  Choose(radical_, from.ExponentToRadical ? 0 : 1);
  Choose(reciprocal_, from.ExponentToReciprocal ? 0 : 1);
  Choose(exponential_, from.ExponentToExponentialFunction ? 0 : 1);
  Choose(float_math_, from.ExactToFloat ? 0 : 1);
  Choose(arc_, from.EvaluateInverseTrig);
  Choose(complex_, from.ComplexForm);
  Choose(detail_, from.SolveDetailDefault);
  Choose(stream_, from.StreamingOutput ? 0 : 1);
  Choose(quadratic_, from.QuadraticMethod);
  UpdateEnabling();
}

void OptionsDialog::UpdateEnabling() {
  // The captions show the decimal separator of this machine.
  const QString dp = QString::fromStdString(s_.DecimalPoint);
  special_e_->setText(QStringLiteral("e=2") + dp + QStringLiteral("718..."));
  special_p_->setText(QStringLiteral("p=3") + dp + QStringLiteral("14..."));
  special_d_->setText(QStringLiteral("d=3") + dp + QStringLiteral("14.../180"));
  // There are no steps to stream when only the result is shown; the degree letter makes sense
  // in radian mode only.
  const bool result_only = detail_->checkedId() == 0;
  for (QAbstractButton* b : stream_->buttons()) b->setEnabled(!result_only);
  special_d_->setEnabled(!degrees_->isChecked());
}

void OptionsDialog::Accept() {
  const int index = unknown_->currentIndex();
  s_.Unknown = std::string(1, static_cast<char>(index < 26 ? 'a' + index : 'A' + index - 26));
  s_.SigFigs = static_cast<std::int16_t>(sig_figs_->currentIndex() + 1);
  s_.FontSize = static_cast<float>(10 + 2 * font_size_->currentIndex());
  s_.SpecialE = special_e_->isChecked();
  s_.SpecialP = special_p_->isChecked();
  s_.SpecialD = special_d_->isChecked();
  s_.Degrees = degrees_->isChecked();
  s_.ExponentToRadical = radical_->checkedId() == 0;
  s_.ExponentToReciprocal = reciprocal_->checkedId() == 0;
  s_.ExponentToExponentialFunction = exponential_->checkedId() == 0;
  s_.ExactToFloat = float_math_->checkedId() == 0;
  s_.EvaluateInverseTrig = static_cast<std::int16_t>(std::max(0, arc_->checkedId()));
  s_.ComplexForm = static_cast<std::int16_t>(std::max(0, complex_->checkedId()));
  s_.SolveDetailDefault = static_cast<std::int16_t>(std::max(0, detail_->checkedId()));
  s_.StreamingOutput = stream_->checkedId() == 0;
  s_.QuadraticMethod = static_cast<std::int16_t>(std::max(0, quadratic_->checkedId()));
  s_.SolveDetail = s_.SolveDetailDefault;
  UpdateStatusPanel(s_);
  OptionSnapshot(s_, "Set");
  accept();
}

}  // namespace tavimor
