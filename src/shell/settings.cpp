#include "shell/settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <optional>

#include "numerics/checked.h"
#include "numerics/number_text.h"
#include "platform/files.h"

namespace tessara {
namespace {

using enum SettingType;
using enum SettingRead;

constexpr SettingRow kRows[] = {
    {.name = "Op3",
     .type = kFlag,
     .first_value = "0",
     .meaning = "0 plays the sound effects, 1 does not",
     .member = &Settings::Op3},
    {.name = "Op10",
     .type = kFlag,
     .first_value = "0",
     .meaning = "0 shows the Output view after each run, 1 does not",
     .member = &Settings::Op10},
    {.name = "Op11",
     .type = kFlag,
     .first_value = "0",
     .meaning = "0 prints the notes caption, 1 does not",
     .member = &Settings::Op11},
    {.name = "Op12",
     .type = kFlag,
     .first_value = "0",
     .meaning = "0 prints the date, 1 does not",
     .member = &Settings::Op12},
    {.name = "Op13",
     .type = kFlag,
     .first_value = "0",
     .meaning = "1 for large icons in the toolbar, 0 for small ones",
     .member = &Settings::Op13},
    {.name = "Op14",
     .type = kPath,
     .first_value = "0",
     .meaning = "The folder of data files",
     .member = &Settings::Op14,
     .default_path = "Data"},
    {.name = "Op15",
     .type = kPath,
     .first_value = "0",
     .meaning = "The glossary file",
     .member = &Settings::Op15,
     .default_path = "Lexicards.lx1"},
    {.name = "Op16",
     .type = kFlag,
     .first_value = "0",
     .meaning = "0 loads the quick tips at the start, 1 does not",
     .member = &Settings::Op16},
    {.name = "Op6",
     .type = kNumber,
     .first_value = "0",
     .meaning = "The toolbar style, 0 to 4",
     .member = &Settings::Op6,
     .least = 0,
     .most = kToolbarStyles - 1},
    {.name = "Op4",
     .type = kFlag,
     .first_value = "0",
     .meaning = "1 shows the help window at the start, 0 does not",
     .member = &Settings::Op4},
    {.name = "UndoMemory",
     .type = kNumber,
     .meaning = "The memory for steps that can be undone, in megabytes; 256 while none is stored",
     .member = &Settings::undo_memory,
     .least = 0,
     .most = kMostUndoMemory},
    {.name = "Op7",
     .type = kNumber,
     .read = kWithFrame,
     .first_value = "0",
     .meaning = "The height of the window in twips, 15 to a pixel; 2 of a window that was closed while minimised",
     .member = &Settings::Op7},
    {.name = "Op8",
     .type = kNumber,
     .read = kWithFrame,
     .first_value = "0",
     .meaning = "The width of the window in twips",
     .member = &Settings::Op8},
    {.name = kWindowPlaceSetting,
     .type = kText,
     .read = kByOwner,
     .meaning = "Where the window stands when it is not maximised, and whether it was"},
    {.name = kZoomSetting,
     .type = kNumber,
     .read = kByOwner,
     .meaning = "The size of type in the views, in percent of the usual one",
     .least = kLeastZoom,
     .most = kMostZoom},
    {.name = kRecentFilesSetting,
     .type = kText,
     .read = kByOwner,
     .meaning = "The data files that were used last, newest first"},
};

void ShowStoreRefused(Platform& platform) {
  platform.ShowMessage({.title = "Error",
                        .text = "Tessara could not store an option setting.  It stays in force until you close "
                                "Tessara.",
                        .tone = Tone::kWarning});
}

void WriteFirstValues(SettingsStore& store, Platform& platform) {
  bool all_written = true;
  for (const SettingRow& row : kRows) {
    if (row.first_value.empty()) continue;
    all_written = store.Write(std::string(row.name), std::string(row.first_value)) && all_written;
  }
  if (!all_written) ShowStoreRefused(platform);
}

// The integer of a text, if it is one within the row's limits.
std::optional<int> IntegerOf(const SettingRow& row, const std::string& text) {
  const auto number = ParseNumber(text);
  if (!number || *number != RoundHalfEven(*number)) return std::nullopt;
  if (*number < row.least || *number > row.most) return std::nullopt;
  return static_cast<int>(*number);
}

void ReadSetting(Settings& settings, const SettingRow& row, const SettingsStore& store, const Path& program_folder) {
  const auto text = store.Read(std::string(row.name));
  if (const auto* number = std::get_if<int Settings::*>(&row.member)) {
    if (text) Keep(settings.**number, IntegerOf(row, *text));
  } else if (const auto* path = std::get_if<Path Settings::*>(&row.member)) {
    const bool is_default = !text || text->empty() || *text == "0";
    settings.** path = is_default ? program_folder / row.default_path : PathFromUtf8(*text);
  }
}

}  // namespace

std::span<const SettingRow> SettingRows() { return kRows; }

const SettingRow* FindSetting(std::string_view name) {
  const auto* const found = std::ranges::find(kRows, name, &SettingRow::name);
  return found == std::end(kRows) ? nullptr : found;
}

void ReadSettings(Settings& settings, SettingsStore& store, Platform& platform) {
  if (!store.SectionExists()) WriteFirstValues(store, platform);
  for (const SettingRow& row : kRows) {
    if (row.read == kAtStart) ReadSetting(settings, row, store, platform.ProgramFolder());
  }
}

void ReadFrameSize(Settings& settings, const SettingsStore& store) {
  for (const SettingRow& row : kRows) {
    if (row.read == kWithFrame) ReadSetting(settings, row, store, {});
  }
}

void WriteSetting(SettingsStore& store, Platform& platform, const std::string& name, const std::string& value) {
  if (!store.Write(name, value)) ShowStoreRefused(platform);
}

bool WriteSettings(SettingsStore& store, Platform& platform, std::span<const StoredSetting> values) {
  bool all_written = true;
  for (const auto& [name, value] : values) all_written = store.Write(name, value) && all_written;
  if (!all_written) ShowStoreRefused(platform);
  return all_written;
}

FrameSize FrameSizeToApply(const Settings& settings) {
  if (settings.Op7 == kMinimisedHeight) return {};
  return {std::max(settings.Op8, kMinFrameWidth), std::max(settings.Op7, kMinFrameHeight)};
}

std::string WindowPlaceText(const WindowPlace& place) {
  std::string text;
  for (const int number : {place.x, place.y, place.width, place.height, place.maximised ? 1 : 0}) {
    if (!text.empty()) text += ' ';
    text += std::to_string(number);
  }
  return text;
}

std::optional<WindowPlace> WindowPlaceOf(std::string_view text) {
  std::array<int, 5> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0) {
      if (!text.starts_with(' ')) return std::nullopt;
      text.remove_prefix(1);
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), numbers[i]);
    if (error != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  }
  const auto& [x, y, width, height, maximised] = numbers;
  if (!text.empty() || width <= 0 || height <= 0 || maximised < 0 || maximised > 1) return std::nullopt;
  return WindowPlace{x, y, width, height, maximised == 1};
}

}  // namespace tessara
