#include "window/system/qt_settings_store.h"

#include <QSettings>

#include "platform/settings_file.h"
#include "window/widgets/text.h"

namespace tessara {

#if defined(_WIN32)
namespace {

// The registry has the section as its own path below the user's hive.
class RegistryStore : public SettingsStore {
 public:
  bool SectionExists() const override { return !settings_.childKeys().isEmpty(); }
  std::optional<std::string> Read(const std::string& name) const override {
    const QVariant value = settings_.value(QString::fromStdString(name));
    if (!value.isValid()) return std::nullopt;
    return value.toString().toStdString();
  }
  bool Write(const std::string& name, const std::string& value) override {
    settings_.setValue(QString::fromStdString(name), QString::fromStdString(value));
    settings_.sync();
    return settings_.status() == QSettings::NoError;
  }

 private:
  QSettings settings_{QSettings::UserScope, "Tessara5", "Options"};
};

}  // namespace

QtSettingsStore::QtSettingsStore() : store_(std::make_unique<RegistryStore>()) {}
#else
QtSettingsStore::QtSettingsStore()
    : QtSettingsStore(QSettings(QSettings::UserScope, "Tessara", "Tessara").fileName()) {}
#endif

QtSettingsStore::QtSettingsStore(const QString& file) : store_(std::make_unique<SettingsFile>(PathFromQt(file))) {}

}  // namespace tessara
