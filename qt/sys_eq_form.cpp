// SysEqForm: the elimination window over the screen-free SysEqState.
#include "qt/sys_eq_form.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/message_box.h"
#include "linsys/sys_eq_form.h"

namespace tavimor {

namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

// A set of four row buttons: button k stands for row k + 1.
QHBoxLayout* RowButtons(QWidget* parent, const QString& label, QButtonGroup*& group,
                        std::array<QRadioButton*, 4>& buttons) {
  auto* layout = new QHBoxLayout;
  layout->addWidget(new QLabel(label, parent));
  group = new QButtonGroup(parent);
  for (int k = 0; k < 4; ++k) {
    buttons[static_cast<std::size_t>(k)] =
        new QRadioButton(QStringLiteral("R%1").arg(k + 1), parent);
    group->addButton(buttons[static_cast<std::size_t>(k)], k + 1);
    layout->addWidget(buttons[static_cast<std::size_t>(k)]);
  }
  layout->addStretch();
  return layout;
}

}  // namespace

SysEqForm::SysEqForm(QWidget* parent, Session& s, SysEqState& state)
    : QDialog(parent), s_(s), state_(state) {
  setModal(true);
  setWindowTitle(Q(state_.method == 2 ? kSubsCaption : kElimCaption));
  auto* layout = new QVBoxLayout(this);

  assist_box_ = new QLabel(this);
  assist_box_->setWordWrap(true);
  assist_box_->setMinimumHeight(60);
  assist_box_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  layout->addWidget(assist_box_);

  grid_ = new QTableWidget(this);
  grid_->horizontalHeader()->hide();
  grid_->verticalHeader()->hide();
  grid_->setShowGrid(false);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->setSelectionMode(QAbstractItemView::NoSelection);
  grid_->setFocusPolicy(Qt::NoFocus);
  QFont grid_font(QStringLiteral("Times New Roman"), 13);
  grid_->setFont(grid_font);
  layout->addWidget(grid_, 1);
  connect(grid_, &QTableWidget::cellClicked, this, [this](int line, int cell) {
    Guarded([&] {
      ReadControls();
      // With substitution a click picks the variable in that equation.
      if (state_.method == 2) {
        if (line % 2 == 0) ClickSubstitutionCell(state_, line / 2 + 1, cell / 3 + 1);
        return;
      }
      ClickGridCell(s_, state_, line, cell);
    });
  });

  // The buttons that open the ERO panels, and the panels.
  auto* openers = new QHBoxLayout;
  const std::array<const char*, 3> titles = {"ERO # 1:  Ri := c * Ri",
                                             "ERO # 2:  Ri := Ri + c * Rj", "ERO # 3:  Ri <-> Rj"};
  for (int k = 0; k < 3; ++k) {
    auto* button = new QPushButton(QStringLiteral("ERO # %1").arg(k + 1), this);
    panel_buttons_[static_cast<std::size_t>(k)] = button;
    openers->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, k] {
      ReadControls();
      state_.panel = static_cast<std::int16_t>(k + 1);
      Sync();
    });
    auto* box = new QGroupBox(QString::fromUtf8(titles[static_cast<std::size_t>(k)]), this);
    panels_[static_cast<std::size_t>(k)] = box;
  }
  openers->addStretch();
  layout->addLayout(openers);

  const QString hint = Q(kNumberBoxHint);
  {  // ERO # 1
    auto* box = panels_[0];
    auto* v = new QVBoxLayout(box);
    v->addLayout(RowButtons(box, QStringLiteral("Row:"), row_groups_[0], rows_[0]));
    auto* op = new QHBoxLayout;
    multiply_ = new QRadioButton(QStringLiteral("multiply by"), box);
    divide_ = new QRadioButton(QStringLiteral("divide by"), box);
    auto* group = new QButtonGroup(box);
    group->addButton(multiply_);
    group->addButton(divide_);
    ero1_number_ = new QLineEdit(box);
    ero1_number_->setToolTip(hint);
    ero1_number_->setPlaceholderText(hint);
    op->addWidget(multiply_);
    op->addWidget(divide_);
    op->addWidget(ero1_number_, 1);
    v->addLayout(op);
    layout->addWidget(box);
  }
  {  // ERO # 2
    auto* box = panels_[1];
    auto* v = new QVBoxLayout(box);
    v->addLayout(RowButtons(box, QStringLiteral("Row i:"), row_groups_[1], rows_[1]));
    auto* op = new QHBoxLayout;
    add_ = new QRadioButton(QStringLiteral("add"), box);
    subtract_ = new QRadioButton(QStringLiteral("subtract"), box);
    auto* group = new QButtonGroup(box);
    group->addButton(add_);
    group->addButton(subtract_);
    ero2_number_ = new QLineEdit(box);
    ero2_number_->setToolTip(hint);
    ero2_number_->setPlaceholderText(hint);
    op->addWidget(add_);
    op->addWidget(subtract_);
    op->addWidget(ero2_number_, 1);
    op->addWidget(new QLabel(QStringLiteral("times"), box));
    v->addLayout(op);
    v->addLayout(RowButtons(box, QStringLiteral("Row j:"), row_groups_[2], rows_[2]));
    layout->addWidget(box);
  }
  {  // ERO # 3
    auto* box = panels_[2];
    auto* v = new QVBoxLayout(box);
    v->addLayout(RowButtons(box, QStringLiteral("Swap row:"), row_groups_[3], rows_[3]));
    v->addLayout(RowButtons(box, QStringLiteral("with row:"), row_groups_[4], rows_[4]));
    layout->addWidget(box);
  }

  auto* keys = new QHBoxLayout;
  auto* key_label = new QLabel(Q(kKeyboardLabel), this);
  key_label->setObjectName(QStringLiteral("keyboardLabel"));
  keyboard_ = new QLineEdit(this);
  keyboard_->setToolTip(Q(kKeyboardTip));
  key_label->setBuddy(keyboard_);
  keys->addWidget(key_label);
  keys->addWidget(keyboard_, 1);
  layout->addLayout(keys);
  connect(keyboard_, &QLineEdit::returnPressed, this, [this] {
    Guarded([&] {
      ReadControls();
      EnterKeyboardEro(s_, state_, keyboard_->text().toStdString());
    });
  });

  auto* buttons = new QHBoxLayout;
  test_ = new QPushButton(QStringLiteral("Test"), this);
  ok_ = new QPushButton(QStringLiteral("OK"), this);
  cancel_ = new QPushButton(QStringLiteral("Cancel"), this);
  assist_ = new QPushButton(Q(kAssistCaption), this);
  assist_->setToolTip(Q(kAssistTip));
  for (QPushButton* b : {test_, ok_, cancel_, assist_}) {
    b->setAutoDefault(false);
    buttons->addWidget(b);
  }
  buttons->addStretch();
  layout->addLayout(buttons);
  connect(test_, &QPushButton::clicked, this, [this] {
    Guarded([&] {
      ReadControls();
      state_.factor_from_keyboard = false;
      cmdTest(s_, state_);
    });
  });
  connect(ok_, &QPushButton::clicked, this, [this] { Guarded([&] { cmdOK(s_, state_); }); });
  connect(cancel_, &QPushButton::clicked, this, [this] { Guarded([&] { cmdUndo(s_, state_); }); });
  connect(assist_, &QPushButton::clicked, this, [this] {
    Guarded([&] {
      if (state_.method != 2) {
        cmdAssistElim(s_, state_);
      } else if (state_.subs.phase == SubsPhase::Choosing) {
        SubstitutionOK(s_, state_);
      } else {
        SubstitutionContinue(s_, state_);
      }
    });
  });

  resize(760, 560);
  Sync();
}

template <typename Work>
void SysEqForm::Guarded(Work work) {
  try {
    work();
  } catch (const std::exception&) {
    state_.closed = true;
    ShowCustomMessage(s_, state_.method == 2 ? kSubsError : kElimError, 0);
  }
  Finish();
}

void SysEqForm::Finish() {
  if (state_.closed) {
    accept();
    return;
  }
  Sync();
}

void SysEqForm::ReadControls() {
  state_.ero1_row = static_cast<std::int16_t>(std::max(1, row_groups_[0]->checkedId()));
  state_.ero2_row = static_cast<std::int16_t>(std::max(1, row_groups_[1]->checkedId()));
  state_.ero2_row2 = static_cast<std::int16_t>(std::max(1, row_groups_[2]->checkedId()));
  state_.ero3_row = static_cast<std::int16_t>(std::max(1, row_groups_[3]->checkedId()));
  state_.ero3_row2 = static_cast<std::int16_t>(std::max(1, row_groups_[4]->checkedId()));
  state_.ero1_divide = divide_->isChecked();
  state_.ero2_subtract = subtract_->isChecked();
  state_.ero1_number = ero1_number_->text().toStdString();
  state_.ero2_number = ero2_number_->text().toStdString();
}

void SysEqForm::Sync() {
  assist_box_->setText(Q(state_.assist_text));
  assist_->setText(Q(state_.assist_caption));

  const std::vector<std::vector<std::string>> lines = GridLines(s_, state_);
  const int width = lines.empty() ? 0 : static_cast<int>(lines.front().size());
  grid_->setRowCount(static_cast<int>(lines.size()));
  grid_->setColumnCount(width);
  for (int l = 0; l < static_cast<int>(lines.size()); ++l) {
    const auto& line = lines[static_cast<std::size_t>(l)];
    for (int c = 0; c < width; ++c) {
      auto* item = new QTableWidgetItem(
          c < static_cast<int>(line.size()) ? Q(line[static_cast<std::size_t>(c)]) : QString());
      const bool number = c % 3 == 1 || c == width - 2;
      item->setTextAlignment(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
      if (c == width - 1) item->setForeground(Qt::darkRed);
      if (c % 3 == 2 && c < width - 2) {  // a letter, in italic as in print
        QFont italic = grid_->font();
        italic.setItalic(true);
        item->setFont(italic);
      }
      if (l == 2 * (state_.blue_row - 1) && c == 3 * (state_.blue_col - 1) + 1) {
        item->setForeground(Qt::blue);
        QFont bold = grid_->font();
        bold.setBold(true);
        item->setFont(bold);
      }
      grid_->setItem(l, c, item);
    }
    grid_->setRowHeight(l, l % 2 == 0 ? 30 : 10);
  }
  grid_->resizeColumnsToContents();

  // The row buttons: as many as there are rows, at most four; each set shows the state's row.
  const int shown = state_.RowButtons();
  const std::array<int, 5> selected = {state_.ero1_row, state_.ero2_row, state_.ero2_row2,
                                       state_.ero3_row, state_.ero3_row2};
  for (std::size_t set = 0; set < rows_.size(); ++set) {
    for (int k = 0; k < 4; ++k) {
      QRadioButton* b = rows_[set][static_cast<std::size_t>(k)];
      b->setVisible(k < shown);
      if (k + 1 == selected[set]) b->setChecked(true);
    }
  }
  multiply_->setChecked(!state_.ero1_divide);
  divide_->setChecked(state_.ero1_divide);
  add_->setChecked(!state_.ero2_subtract);
  subtract_->setChecked(state_.ero2_subtract);
  ero1_number_->setText(Q(state_.ero1_number));
  ero2_number_->setText(Q(state_.ero2_number));
  keyboard_->setText(Q(state_.keyboard));

  const bool panels = state_.PanelsEnabled();
  for (int k = 0; k < 3; ++k) {
    panels_[static_cast<std::size_t>(k)]->setVisible(state_.panel == k + 1);
    panels_[static_cast<std::size_t>(k)]->setEnabled(panels);
    panel_buttons_[static_cast<std::size_t>(k)]->setEnabled(panels);
  }
  keyboard_->setEnabled(panels);
  grid_->setEnabled(!state_.closed);
  test_->setEnabled(state_.TestEnabled());
  ok_->setVisible(state_.OkVisible());
  cancel_->setVisible(state_.OkVisible());
  assist_->setEnabled(state_.AssistEnabled());
  if (state_.method == 2) {
    // Substitution has no row operations: the grid, the box and one button.
    for (QPushButton* b : panel_buttons_) b->setVisible(false);
    for (QGroupBox* g : panels_) g->setVisible(false);
    keyboard_->setVisible(false);
    if (auto* label = findChild<QLabel*>(QStringLiteral("keyboardLabel"))) label->setVisible(false);
    test_->setVisible(false);
    assist_->setToolTip(QString());
  }
}

}  // namespace tavimor
