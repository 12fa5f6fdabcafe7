// The settings store of the window: an INI file per user, through QSettings.
#include "qt/qt_settings.h"

namespace tavimor {

namespace {

// INI keys are case-sensitive in QSettings; the store is not, so keys are kept in lower case.
QString KeyOf(const std::string& section, const std::string& key) {
  return QString::fromStdString(section + "/" + key).toLower();
}

}  // namespace

QtSettingsStore::QtSettingsStore()
    : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tavimor"),
                QString::fromStdString(SettingsApplicationName())) {}

std::optional<std::string> QtSettingsStore::Get(const std::string& section,
                                                const std::string& key) {
  const QVariant value = settings_.value(KeyOf(section, key));
  if (!value.isValid()) return std::nullopt;
  return value.toString().toStdString();
}

void QtSettingsStore::Set(const std::string& section, const std::string& key,
                          const std::string& value) {
  settings_.setValue(KeyOf(section, key), QString::fromStdString(value));
}

}  // namespace tavimor
