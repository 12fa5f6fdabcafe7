// The tree view of the side in use: how the tutor reads the expression, one entry a node.
#pragma once

#include <QDialog>
#include <QTreeWidget>
#include <functional>
#include <vector>

#include "core/frontend.h"

namespace tavimor {

class TreeForm : public QDialog {
  Q_OBJECT

 public:
  // `help` shows the view's help topic (F1 and the Help button).
  TreeForm(QWidget* parent, const std::vector<TreeViewEntry>& entries, std::function<void()> help);
  QTreeWidget* View() const { return view_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QTreeWidget* view_;
  std::function<void()> help_;
};

}  // namespace tavimor
