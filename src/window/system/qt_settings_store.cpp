#include "window/system/qt_settings_store.h"

namespace tessara {
namespace {

constexpr const char* kSection = "Software/Tessara5/Options";

}  // namespace

#if defined(_WIN32)
// The registry has the section as its own path below the user's hive.
QtSettingsStore::QtSettingsStore() : settings_(QSettings::UserScope, "Tessara5", "Options") {}
#else
QtSettingsStore::QtSettingsStore() : settings_(QSettings::UserScope, "Tessara", "Tessara") {
  settings_.beginGroup(kSection);
}
#endif

QtSettingsStore::QtSettingsStore(const QString& file) : settings_(file, QSettings::IniFormat) {
  settings_.beginGroup(kSection);
}

bool QtSettingsStore::SectionExists() const { return !settings_.childKeys().isEmpty(); }

std::optional<std::string> QtSettingsStore::Read(const std::string& name) const {
  const QVariant value = settings_.value(QString::fromStdString(name));
  if (!value.isValid()) return std::nullopt;
  return value.toString().toStdString();
}

bool QtSettingsStore::Write(const std::string& name, const std::string& value) {
  if (!settings_.isWritable()) return false;
  settings_.setValue(QString::fromStdString(name), QString::fromStdString(value));
  settings_.sync();
  return settings_.status() == QSettings::NoError;
}

}  // namespace tessara
