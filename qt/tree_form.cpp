// The tree view of the side in use: how the tutor reads the expression, one entry a node.
#include "qt/tree_form.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/display_painter.h"

namespace tavimor {

TreeForm::TreeForm(QWidget* parent, const std::vector<TreeViewEntry>& entries,
                   std::function<void()> help)
    : QDialog(parent), view_(new QTreeWidget(this)), help_(std::move(help)) {
  setObjectName(QStringLiteral("TreeForm"));
  setWindowTitle(QStringLiteral("Tree"));
  view_->setObjectName(QStringLiteral("tvwWorkSpace"));
  view_->setHeaderHidden(true);
  view_->setFont(WorkSpaceFont(12.0f));
  // Each entry hangs under the last entry one level up.
  std::vector<QTreeWidgetItem*> parents;
  for (const TreeViewEntry& entry : entries) {
    const auto depth = static_cast<std::size_t>(entry.depth);
    if (depth > parents.size()) continue;  // not below an entry: a broken list
    parents.resize(depth);
    auto* item = depth == 0 ? new QTreeWidgetItem(view_) : new QTreeWidgetItem(parents.back());
    item->setText(0, QString::fromStdString(entry.label));
    parents.push_back(item);
  }
  view_->expandAll();
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Help, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::helpRequested, this, [this] { help_(); });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(view_, 1);
  layout->addWidget(buttons);
  resize(420, 360);
}

void TreeForm::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    event->accept();
    help_();
    return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace tavimor
