#pragma once

#include <QSettings>

#include "platform/settings_store.h"

// The settings where the user's system keeps such things: the registry, a property list or a file of the user's
// configuration folder. The values stand in the section Software/Tessara5/Options under their Op names.

namespace tessara {

class QtSettingsStore : public SettingsStore {
 public:
  QtSettingsStore();
  // In a file of its own.
  explicit QtSettingsStore(const QString& file);

  bool SectionExists() const override;
  std::optional<std::string> Read(const std::string& name) const override;
  bool Write(const std::string& name, const std::string& value) override;

 private:
  QSettings settings_;
};

}  // namespace tessara
