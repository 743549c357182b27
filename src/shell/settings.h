#pragma once

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "platform/platform.h"
#include "platform/settings_store.h"

// The settings at run time. A flag stored as 0 means that the option is on, but for Op4 and Op13.

namespace tessara {

inline constexpr int kUsualUndoMemory = 256;
inline constexpr int kMostUndoMemory = 65536;

struct Settings {
  int Op3 = 0;                         // 0 sounds on
  int Op4 = 0;                         // 1 shows the help pane at start
  int Op6 = 0;                         // toolbar style, 0 to 4
  int Op7 = 0;                         // frame height in twips; 2 stands for a minimised frame
  int Op8 = 0;                         // frame width in twips
  int Op10 = 0;                        // 0 shows the Output view after each run
  int Op11 = 0;                        // 0 prints the notes caption
  int Op12 = 0;                        // 0 prints the date
  int Op13 = 0;                        // 1 large toolbar icons
  Path Op14;                           // folder of data files
  Path Op15;                           // path of the glossary file
  int Op16 = 0;                        // 0 loads the quick tips module at start
  int undo_memory = kUsualUndoMemory;  // megabytes that the steps to undo may hold

  bool sounds() const { return Op3 == 0; }
  bool help_pane_at_start() const { return Op4 == 1; }
  bool show_output() const { return Op10 == 0; }
  bool notes_caption() const { return Op11 == 0; }
  bool print_date() const { return Op12 == 0; }
  bool large_icons() const { return Op13 == 1; }
  bool quick_tips() const { return Op16 == 0; }
};

inline constexpr int kToolbarStyles = 5;

enum class SettingType {
  kFlag,    // 0 or 1
  kNumber,  // an integer
  kPath,    // in UTF-8; "" and "0" mean the default
  kText,    // in a form of its own
};

// When a setting is read.
enum class SettingRead {
  kAtStart,
  kWithFrame,  // when the frame takes its size
  kByOwner,    // the part of the window that keeps it reads it
};

struct SettingRow {
  std::string_view name;
  SettingType type = SettingType::kNumber;
  SettingRead read = SettingRead::kAtStart;
  std::string_view first_value = {};  // written at the first start; empty: nothing until there is something to keep
  std::string_view meaning;
  std::variant<std::monostate, int Settings::*, Path Settings::*> member = {};  // where its value stands at run time
  int least = std::numeric_limits<int>::min();                                  // a number beyond these is none
  int most = std::numeric_limits<int>::max();
  std::string_view default_path = {};  // below the program folder
};

inline constexpr std::string_view kRecentFilesSetting = "RecentFiles";
inline constexpr std::string_view kWindowPlaceSetting = "WindowPlace";
inline constexpr std::string_view kZoomSetting = "Zoom";
inline constexpr int kLeastZoom = 40;  // percent
inline constexpr int kMostZoom = 400;

// Every setting, in the order in which they are read.
std::span<const SettingRow> SettingRows();
// nullptr when there is no setting of that name.
const SettingRow* FindSetting(std::string_view name);

// Writes the first values when the section does not exist, then reads what is read at the start. An empty value or "0"
// of a path gives the default below the program folder. A value that is missing, is not an integer or is out of range
// leaves the member as it was. A store that refuses the first values shows one box.
void ReadSettings(Settings& settings, SettingsStore& store, Platform& platform);

// Reads Op7 and Op8, which are needed only when the frame takes its size.
void ReadFrameSize(Settings& settings, const SettingsStore& store);

// Writes one value; a store that refuses shows a box, and the value in memory stands. Paths are stored in UTF-8.
void WriteSetting(SettingsStore& store, Platform& platform, const std::string& name, const std::string& value);

struct StoredSetting {
  std::string name;
  std::string value;
};
// Writes several in their order. False when the store has refused any of them; that shows one box.
bool WriteSettings(SettingsStore& store, Platform& platform, std::span<const StoredSetting> values);

// The least and default frame size, and the size to give to the frame, in twips (15 to a logical pixel).
inline constexpr int kMinFrameWidth = 9800;
inline constexpr int kMinFrameHeight = 7400;
inline constexpr int kTwipsPerPixel = 15;
inline constexpr int kMinimisedHeight = 2;

struct FrameSize {
  int width = kMinFrameWidth;
  int height = kMinFrameHeight;

  friend bool operator==(const FrameSize&, const FrameSize&) = default;
};
// The stored size, each side raised to the least one; a stored height of 2 leaves the default size in force.
FrameSize FrameSizeToApply(const Settings& settings);

// Where the frame stood, in logical pixels of the desktop: the place and size that it has when it is not maximised.
struct WindowPlace {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  bool maximised = false;

  friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};
// Five numbers with blanks between them. Nothing when a text is no such place.
std::string WindowPlaceText(const WindowPlace& place);
std::optional<WindowPlace> WindowPlaceOf(std::string_view text);

}  // namespace tessara
