// The Evaluate button: values for the letters are asked for, put in, and the side simplified
// to a number, which one sentence tells.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The work of the button on the side: the sentence written, or nothing after a Cancel. False
// with `result` empty when the student cancelled; the sides are as they were afterwards.
bool EvaluateCommand(Session& s, NodeIdx side, std::string& result);
// The button's frame: a failure gives "Error in Evaluate." or the mathematical error's own
// sentence; returns that message, or empty.
std::string cmdEvaluate(Session& s);

}  // namespace tavimor
