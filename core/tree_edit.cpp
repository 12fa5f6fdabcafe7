// Putting new text into a node of a tree and parsing it into place.
#include "core/tree_edit.h"

#include "core/brackets.h"
#include "core/node_pool.h"
#include "core/parse.h"

namespace tavimor {

void ReplaceNodeContents(Session& s, NodeIdx n, const std::string& text) {
  const std::string inner = StripBrackets(text);
  ExprNode& node = s.Pool[n];
  if (node.Kind == kKindFunction) {
    const std::size_t open = node.Text.find('(');
    node.Text = node.Text.substr(0, open == std::string::npos ? node.Text.size() : open) + "(" +
                inner + ")";
  } else {
    node.Text = "(" + inner + ")";
  }
  FreeChildren(s, n);
  ParseTree(s, n);
}

}  // namespace tavimor
