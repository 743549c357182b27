#include "platform/settings_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/file_calls.h"
#include "platform/tests/temporary_folder.h"

namespace tessara {
namespace {

TEST(SettingsFile, ThereIsNoSectionUntilTheFirstValue) {
  const TemporaryFolder folder;
  SettingsFile store(folder / "config" / "settings.ini");
  EXPECT_FALSE(store.SectionExists());
  EXPECT_FALSE(store.Read("Op3").has_value());
  EXPECT_TRUE(store.Write("Op3", "-1"));  // makes its folder too
  EXPECT_TRUE(store.SectionExists());
  EXPECT_EQ(store.Read("Op3"), "-1");
  EXPECT_EQ(ContentOf(folder / "config" / "settings.ini"), "[Software]\nTessara5\\Options\\Op3=\"-1\"\n");
}

TEST(SettingsFile, ValuesOfEveryKindSurvive) {
  const TemporaryFolder folder;
  const Path path = folder / "settings.ini";
  const std::vector<std::string> values = {"",
                                           "0",
                                           " blanks ",
                                           "a=b;c,d",
                                           "say \"x\"",
                                           "C:\\Data\\x.dcs",
                                           "@home",
                                           "@@",
                                           "two\nlines\r\n\t",
                                           "[Sect]",
                                           "\x01"
                                           "4F",
                                           "caf\xC3\xA9",
                                           "\x7F"
                                           "a",
                                           std::string("\0z", 2),
                                           "\xFF\xFE",
                                           "%41",
                                           "\\x41"};
  for (std::size_t i = 0; i < values.size(); ++i) SettingsFile(path).Write("V" + std::to_string(i), values[i]);
  const SettingsFile again(path);
  for (std::size_t i = 0; i < values.size(); ++i) EXPECT_EQ(again.Read("V" + std::to_string(i)), values[i]) << i;
}

TEST(SettingsFile, NamesOfEveryKindAreTheirOwn) {
  const TemporaryFolder folder;
  SettingsFile store(folder / "settings.ini");
  for (const char* name : {"Op1", "Op10", "a=b", "a b", "a/b", "a%20b"}) store.Write(name, name);
  const SettingsFile again(folder / "settings.ini");
  for (const char* name : {"Op1", "Op10", "a=b", "a b", "a/b", "a%20b"}) EXPECT_EQ(again.Read(name), name);
}

// As files of this form are written by others: bare values, groups ahead and behind, line ends of another system.
TEST(SettingsFile, ReadsWhatOthersWriteAndKeepsTheRest) {
  const TemporaryFolder folder;
  const Path path = folder.Make("settings.ini",
                                "[General]\r\nx=1\r\n\r\n[Software]\r\nTessara5\\Options\\Op3=7\r\n"
                                "Tessara5\\Options\\Path=\"C:\\\\a, b\\xe9\"\r\nOther\\Op3=9\r\n\r\n[Zoo]\r\n"
                                "Tessara5\\Options\\Op3=5\r\n");
  SettingsFile store(path);
  EXPECT_TRUE(store.SectionExists());
  EXPECT_EQ(store.Read("Op3"), "7");
  EXPECT_EQ(store.Read("Path"), "C:\\a, b\xC3\xA9");
  EXPECT_TRUE(store.Write("Op3", "8"));
  EXPECT_TRUE(store.Write("New", "n"));
  const std::string text = ContentOf(path);
  EXPECT_EQ(SettingsFile(path).Read("Op3"), "8");
  EXPECT_EQ(SettingsFile(path).Read("New"), "n");
  EXPECT_EQ(SettingsFile(path).Read("Path"), "C:\\a, b\xC3\xA9");
  EXPECT_TRUE(text.starts_with("[General]\r\nx=1\r\n"));
  EXPECT_NE(text.find("Other\\Op3=9\r\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("[Zoo]\r\nTessara5\\Options\\Op3=5\r\n"));
}

TEST(SettingsFile, WritesBesideWhatAnotherProgramHasWritten) {
  const TemporaryFolder folder;
  SettingsFile one(folder / "settings.ini");
  SettingsFile other(folder / "settings.ini");
  one.Write("A", "1");
  other.Write("B", "2");
  one.Write("C", "3");
  const SettingsFile again(folder / "settings.ini");
  EXPECT_EQ(again.Read("A"), "1");
  EXPECT_EQ(again.Read("B"), "2");
  EXPECT_EQ(again.Read("C"), "3");
}

TEST(SettingsFile, FullDiskLeavesTheOldFileAndSaysSo) {
  const TemporaryFolder folder;
  SettingsFile store(folder / "settings.ini");
  store.Write("A", "1");
  CallsOfFiles().write = [](int, const char*, std::size_t) -> std::int64_t { return 0; };
  const bool written = store.Write("A", "2");
  CallsOfFiles() = SystemFileCalls();
  EXPECT_FALSE(written);
  EXPECT_EQ(SettingsFile(folder / "settings.ini").Read("A"), "1");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"settings.ini"});
}

TEST(SettingsFile, FileThatCannotBeReadIsNotWrittenOver) {
  const TemporaryFolder folder;
  const Path path = folder.Make("settings.ini", "[Software]\nTessara5\\Options\\A=1\n");
  CallsOfFiles().open = [](const Path& name, FileUse use) {
    return use == FileUse::kRead ? -1 : SystemFileCalls().open(name, use);
  };
  SettingsFile store(path);
  const bool written = store.Write("A", "2");
  CallsOfFiles() = SystemFileCalls();
  EXPECT_FALSE(written);
  EXPECT_EQ(ContentOf(path), "[Software]\nTessara5\\Options\\A=1\n");
}

}  // namespace
}  // namespace tessara
