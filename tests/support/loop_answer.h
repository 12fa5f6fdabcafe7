// The rewrite loop's own answer for a text, as the first simplification of a command: the oracle
// the readings that bypass the loop are compared with.
#pragma once

#include <string>

#include "core/session.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

inline std::string LoopAnswer(Session& s, const std::string& text) {
  s.RewriteCount = 0;  // each as the first of a command
  bool changed = false;
  return SimplifyTextByRules(s, text, changed);
}

}  // namespace tavimor
