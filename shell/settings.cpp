// The options and recent files kept between runs in a per-user store of sections and keys.
#include "shell/settings.h"

#include <algorithm>
#include <cctype>

#include "shell/option_keys.h"
#include "shell/version.h"

namespace tavimor {

namespace {

constexpr const char* kParameters = "Parameters";
constexpr const char* kRecentFiles = "Recent Files";

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

std::string RecentKey(int i) { return "RecentFile" + std::to_string(i); }

}  // namespace

std::optional<std::string> MemorySettings::Get(const std::string& section, const std::string& key) {
  const auto it = values.find(Lower(section + "/" + key));
  if (it == values.end()) return std::nullopt;
  return it->second;
}

void MemorySettings::Set(const std::string& section, const std::string& key,
                         const std::string& value) {
  values[Lower(section + "/" + key)] = value;
}

std::string SettingsApplicationName() { return std::string("Tavimor ") + kProgramVersion; }

bool LoadSettings(Session& s, SettingsStore& store, const std::string& program_directory,
                  std::array<std::string, 4>& recent) {
  const std::string unknown = store.Get(kParameters, "Unknown").value_or("");
  if (unknown.empty()) {
    s.SetFirstRunOptions();
    recent = {program_directory + "/samples.txt", program_directory + "/trig ids.txt", "", ""};
    return true;
  }
  for (const std::string& key : OptionKeys()) {
    // The graph settings are read under the key "Graphparms"; the store is not case-sensitive.
    const std::string read_key = key == "GraphParms" ? "Graphparms" : key;
    if (const std::optional<std::string> value = store.Get(kParameters, read_key)) {
      std::string error;
      SetOptionFromText(s, key, *value, false, error);
    }
  }
  s.SolveDetail = s.SolveDetailDefault;
  for (int i = 1; i <= 4; ++i) {
    recent[static_cast<std::size_t>(i - 1)] = store.Get(kRecentFiles, RecentKey(i)).value_or("");
  }
  return false;
}

void SaveSettings(const Session& s, SettingsStore& store,
                  const std::array<std::string, 4>& recent) {
  for (const std::string& key : OptionKeys()) {
    const bool size_key = key == "Form width" || key == "Form height";
    if (size_key && s.FormWindowState != 0) continue;  // only while the window state is normal
    store.Set(kParameters, key, OptionText(s, key));
  }
  for (int i = 1; i <= 4; ++i) {
    store.Set(kRecentFiles, RecentKey(i), recent[static_cast<std::size_t>(i - 1)]);
  }
}

}  // namespace tavimor
