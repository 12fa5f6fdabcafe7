// The options and recent files kept between runs in a per-user store of sections and keys.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>

#include "core/session.h"

namespace tavimor {

// A per-user key-value store: section, key, text. Keys are not case-sensitive.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::optional<std::string> Get(const std::string& section, const std::string& key) = 0;
  virtual void Set(const std::string& section, const std::string& key,
                   const std::string& value) = 0;
};

// A store in memory, for tests and for a run that keeps nothing.
class MemorySettings : public SettingsStore {
 public:
  std::optional<std::string> Get(const std::string& section, const std::string& key) override;
  void Set(const std::string& section, const std::string& key, const std::string& value) override;
  std::map<std::string, std::string> values;  // "section/key" in lower case
};

// The application name of the store: "Tavimor " and the major and minor version.
std::string SettingsApplicationName();

// At start: an empty or missing "Unknown" means the first run, which takes the first-run values
// and the two sample files beside the program as the first recent files (nothing is written
// until exit). Otherwise every key is read; a key that cannot be read leaves its option as it is.
// Returns whether this was the first run.
bool LoadSettings(Session& s, SettingsStore& store, const std::string& program_directory,
                  std::array<std::string, 4>& recent);
// At exit: every key in its order, flags as "True" or "False"; the form's size only while the
// window state is normal; the recent files.
void SaveSettings(const Session& s, SettingsStore& store, const std::array<std::string, 4>& recent);

}  // namespace tavimor
