// The settings store of the window: an INI file per user, through QSettings.
#pragma once

#include <QSettings>

#include "shell/settings.h"

namespace tavimor {

class QtSettingsStore : public SettingsStore {
 public:
  QtSettingsStore();
  std::optional<std::string> Get(const std::string& section, const std::string& key) override;
  void Set(const std::string& section, const std::string& key, const std::string& value) override;

 private:
  QSettings settings_;
};

}  // namespace tavimor
