#include "shell/settings.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "numerics/checked.h"
#include "numerics/number_text.h"
#include "platform/files.h"

namespace tessara {
namespace {

void ShowStoreRefused(Platform& platform) {
  platform.ShowMessage({.title = "Error",
                        .text = "Tessara could not store an option setting.  It stays in force until you close "
                                "Tessara.",
                        .tone = Tone::kWarning});
}

void WriteFirstValues(SettingsStore& store, Platform& platform) {
  bool all_written = true;
  for (const char* name : kSettingNames) all_written = store.Write(name, "0") && all_written;
  if (!all_written) ShowStoreRefused(platform);
}

// The integer that is stored under a name; nothing when there is none.
std::optional<int> ReadInteger(const SettingsStore& store, const char* name) {
  const auto text = store.Read(name);
  const auto number = text ? ParseNumber(*text) : std::nullopt;
  if (!number || *number != RoundHalfEven(*number)) return std::nullopt;
  if (*number < std::numeric_limits<int>::min() || *number > std::numeric_limits<int>::max()) return std::nullopt;
  return static_cast<int>(*number);
}

std::optional<int> ReadToolbarStyle(const SettingsStore& store) {
  const auto style = ReadInteger(store, "Op6");
  return style && *style >= 0 && *style < kToolbarStyles ? style : std::nullopt;
}

Path ReadPath(const SettingsStore& store, const char* name, const Path& default_path) {
  const std::string text = store.Read(name).value_or("");
  return text.empty() || text == "0" ? default_path : PathFromUtf8(text);
}

}  // namespace

Path DefaultDataFolder(const Path& program_folder) { return program_folder / "Data"; }
Path DefaultGlossary(const Path& program_folder) { return program_folder / "Lexicards.lx1"; }

void ReadSettings(Settings& settings, SettingsStore& store, Platform& platform) {
  if (!store.SectionExists()) WriteFirstValues(store, platform);
  Keep(settings.Op3, ReadInteger(store, "Op3"));
  Keep(settings.Op10, ReadInteger(store, "Op10"));
  Keep(settings.Op11, ReadInteger(store, "Op11"));
  Keep(settings.Op12, ReadInteger(store, "Op12"));
  Keep(settings.Op13, ReadInteger(store, "Op13"));
  settings.Op14 = ReadPath(store, "Op14", DefaultDataFolder(platform.ProgramFolder()));
  settings.Op15 = ReadPath(store, "Op15", DefaultGlossary(platform.ProgramFolder()));
  Keep(settings.Op16, ReadInteger(store, "Op16"));
  Keep(settings.Op6, ReadToolbarStyle(store));
  Keep(settings.Op4, ReadInteger(store, "Op4"));
}

void ReadFrameSize(Settings& settings, const SettingsStore& store) {
  Keep(settings.Op7, ReadInteger(store, "Op7"));
  Keep(settings.Op8, ReadInteger(store, "Op8"));
}

void WriteSetting(SettingsStore& store, Platform& platform, const std::string& name, const std::string& value) {
  if (!store.Write(name, value)) ShowStoreRefused(platform);
}

FrameSize FrameSizeToApply(const Settings& settings) {
  if (settings.Op7 == kMinimisedHeight) return {};
  return {std::max(settings.Op8, kMinFrameWidth), std::max(settings.Op7, kMinFrameHeight)};
}

}  // namespace tessara
