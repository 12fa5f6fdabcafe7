// The terminal's "tree" command: an item validated and loaded as OK does, its trees printed.
#include "cli/tree_command.h"

#include <ostream>
#include <utility>
#include <vector>

#include "core/input_split.h"
#include "core/message_box.h"
#include "core/node_pool.h"
#include "core/validate.h"
#include "present/tree_labels.h"
#include "shell/load_item.h"

namespace tavimor {

namespace {

constexpr int kInputHelp = 2;

// A side of an item of a set, loaded into a node of its own for printing.
void PrintSideOfSet(Session& s, const std::string& text, std::ostream& out) {
  const NodeIdx n = NewNode(s);
  LoadSide(s, n, text);
  PrintTree(s, n, out);
  FreeChildren(s, n);
  FreeNode(s, n);
}

}  // namespace

void PrintTree(const Session& s, NodeIdx root, std::ostream& out) {
  for (const TreeViewEntry& entry : TreeViewEntries(s, root)) {
    out << std::string(static_cast<std::size_t>(2 * entry.depth), ' ') << entry.label << '\n';
  }
}

int RunTreeCommand(Session& s, std::string item, std::ostream& out) {
  std::string blank_check = item;
  RemoveSpaces(blank_check);
  if (blank_check.empty()) {
    ShowCustomMessage(s, "Nothing to load: the item is empty.", kInputHelp);
    return kExitRefused;
  }
  if (ValidateInput(s, item) != 0) return kExitRefused;
  try {
    const ItemShape shape = LoadItemTrees(s, item);
    if (shape != ItemShape::SetOfEquations) {
      PrintTree(s, kLeftRoot, out);
      if (shape == ItemShape::Equation) {
        out << "=\n";
        PrintTree(s, kRightRoot, out);
      }
      return kExitOk;
    }
    bool first = true;
    for (const EquationRow& row : s.EquationList) {
      if (!first) out << ";\n";
      first = false;
      PrintSideOfSet(s, row[0], out);
      if (!row[1].empty()) {
        out << "=\n";
        PrintSideOfSet(s, row[1], out);
      }
    }
    return kExitOk;
  } catch (const RunTimeError&) {
    ShowCustomMessage(s, "Error in input string.", kInputHelp);
    return kExitRefused;
  }
}

}  // namespace tavimor
