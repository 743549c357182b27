#pragma once

#include <memory>

#include "platform/settings_store.h"

class QString;

// The settings where the user's system keeps such things: the registry, or a file of the user's configuration folder.
// The values stand in the section Software/Tessara5/Options under their Op names.

namespace tessara {

class QtSettingsStore : public SettingsStore {
 public:
  QtSettingsStore();
  // In a file of its own.
  explicit QtSettingsStore(const QString& file);

  bool SectionExists() const override { return store_->SectionExists(); }
  std::optional<std::string> Read(const std::string& name) const override { return store_->Read(name); }
  bool Write(const std::string& name, const std::string& value) override { return store_->Write(name, value); }

 private:
  std::unique_ptr<SettingsStore> store_;
};

}  // namespace tessara
