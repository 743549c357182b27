#pragma once

#include <array>
#include <string>

#include "platform/platform.h"
#include "platform/settings_store.h"

// The settings at run time. A flag stored as 0 means that the option is on, but for Op4 and Op13.

namespace tessara {

struct Settings {
  int Op3 = 0;   // 0 sounds on
  int Op4 = 0;   // 1 shows the help pane at start
  int Op6 = 0;   // toolbar style, 0 to 4
  int Op7 = 0;   // frame height in twips; 2 stands for a minimised frame
  int Op8 = 0;   // frame width in twips
  int Op10 = 0;  // 0 shows the Output view after each run
  int Op11 = 0;  // 0 prints the notes caption
  int Op12 = 0;  // 0 prints the date
  int Op13 = 0;  // 1 large toolbar icons
  Path Op14;     // folder of data files
  Path Op15;     // path of the glossary file
  int Op16 = 0;  // 0 loads the quick tips module at start

  bool sounds() const { return Op3 == 0; }
  bool help_pane_at_start() const { return Op4 == 1; }
  bool show_output() const { return Op10 == 0; }
  bool notes_caption() const { return Op11 == 0; }
  bool print_date() const { return Op12 == 0; }
  bool large_icons() const { return Op13 == 1; }
  bool quick_tips() const { return Op16 == 0; }
};

// Every name of the section.
inline constexpr std::array<const char*, 12> kSettingNames = {"Op3",  "Op4",  "Op6",  "Op7",  "Op8",  "Op10",
                                                              "Op11", "Op12", "Op13", "Op14", "Op15", "Op16"};

inline constexpr int kToolbarStyles = 5;

// The data folder and the glossary below the program folder, in force while none is stored.
Path DefaultDataFolder(const Path& program_folder);
Path DefaultGlossary(const Path& program_folder);

// Writes 0 for every name when the section does not exist, then reads all values but Op7 and Op8. An empty value or "0"
// for the data folder or the glossary gives the default below the program folder. A value that is missing, is not an
// integer or is no toolbar style leaves the member as it was. A store that refuses the first values shows one box.
void ReadSettings(Settings& settings, SettingsStore& store, Platform& platform);

// Reads Op7 and Op8, which are needed only when the frame takes its size.
void ReadFrameSize(Settings& settings, const SettingsStore& store);

// Writes one value; a store that refuses shows a box, and the value in memory stands. Paths are stored in UTF-8.
void WriteSetting(SettingsStore& store, Platform& platform, const std::string& name, const std::string& value);

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

}  // namespace tessara
