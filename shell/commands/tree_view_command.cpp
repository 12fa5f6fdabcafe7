// The Tree button: the tree of the side in use, shown in the tree view.
#include "shell/commands/tree_view_command.h"

#include "present/tree_labels.h"
#include "shell/command_frame.h"

namespace tavimor {

std::string cmdTree(Session& s, bool) {
  s.HelpNumber = static_cast<std::int16_t>(kTreeViewHelp);
  s.Screen().ShowTreeView(TreeViewEntries(s, CurrentSide(s)));
  return "";
}

}  // namespace tavimor
