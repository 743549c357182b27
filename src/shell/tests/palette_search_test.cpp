#include "shell/palette_search.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

PaletteEntry Entry(std::string caption, std::string where = "", PaletteTarget target = VariableTarget{1}) {
  PaletteEntry entry;
  entry.target = std::move(target);
  entry.caption = std::move(caption);
  entry.where = std::move(where);
  MakeSearchable(entry);
  return entry;
}

std::vector<PaletteEntry> Entries(const std::vector<std::string>& captions) {
  std::vector<PaletteEntry> entries;
  for (const std::string& caption : captions) entries.push_back(Entry(caption));
  return entries;
}

// The captions that a text finds, in their order.
std::vector<std::string> Found(const std::vector<PaletteEntry>& entries, std::string_view text) {
  std::vector<std::string> captions;
  for (const std::size_t place : FindInPalette(entries, text)) captions.push_back(entries[place].caption);
  return captions;
}

using Captions = std::vector<std::string>;

TEST(SearchKey, CaseAndAccentsDoNotCount) {
  EXPECT_EQ(SearchKey("Open Data File"), "open data file");
  EXPECT_EQ(SearchKey("\xC9t\xE9 \xDC"
                      "ber \xD8re na\xEFve \x8Ero"),
            "ete uber ore naive zro");
  EXPECT_EQ(SearchKey("p-value (2-tailed)"), "p value 2 tailed");
  EXPECT_EQ(SearchKey("  Q1_age\t\x01.  "), "q1 age");
  EXPECT_EQ(SearchKey("\xD7\xF7\x93\x94"), "");
  EXPECT_EQ(SearchKey("\xFF\x9F\xDD"), "yyy");
}

TEST(FindInPalette, TheBestFitsComeFirst) {
  const auto entries = Entries({"Reopen a file", "Data file, open", "Open Data File", "Compare a pen", "Open", "Stop"});
  // The whole caption, one that begins so, a word that does; letters in their order: c-o-mpare a p-en.
  EXPECT_EQ(Found(entries, "open"),
            (Captions{"Open", "Open Data File", "Data file, open", "Reopen a file", "Compare a pen"}));
}

TEST(FindInPalette, PiecesBeginWordsInTheirOrder) {
  auto entries = Entries({"File of open data", "Open Data File"});
  EXPECT_EQ(Found(entries, "op fi"), (Captions{"Open Data File", "File of open data"}));
  EXPECT_EQ(Found(entries, "fi op"), (Captions{"File of open data", "Open Data File"}));
  EXPECT_EQ(Found(entries, "op xy"), Captions());
}

TEST(FindInPalette, WhatStandsBesideIsFoundToo) {
  const std::vector<PaletteEntry> entries = {Entry("Print", "File \xB7 Output"), Entry("Print", "File \xB7 Charts"),
                                             Entry("AGE", "How old is the child?")};
  EXPECT_EQ(FindInPalette(entries, "print chart"), (std::vector<std::size_t>{1}));
  EXPECT_EQ(FindInPalette(entries, "print"), (std::vector<std::size_t>{0, 1}));
  EXPECT_EQ(FindInPalette(entries, "old child"), (std::vector<std::size_t>{2}));
}

TEST(FindInPalette, LettersInTheirOrderComeLast) {
  const auto entries = Entries({"T-test", "Two Sample Means", "Test"});
  EXPECT_EQ(Found(entries, "tsm"), (Captions{"Two Sample Means"}));
  EXPECT_EQ(Found(entries, "ttest"), (Captions{"T-test"}));
  for (const char* text : {"t-test", "t test"}) EXPECT_EQ(Found(entries, text), (Captions{"T-test", "Test"})) << text;
  EXPECT_EQ(Found(entries, "mst"), Captions());
}

TEST(FindInPalette, EqualFitsKeepTheirOrder) {
  const auto entries = Entries({"Copy b", "Copy a", "COPY C"});
  EXPECT_EQ(Found(entries, "copy"), (Captions{"Copy b", "Copy a", "COPY C"}));
}

TEST(FindInPalette, WhatCannotBeChosenComesLastOfItsEquals) {
  auto entries = Entries({"Copy a", "Copy b", "Cut, copy"});
  entries[0].enabled = false;
  EXPECT_EQ(Found(entries, "copy"), (Captions{"Copy b", "Copy a", "Cut, copy"}));
}

TEST(FindInPalette, NothingIsFoundByNothing) {
  const auto entries = Entries({"Copy", ""});
  for (const char* text : {"", "  ", "-", "\x01"}) EXPECT_EQ(Found(entries, text), Captions()) << text;
  EXPECT_EQ(Found({}, "copy"), Captions());
}

TEST(FindInPalette, AHugeTextFindsNothingAndATallListIsCut) {
  const auto entries = Entries(std::vector<std::string>(1000, "variable"));
  EXPECT_EQ(Found(entries, std::string(5'000'000, 'v')), Captions());
  EXPECT_EQ(Found(entries, "var").size(), kMostFound);
}

TEST(PaletteHistory, TheLatestChoiceComesFirst) {
  std::vector<PaletteEntry> entries;
  for (int id = 101; id <= 108; ++id) {
    entries.push_back(Entry("Command " + std::to_string(id), "", CommandTarget{id, View::ViewDataGrid}));
  }
  entries.push_back(Entry("Elsewhere", "", CommandTarget{900, View::ViewHandbook}));
  entries.push_back(Entry("Everywhere", "", CommandTarget{901}));
  PaletteHistory history;
  EXPECT_EQ(FirstInPalette(entries, history, View::ViewHandbook), (std::vector<std::size_t>{8}));
  NoteChoice(history, entries[2]);
  NoteChoice(history, entries[9]);
  NoteChoice(history, entries[2]);
  EXPECT_EQ(FirstInPalette(entries, history, View::ViewDataGrid),
            (std::vector<std::size_t>{2, 9, 0, 1, 3, 4, 5, 6, 7}));
  for (std::size_t i = 0; i < 8; ++i) NoteChoice(history, entries[i]);
  EXPECT_EQ(history.choices.size(), PaletteHistory::kMost);
  EXPECT_EQ(history.choices.front().caption, "Command 108");
}

TEST(PaletteHistory, AColumnThatHasBecomeAnotherVariableIsNoChoiceOfBefore) {
  std::vector<PaletteEntry> entries = {Entry("AGE", "", VariableTarget{1})};
  PaletteHistory history;
  NoteChoice(history, entries[0]);
  EXPECT_EQ(FirstInPalette(entries, history, View::ViewOutput).size(), 1u);
  entries[0].caption = "WEIGHT";
  EXPECT_TRUE(FirstInPalette(entries, history, View::ViewOutput).empty());
}

}  // namespace
}  // namespace tessara
