// Making a validated input the work item: the pool anew, the sides parsed into nodes 2 and 3.
#include "shell/load_item.h"

#include "core/input_split.h"
#include "core/node_pool.h"
#include "core/validate.h"

namespace tavimor {

ItemShape LoadItemTrees(Session& s, const std::string& input) {
  s.HelpNumber = 0;
  InitFunctionTable(s);
  InitNodePool(s);
  // The sides set as text, the answers kept and the texts parsed belong to the item they were
  // worked out for (a batch that loads the same items again then does all their work again).
  s.SetSidesOfItem.reset();
  s.KeptAnswers.clear();
  s.ParsedTexts.clear();
  NewNode(s);  // node 2
  NewNode(s);  // node 3
  s.EquationList.clear();
  if (input.find(';') != std::string::npos) {
    for (const ItemSides& item : SplitInput(input)) {
      s.EquationList.push_back({item.left, item.right, "", ""});
    }
    return ItemShape::SetOfEquations;
  }
  std::string text = input;
  RemoveSpaces(text);
  const ItemSides sides = SplitInput(text).front();
  LoadSide(s, kLeftRoot, sides.left);
  if (sides.right.empty()) return ItemShape::Expression;
  LoadSide(s, kRightRoot, sides.right);
  s.EquationList.push_back({s.Pool[kLeftRoot].Text, s.Pool[kRightRoot].Text, "", ""});
  return ItemShape::Equation;
}

}  // namespace tavimor
