// The program's version, as the caption and the settings store name it.
#pragma once

namespace tavimor {

inline constexpr const char* kProgramVersion = "0.1";

}  // namespace tavimor
