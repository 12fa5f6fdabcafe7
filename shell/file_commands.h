// Opening and saving the algebra list as the File menu does, the same for both front ends: the
// list, the file's name and the flags of unsaved changes kept in step.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// Opens an algebra file (an empty path: a new, unnamed list). The list is read; after a failure
// it is empty and has no name, so that Save can never overwrite the file with it. The flags of
// unsaved changes are cleared, and a list without topics has its problems loaded. Returns false
// with `problem` saying why the file could not be read.
bool OpenAlgebraFile(Session& s, const std::string& path, std::string& problem);
// Saves the list under `path`; after a save the list is named so and has no unsaved changes.
// Returns false with `reason` saying why the file was not saved.
bool SaveAlgebraFile(Session& s, const std::string& path, std::string& reason);

}  // namespace tavimor
