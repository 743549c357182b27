#include "reference/glossary_exchange.h"

#include "reference/tests/glossary_fixture.h"

namespace tessara {
namespace {

using GlossarySearch = GlossaryFixture;

const Notes kWords = {{"Mean", "The sum by the number."}, {"Geometric mean", "The root of the product."}, {"Sum", ""}};

TEST_F(GlossarySearch, FindsInSubjectsAndTexts) {
  Open(GlossaryBytes(kWords));
  EXPECT_EQ(SearchGlossary(glossary, "um", platform), 2);
  EXPECT_EQ(List(), "2 Mean, 4 Sum");
  EXPECT_TRUE(glossary.search_is_on);
  EXPECT_EQ(glossary.notes, 3);
  EXPECT_EQ(glossary.CurrentRecord, 2);
  ExpectSilence();
}

TEST_F(GlossarySearch, CaseCounts) {
  Open(GlossaryBytes(kWords));
  EXPECT_EQ(SearchGlossary(glossary, "mean", platform), 1);
  EXPECT_EQ(List(), "3 Geometric mean");
}

TEST_F(GlossarySearch, BlanksAtTheEndsFindWholeWords) {
  Open(GlossaryBytes(kWords));
  EXPECT_EQ(SearchGlossary(glossary, " Mean ", platform), 1);
  EXPECT_EQ(SearchGlossary(glossary, " mean ", platform), 1);  // at the end of a subject
  EXPECT_EQ(SearchGlossary(glossary, " The ", platform), 2);   // at the beginning of a text
  EXPECT_EQ(SearchGlossary(glossary, " number. ", platform), 1);
}

TEST_F(GlossarySearch, WithoutAMatchTheListStaysAndABoxSaysSo) {
  Open(GlossaryBytes(kWords));
  EXPECT_EQ(SearchGlossary(glossary, "Mode", platform), 0);
  ExpectBox("Tessara", "Sorry...  ' Mode ' not found");
  EXPECT_EQ(List(), "3 Geometric mean, 2 Mean, 4 Sum");
  EXPECT_FALSE(glossary.search_is_on);
  EXPECT_EQ(glossary.found, 0);
}

TEST_F(GlossarySearch, ResetBringsTheWholeListBack) {
  Open(GlossaryBytes(kWords));
  SearchGlossary(glossary, "Sum", platform);
  ResetSearch(glossary);
  EXPECT_EQ(List(), "3 Geometric mean, 2 Mean, 4 Sum");
  EXPECT_FALSE(glossary.search_is_on);
  EXPECT_FALSE(glossary.found.has_value());
}

TEST_F(GlossarySearch, NothingToSearchIsSilent) {
  Open(GlossaryBytes(kWords));
  EXPECT_EQ(SearchGlossary(glossary, "", platform), 0);
  glossary.LastRecord = 1;
  EXPECT_EQ(SearchGlossary(glossary, "Mean", platform), 0);
  ExpectSilence();
}

TEST_F(GlossarySearch, AnEditedNoteIsSavedAndFound) {
  Open(GlossaryBytes(kWords));
  Type("Mean", "Add and divide.");
  EXPECT_EQ(SearchGlossary(glossary, "divide", platform), 1);
  EXPECT_EQ(List(), "2 Mean");
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"Mean", "Add and divide."}, kWords[1], kWords[2]}));
}

TEST_F(GlossarySearch, ASaveKeepsTheMatches) {
  Open(GlossaryBytes(kWords));
  SearchGlossary(glossary, "um", platform);
  Type("Mean", "The sum of all.");
  EXPECT_TRUE(Select("Sum"));
  EXPECT_EQ(List(), "2 Mean, 4 Sum");
  Type("Total", "");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(List(), "2 Mean");
}

using GlossaryImport = GlossaryFixture;

TEST_F(GlossaryImport, LinesBecomeRecordsFrom2On) {
  const Path text = Make("terms.txt", "Mean\tThe sum\tby the number.\r\nMode\r\n\r\nRange\tLargest less smallest.\r\n");
  EXPECT_EQ(ImportGlossary(glossary, text, folder / "Temp.lx1", platform), ImportedGlossary::kImported);
  EXPECT_EQ(Content("Temp.lx1"),
            GlossaryBytes(
                {{"Mean", "The sum\tby the number."}, {"Mode", ""}, {"", ""}, {"Range", "Largest less smallest."}}));
  EXPECT_EQ(List(), "2 Mean, 3 Mode, 5 Range");
  EXPECT_EQ(glossary.GlossaryName, "Temp.lx1");
  EXPECT_EQ(glossary.LastRecord, 5);
  EXPECT_TRUE(IsTemporaryGlossary(glossary));
  ExpectSilence();
}

TEST_F(GlossaryImport, FewerThanTwoLinesAreNoData) {
  Open(GlossaryBytes(kWords));
  for (const char* text : {"", "Mean\tone line", "Mean\tone line\r\n", "\r\n"}) {
    EXPECT_EQ(ImportGlossary(glossary, Make("terms.txt", text), folder / "Temp.lx1", platform),
              ImportedGlossary::kRefused);
    ExpectBox("Error!", "No data found.");
  }
  EXPECT_FALSE(std::filesystem::exists(folder / "Temp.lx1"));
  EXPECT_EQ(glossary.GlossaryName, "notes.lx1");
}

TEST_F(GlossaryImport, ASubjectOf61AndATextAbove3000CharactersAreCut) {
  const Path text = Make("terms.txt", std::string(61, 's') + "\t" + std::string(3001, 't') + "\nb\tc");
  ImportGlossary(glossary, text, folder / "Temp.lx1", platform);
  EXPECT_EQ(Content("Temp.lx1"), GlossaryBytes({{std::string(60, 's'), std::string(3000, 't')}, {"b", "c"}}));
  EXPECT_EQ(platform.notes, std::vector<std::string>{"1 note was cut to 60 characters of subject and 3000 of text"});
}

TEST_F(GlossaryImport, Utf8IsConvertedAndOtherBytesStand) {
  ImportGlossary(glossary, Make("utf8.txt", "\xC3\x84hnlich\tx\nb\t\xE2\x82\xAC"), folder / "Temp.lx1", platform);
  EXPECT_EQ(Content("Temp.lx1"), GlossaryBytes({{"\xC4hnlich", "x"}, {"b", "\x80"}}));
  ImportGlossary(glossary, Make("page.txt", "\xC4hnlich\tx\nb\t\x80"), folder / "Temp.lx1", platform);
  EXPECT_EQ(Content("Temp.lx1"), GlossaryBytes({{"\xC4hnlich", "x"}, {"b", "\x80"}}));
}

TEST_F(GlossaryImport, TheFormerImportIsKept) {
  Make("Temp.lx1", "what stood there");
  ImportGlossary(glossary, Make("terms.txt", "a\nb\n"), folder / "Temp.lx1", platform);
  EXPECT_EQ(Content("Temp (as found).lx1"), "what stood there");
  EXPECT_EQ(Content("Temp.lx1"), GlossaryBytes({{"a", ""}, {"b", ""}}));
  EXPECT_EQ(platform.notes, std::vector<std::string>{"what the file held before is kept as Temp (as found).lx1"});
}

TEST_F(GlossaryImport, MoreLinesThanAGlossaryHoldsAreRefused) {
  std::string text;
  for (int line = 1; line <= 32766; ++line) text += "a\n";
  EXPECT_EQ(ImportGlossary(glossary, Make("most.txt", text), folder / "Temp.lx1", platform),
            ImportedGlossary::kImported);
  EXPECT_EQ(glossary.LastRecord, 32767);
  EXPECT_EQ(ImportGlossary(glossary, Make("more.txt", text + "a\n"), folder / "More.lx1", platform),
            ImportedGlossary::kRefused);
  ExpectBox("Error!", "The text has too many lines: a glossary holds 32766 notes.");
  EXPECT_EQ(glossary.GlossaryName, "Temp.lx1");
}

TEST_F(GlossaryImport, WhatCannotBeReadOrWrittenChangesNothing) {
  Open(GlossaryBytes(kWords));
  EXPECT_EQ(ImportGlossary(glossary, folder / "none.txt", folder / "Temp.lx1", platform), ImportedGlossary::kRefused);
  ExpectBox("Error!", "none.txt cannot be opened.");
  EXPECT_EQ(ImportGlossary(glossary, Make("a.txt", "a\nb"), folder / "nowhere" / "Temp.lx1", platform),
            ImportedGlossary::kNotWritten);
  ExpectSilence();
  EXPECT_EQ(glossary.GlossaryName, "notes.lx1");
}

using GlossaryExport = GlossaryFixture;

TEST_F(GlossaryExport, WritesALineARecordInTheirOrder) {
  Open(GlossaryBytes({{"Mode", "One line\r\nand another"}, {"", ""}, {"Mean", "bare\nends\rtoo"}, {"a\tb", "c\td"}}));
  EXPECT_TRUE(ExportGlossary(glossary, folder / "out.txt", platform));
  EXPECT_EQ(Content("out.txt"), "Mode\tOne line  and another\r\nMean\tbare  ends  too\r\na b\tc\td\r\n");
  ExpectSilence();
}

TEST_F(GlossaryExport, WritesTheNotesOfTheListAlone) {
  Open(GlossaryBytes(kWords));
  SearchGlossary(glossary, "um", platform);
  EXPECT_TRUE(ExportGlossary(glossary, folder / "out.txt", platform));
  EXPECT_EQ(Content("out.txt"), "Mean\tThe sum by the number.\r\nSum\t\r\n");
}

TEST_F(GlossaryExport, SavesAnEditedNoteFirst) {
  Open(GlossaryBytes(kWords));
  Type("Mean", "edited");
  EXPECT_TRUE(ExportGlossary(glossary, folder / "out.txt", platform));
  EXPECT_EQ(Content("out.txt").substr(0, 13), "Mean\tedited\r\n");
}

TEST_F(GlossaryExport, DoesNotReplaceTheGlossaryItself) {
  Open(GlossaryBytes(kWords));
  EXPECT_FALSE(ExportGlossary(glossary, glossary.GlossaryFile, platform));
  ExpectBox("Error", "notes.lx1 is the glossary itself. Please choose another name for the text.");
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes(kWords));
}

TEST_F(GlossaryExport, AFileThatCannotBeWrittenIsTold) {
  Open(GlossaryBytes(kWords));
  EXPECT_FALSE(ExportGlossary(glossary, folder / "nowhere" / "out.txt", platform));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error");
}

using GlossaryPrint = GlossaryFixture;

TEST_F(GlossaryPrint, PrintsARuleTheSubjectAndTheText) {
  Open(GlossaryBytes({{"Mean", "The sum\r\nby the number."}}));
  platform.print_answers = {PrintChoice{2}};
  EXPECT_TRUE(PrintNote(glossary, platform));
  const std::string page =
      "__________________________________________________________________\r\n"
      "Subject:  Mean\r\n"
      "\r\n"
      "\r\n"
      "The sum\r\n"
      "by the number.";
  EXPECT_EQ(platform.printed, (std::vector<std::vector<std::string>>{{page, page}}));
}

TEST_F(GlossaryPrint, LongLinesGoOnOnTheNextOne) {
  const std::string forty(40, 'a');
  Open(GlossaryBytes({{"Mean", forty + " " + forty + " b\r\n" + std::string(81, 'c')}}));
  EXPECT_TRUE(NotePage(glossary).ends_with("\r\n\r\n\r\n" + forty + "\r\n" + forty + " b\r\n" + std::string(80, 'c') +
                                           "\r\nc"));
}

TEST_F(GlossaryPrint, CancelPrintsNothing) {
  Open(GlossaryBytes(kWords));
  EXPECT_FALSE(PrintNote(glossary, platform));
  EXPECT_TRUE(platform.printed.empty());
  ExpectSilence();
}

TEST_F(GlossaryPrint, APrinterThatRefusesIsTold) {
  Open(GlossaryBytes(kWords));
  platform.print_answers = {PrintChoice{1}};
  platform.printer_works = false;
  EXPECT_FALSE(PrintNote(glossary, platform));
  ExpectBox("Printer Error",
            "The printer is not accepting the print request.  Your printer software may be corrupted.  If the problem "
            "continues, you may want to reinstall the printer software.");
}

TEST_F(GlossaryPrint, WithoutARecordABoxAsksForOne) {
  Open(GlossaryBytes(kWords));
  glossary.CurrentRecord = 0;
  EXPECT_FALSE(PrintNote(glossary, platform));
  ExpectBox("Error", "Please select a record");
}

}  // namespace
}  // namespace tessara
