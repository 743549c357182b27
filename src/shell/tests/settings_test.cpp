#include "shell/settings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "platform/scripted_platform.h"

namespace tessara {
namespace {

// A store that notes the order in which it is read and written, and can refuse to write.
class WatchedStore : public MemorySettingsStore {
 public:
  std::optional<std::string> Read(const std::string& name) const override {
    reads.push_back(name);
    return MemorySettingsStore::Read(name);
  }
  bool Write(const std::string& name, const std::string& value) override {
    writes.push_back(name);
    return !refuses && MemorySettingsStore::Write(name, value);
  }

  mutable std::vector<std::string> reads;
  std::vector<std::string> writes;
  bool refuses = false;
};

class StoredSettings : public testing::Test {
 protected:
  void Read() { ReadSettings(settings, store, platform); }
  void Store(const std::string& name, const std::string& value) { ASSERT_TRUE(store.Write(name, value)); }

  ScriptedPlatform platform;
  WatchedStore store;
  Settings settings;
};

using Names = std::vector<std::string>;

TEST_F(StoredSettings, FirstStartWrites0ForEveryName) {
  Read();
  std::ranges::sort(store.writes);
  EXPECT_EQ(store.writes,
            (Names{"Op10", "Op11", "Op12", "Op13", "Op14", "Op15", "Op16", "Op3", "Op4", "Op6", "Op7", "Op8"}));
  for (const std::string& name : store.writes) EXPECT_EQ(store.MemorySettingsStore::Read(name), "0") << name;
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(StoredSettings, FirstStartHasEveryOptionOnAndSmallIcons) {
  Read();
  EXPECT_TRUE(settings.sounds());
  EXPECT_TRUE(settings.show_output());
  EXPECT_TRUE(settings.notes_caption());
  EXPECT_TRUE(settings.print_date());
  EXPECT_TRUE(settings.quick_tips());
  EXPECT_FALSE(settings.large_icons());
  EXPECT_FALSE(settings.help_pane_at_start());
  EXPECT_EQ(settings.Op6, 0);
}

TEST_F(StoredSettings, FirstStartHasTheFoldersOfTheProgram) {
  Read();
  EXPECT_EQ(settings.Op14, platform.program_folder / "Data");
  EXPECT_EQ(settings.Op15, platform.program_folder / "Lexicards.lx1");
}

TEST_F(StoredSettings, LaterStartWritesNothing) {
  Store("Op3", "1");
  store.writes.clear();
  Read();
  EXPECT_TRUE(store.writes.empty());
  EXPECT_FALSE(settings.sounds());
}

TEST_F(StoredSettings, AreReadInTheirOrderWithoutTheFrameSize) {
  Store("Op3", "0");
  Read();
  EXPECT_EQ(store.reads,
            (Names{"Op3", "Op10", "Op11", "Op12", "Op13", "Op14", "Op15", "Op16", "Op6", "Op4", "UndoMemory"}));
}

TEST_F(StoredSettings, StoredFlagsTurnOptionsOff) {
  for (const char* name : {"Op3", "Op4", "Op10", "Op11", "Op12", "Op13", "Op16"}) Store(name, "1");
  Store("Op6", "4");
  Read();
  EXPECT_FALSE(settings.sounds());
  EXPECT_TRUE(settings.help_pane_at_start());
  EXPECT_FALSE(settings.show_output());
  EXPECT_FALSE(settings.notes_caption());
  EXPECT_FALSE(settings.print_date());
  EXPECT_TRUE(settings.large_icons());
  EXPECT_FALSE(settings.quick_tips());
  EXPECT_EQ(settings.Op6, 4);
}

TEST_F(StoredSettings, StoredPathsAreTaken) {
  Store("Op14", "/home/user/My Data");
  Store("Op15", "/home/user/caf\xC3\xA9.lx1");
  Read();
  EXPECT_EQ(settings.Op14, Path("/home/user/My Data"));
  EXPECT_EQ(settings.Op15, Path(u8"/home/user/caf\u00E9.lx1"));
}

TEST_F(StoredSettings, EmptyPathOr0GivesTheDefault) {
  for (const char* text : {"", "0"}) {
    Store("Op14", text);
    Store("Op15", text);
    Read();
    EXPECT_EQ(settings.Op14, platform.program_folder / "Data");
    EXPECT_EQ(settings.Op15, platform.program_folder / "Lexicards.lx1");
  }
}

TEST_F(StoredSettings, MissingNamesGiveTheDefaults) {
  Store("Op3", "1");
  Read();
  EXPECT_TRUE(settings.show_output());
  EXPECT_EQ(settings.Op6, 0);
  EXPECT_EQ(settings.Op14, platform.program_folder / "Data");
  EXPECT_EQ(settings.Op15, platform.program_folder / "Lexicards.lx1");
}

TEST_F(StoredSettings, TextThatIsNoIntegerGivesTheDefault) {
  for (const char* text : {"", "on", "1.5", "1e99", "99999999999", "\xFF"}) {
    for (const char* name : {"Op3", "Op4", "Op6", "Op10", "Op11", "Op12", "Op13", "Op16", "Op7", "Op8"}) {
      Store(name, text);
    }
    Settings read;
    ReadSettings(read, store, platform);
    ReadFrameSize(read, store);
    for (const int value :
         {read.Op3, read.Op4, read.Op6, read.Op7, read.Op8, read.Op10, read.Op11, read.Op12, read.Op13, read.Op16}) {
      EXPECT_EQ(value, 0) << text;
    }
  }
}

TEST_F(StoredSettings, UnknownToolbarStyleGivesTheDefault) {
  for (const char* text : {"5", "-1", "700"}) {
    Store("Op6", text);
    Read();
    EXPECT_EQ(settings.Op6, 0) << text;
  }
}

TEST_F(StoredSettings, MemoryForUndoIsANumberOfMegabytes) {
  Store("Op3", "0");
  for (const char* text : {"", "-1", "65537", "much"}) {
    Store("UndoMemory", text);
    Settings read;
    ReadSettings(read, store, platform);
    EXPECT_EQ(read.undo_memory, 256) << text;
  }
  Store("UndoMemory", "0");
  Read();
  EXPECT_EQ(settings.undo_memory, 0);
}

TEST_F(StoredSettings, WrittenValueIsReadAgain) {
  Read();
  WriteSetting(store, platform, "Op10", "1");
  WriteSetting(store, platform, "Op14", "/d");
  Read();
  EXPECT_FALSE(settings.show_output());
  EXPECT_EQ(settings.Op14, Path("/d"));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(StoredSettings, StoreThatRefusesShowsABox) {
  store.refuses = true;
  settings.Op10 = 1;
  WriteSetting(store, platform, "Op10", "1");
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_EQ(platform.messages[0].buttons, Buttons::kOk);
  EXPECT_EQ(settings.Op10, 1);
}

TEST_F(StoredSettings, StoreThatRefusesTheFirstValuesShowsOneBoxAndTheDefaultsStand) {
  store.refuses = true;
  Read();
  EXPECT_EQ(store.writes.size(), 12u);
  EXPECT_EQ(platform.messages.size(), 1u);
  EXPECT_TRUE(settings.sounds());
  EXPECT_EQ(settings.Op14, platform.program_folder / "Data");
}

TEST_F(StoredSettings, FrameSizeIsReadOnItsOwn) {
  Store("Op7", "9000");
  Store("Op8", "12000");
  Read();
  EXPECT_EQ(settings.Op7, 0);
  ReadFrameSize(settings, store);
  EXPECT_EQ(settings.Op7, 9000);
  EXPECT_EQ(settings.Op8, 12000);
}

struct FrameSizeCase {
  int stored_height;
  int stored_width;
  FrameSize applied;
};

TEST(FrameSize, StoredSizeIsAppliedAndRaisedToTheLeastOne) {
  const std::vector<FrameSizeCase> cases = {
      {9000, 12000, {12000, 9000}}, {7400, 9800, {9800, 7400}},  {7399, 9799, {9800, 7400}},     {0, 0, {9800, 7400}},
      {9000, 100, {9800, 9000}},    {100, 12000, {12000, 7400}}, {32400, 57600, {57600, 32400}}, {-1, -1, {9800, 7400}},
  };
  for (const auto& [height, width, applied] : cases) {
    Settings settings;
    settings.Op7 = height;
    settings.Op8 = width;
    EXPECT_EQ(FrameSizeToApply(settings), applied) << height << " by " << width;
  }
}

TEST(FrameSize, MinimisedFrameLeavesTheDefaultSize) {
  Settings settings;
  settings.Op7 = 2;
  settings.Op8 = 20000;
  EXPECT_EQ(FrameSizeToApply(settings), (FrameSize{9800, 7400}));
}

TEST(WindowPlace, ComesBackFromItsText) {
  for (const WindowPlace& place :
       {WindowPlace{10, 20, 900, 700, false}, WindowPlace{-1920, 0, 653, 493, true}, WindowPlace{0, 0, 1, 1, false}}) {
    EXPECT_EQ(WindowPlaceOf(WindowPlaceText(place)), place);
  }
  EXPECT_EQ(WindowPlaceText({10, -20, 900, 700, true}), "10 -20 900 700 1");
}

TEST(WindowPlace, AnotherTextIsNone) {
  for (const char* text : {"", "0", "1 2 3 4", "1 2 3 4 5", "1 2 0 4 0", "1 2 3 -4 0", "1  2 3 4 0", "1 2 3 4 0 ",
                           "1,2,3,4,0", "99999999999 2 3 4 0", "a b c d e"}) {
    EXPECT_EQ(WindowPlaceOf(text), std::nullopt) << text;
  }
}

// The rows of the table in docs/settings.md: "| `Op3` | flag | 0 | ... |".
std::vector<std::string> DocumentedSettings() {
  std::ifstream page(std::string(TESSARA_SOURCE_DIR) + "/docs/settings.md");
  std::vector<std::string> names;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("| `")) names.push_back(line.substr(3, line.find('`', 3) - 3));
  }
  return names;
}

std::string DocumentedLine(std::string_view name) {
  std::ifstream page(std::string(TESSARA_SOURCE_DIR) + "/docs/settings.md");
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("| `" + std::string(name) + "`")) return line;
  }
  return {};
}

TEST(SettingRows, AreThoseOfTheirPage) {
  const std::vector<std::string> documented = DocumentedSettings();
  for (const std::string& name : documented) EXPECT_TRUE(FindSetting(name)) << name;
  for (const SettingRow& row : SettingRows()) {
    EXPECT_EQ(std::ranges::count(documented, row.name), 1) << row.name;
    const std::string line = DocumentedLine(row.name);
    EXPECT_NE(line.find(row.meaning), std::string::npos) << row.name << ": " << line;
    const bool is_empty = row.first_value.empty();
    EXPECT_NE(line.find(is_empty ? "| none |" : "| " + std::string(row.first_value) + " |"), std::string::npos) << line;
  }
}

TEST(SettingRows, EachStandsOnce) {
  for (const SettingRow& row : SettingRows()) EXPECT_EQ(FindSetting(row.name), &row) << row.name;
  EXPECT_EQ(FindSetting("Op5"), nullptr);
}

}  // namespace
}  // namespace tessara
