// The options by the keys and text forms they have in the settings store's "Parameters" section.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// The keys in the order they are written.
std::vector<std::string> OptionKeys();

// The text form of the option under `key` (flags "True" or "False"); empty for an unknown key.
std::string OptionText(const Session& s, const std::string& key);

// Sets the option under `key` (any case) from its text form. As the settings store reads it, a
// flag is true only for "True" and an unreadable value leaves the option as it is. With
// `strict`, as a person types it, a value of the wrong form or range is refused instead and
// flags take true/false in any case. False with `error` set when refused or the key is unknown.
bool SetOptionFromText(Session& s, const std::string& key, const std::string& value, bool strict,
                       std::string& error);

}  // namespace tavimor
