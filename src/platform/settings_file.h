#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/path.h"
#include "platform/settings_store.h"

// The settings in a file of the user's configuration folder, in the common form of such files: a group in brackets,
// then lines of name and value.
//
//     [Software]
//     Tessara5\Options\Op3="0"
//
// A name is escaped with % and hexadecimal digits, a value stands in quotes and is escaped with backslashes, as in C.
// What else the file holds stays as it is. It is written anew at each change, by way of the safe writer.

namespace tessara {

class SettingsFile : public SettingsStore {
 public:
  explicit SettingsFile(Path path);

  bool SectionExists() const override;
  std::optional<std::string> Read(const std::string& name) const override;
  bool Write(const std::string& name, const std::string& value) override;

 private:
  Path path_;
  std::string text_;      // of the file, as it was read or written last
  bool readable_ = true;  // otherwise nothing is written over what stands there
};

// The parts of a line, for those who want to look at one.
std::string EscapedSettingName(std::string_view name);
std::string QuotedSettingValue(std::string_view value);
std::string SettingValue(std::string_view written);

}  // namespace tessara
