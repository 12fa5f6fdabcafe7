// The buttons of the Number panel: the significant-figures dialog and the prime-factor dialog.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Each opens its dialog on the loaded number and writes its result to the work space. Returns
// the error message shown, or empty.
std::string cmdSigFigs(Session& s, bool right_button);
std::string cmdFactor(Session& s, bool right_button);

}  // namespace tavimor
