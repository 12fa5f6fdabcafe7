// A session for tests of the simplify loop: a whole silent Simplify of a text, or the first
// firing of one pass, with the message, level and outcome kept.
#pragma once

#include <string>

#include "core/regenerate.h"
#include "simplify/simplify_driver.h"
#include "support/session_fixture.h"

namespace tavimor {

class SimplifyTest : public SessionTest {
 protected:
  // Simplifies a text silently on a node of its own; the last message and the level come out.
  std::string Run(const std::string& text) {
    NodeIdx root = Load(text);
    s.DetailNow = 0;
    result = SimplifyTree(s, root, level);
    return N(root).Text;
  }
  // The first firing of a pass over a tree of the text, its message kept in Message.
  std::string OnePass(const std::string& text, int pass) {
    NodeIdx root = Load(text);
    fired = ApplyPassToTree(s, pass, root);
    RegenerateAll(s, root);
    return N(root).Text;
  }
  int level = -1;
  bool result = false;
  bool fired = false;
};

}  // namespace tavimor
