#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

// The per-user store of named settings. The window keeps it where the user's system keeps such things; the batch
// program and tests have one in memory.

namespace tessara {

inline constexpr const char* kSettingsSection = "Software\\Tessara5\\Options";

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  // Whether the section exists at all: before the first start it does not.
  virtual bool SectionExists() const = 0;
  virtual std::optional<std::string> Read(const std::string& name) const = 0;
  // False when the store refuses; the value in force stays as it is in memory.
  virtual bool Write(const std::string& name, const std::string& value) = 0;
};

class MemorySettingsStore : public SettingsStore {
 public:
  bool SectionExists() const override { return !values_.empty(); }
  std::optional<std::string> Read(const std::string& name) const override {
    const auto found = values_.find(name);
    if (found == values_.end()) return std::nullopt;
    return found->second;
  }
  bool Write(const std::string& name, const std::string& value) override {
    values_[name] = value;
    return true;
  }

 private:
  std::map<std::string, std::string> values_;
};

}  // namespace tessara
