#include "data/exchange/import.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include "data/exchange/tests/import_fixture.h"
#include "data/exchange/tests/naive_import.h"
#include "numerics/dates.h"
#include "platform/files.h"

namespace tessara {
namespace {

using namespace std::string_literals;

constexpr const char* kImportError =
    "There was an error processing the import.  There are several potential causes for this error.  To avoid this "
    "error, paste the data into a spreadsheet, save as a tab delimited file, and use the tab delimited import option.";

using ImportTest = ImportFixture;

// What an import makes of lines.

TEST_F(ImportTest, TheFirstLineHoldsTheNames) {
  ASSERT_EQ(ImportFile("SEX,AGE,CITY\r\n1,34,Bern\r\n2,41,\r\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "SEX|AGE|CITY/1|34|Bern/2|41|");
  EXPECT_EQ(data.RecordCount, 2u);
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(data.matrix.RowCount(), 18u);
  ASSERT_EQ(data.VarList.size(), 4u);
  EXPECT_EQ(data.VarList[3].name, "CITY");
  for (std::size_t row = 0; row < kVariableNameRow; ++row) {
    EXPECT_TRUE(data.matrix.Cell(row, 1).is_empty()) << row;  // no labels, no missing values
  }
  EXPECT_EQ(data.ProjectNotes, "");
  EXPECT_EQ(data.DataBanner, "SEX,AGE,CITY");
}

TEST_F(ImportTest, WithoutNamesTheVariablesAreNumbered) {
  ASSERT_EQ(ImportFile("1,34\n2,41\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "V1|V2/1|34/2|41");
  EXPECT_EQ(data.matrix.RowCount(), 19u);  // one more than records and dictionary need
  EXPECT_TRUE(data.matrix.Cell(18, 1).is_empty());
  EXPECT_TRUE(data.matrix.Cell(14, 1).is_empty());
}

TEST_F(ImportTest, MissingFieldsAreEmptyAndSurplusOnesAreDropped) {
  ASSERT_EQ(ImportFile("A,B,C\n1\n1,2,3,4,5\n,,\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "A|B|C/1|-|-/1|2|3/||");
}

TEST_F(ImportTest, AnImportOfAThousandsCommaStoresTheNumber) {
  ASSERT_EQ(ImportFile("PAY\tRATE\n1,234\t12%\n$5.00\t$7\n", "\t"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "PAY|RATE/1234|12/5.00|7");
}

TEST_F(ImportTest, TheNamesLoseTheSameCharacters) {
  ASSERT_EQ(ImportFile("PAY $,RATE %\n1,2\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "PAY |RATE /1|2");
}

TEST_F(ImportTest, AQuotedFieldWithACommaIsTwo) {
  ASSERT_EQ(ImportFile("NAME,AGE,X\n\"Ray, Tom\",34\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "NAME|AGE|X/\"Ray| Tom\"|34");
}

TEST_F(ImportTest, ABlankLastLineIsARecordThatASaveCuts) {
  ASSERT_EQ(ImportFile("A,B\n1,2\n\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "A|B/1|2/|-");
  EXPECT_EQ(data.RecordCount, 2u);
  EXPECT_TRUE(SavedText().starts_with("1 2 Tessara data\x01"));
}

TEST_F(ImportTest, WithABlankAsTheDelimiterSeveralAreOne) {
  ASSERT_EQ(ImportFile("A B\n1    2\n", " "), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "A|B/1|2");
  ASSERT_EQ(ImportFile("A,B\n1, 2\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "A|B/1| 2");  // behind a comma it stays
}

TEST_F(ImportTest, TheDelimitersAreCountedInTheSquashedFirstLine) {
  ASSERT_EQ(ImportFile("A          B\n1 2 3\n", " "), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "A|B/1|2");
  ASSERT_EQ(ImportFile("$A$B\n1$2\n", "$"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "AB|-|-/12|-|-");  // counted ahead of the cleaning, which leaves nothing to split at
}

TEST_F(ImportTest, Utf8IsConvertedAndTheMarkIsNoPartOfAName) {
  ASSERT_EQ(ImportFile("\xEF\xBB\xBF"
                       "CITY,N\nK\xC3\xB6ln,1\n"),
            ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "CITY|N/K\xF6ln|1");
  ASSERT_EQ(ImportFile("CITY,N\nK\xF6ln,1\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "CITY|N/K\xF6ln|1");
}

TEST_F(ImportTest, AgreesWithThePlainStepsOnRandomTexts) {
  std::mt19937 random(11);
  const std::string letters = "ab12,;\t  $%\r\n\n\x01\0"s;
  for (int round = 0; round < 60; ++round) {
    std::string content = "x";
    for (std::size_t length = random() % 150; length > 0; --length) content += letters[random() % letters.size()];
    content += "\nlast";
    for (const std::string delimiter : {",", ";", " ", "; "}) {
      ASSERT_EQ(ImportFile(content, delimiter), ImportOutcome::kImported);
      const auto records = NaiveImport(content, delimiter);
      const std::string first = NaiveSquashed(NaiveReplaced(NaiveLines(content)[0], "\x01", " "));
      ASSERT_EQ(data.VariableCount, NaiveFieldsOf(first, delimiter).size());
      ASSERT_EQ(data.RecordCount + 1, records.size());
      for (std::size_t i = 0; i < records.size(); ++i) {
        for (std::size_t column = 1; column <= data.VariableCount; ++column) {
          const TaggedView cell = data.matrix.Cell(kVariableNameRow + i, column);
          ASSERT_EQ(cell.is_empty(), column > records[i].size());
          if (!cell.is_empty()) {
            ASSERT_EQ(cell.text(), records[i][column - 1]);
          }
        }
      }
    }
  }
}

// What is taken, and when.

TEST_F(ImportTest, PathSizeTimeAndTitleAreTakenWithTheFile) {
  Choose("SEX,AGE\n1,34\n");
  EXPECT_EQ(data.DataFilePath, text_file);
  EXPECT_EQ(data.DataFileTitle, "text.csv");
  EXPECT_EQ(data.DataFileSize, 13u);
  EXPECT_EQ(data.DataFileModified, ShortDateTime(FactsOfFile(text_file)->modified));
  EXPECT_EQ(data.GridTitle, "known.dcs");
  EXPECT_EQ(Cells(), "SEX|AGE/1|34/2|41");  // the cells stay
  EXPECT_EQ(RunImport(), ImportOutcome::kImported);
  EXPECT_EQ(data.GridTitle, "Data Grid");
  EXPECT_EQ(data.DataFilePath, text_file);
  EXPECT_EQ(data.DataFileTitle, "text.csv");
}

TEST_F(ImportTest, TheChangedFlagStaysAsItWas) {
  ASSERT_EQ(ImportFile("A\nb\n"), ImportOutcome::kImported);
  EXPECT_FALSE(data.DataDirty);
  MarkChanged(data);
  ASSERT_EQ(ImportFile("A\nb\n"), ImportOutcome::kImported);
  EXPECT_TRUE(data.DataDirty);
}

TEST_F(ImportTest, UndoBringsBackTheDataAndWhatTheyWereKnownBy) {
  ASSERT_EQ(ImportFile("A\nb\n"), ImportOutcome::kImported);
  EXPECT_EQ(UndoName(data), "Import Data");
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(Cells(), "SEX|AGE/1|34/2|41");
  EXPECT_EQ(data.DataFilePath, known);
  EXPECT_EQ(data.DataFileTitle, "known.dcs");
  EXPECT_EQ(data.GridTitle, "known.dcs");
  EXPECT_EQ(data.ProjectNotes, "Notes");
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);  // to its own file
  ASSERT_TRUE(RedoChange(data));
  EXPECT_EQ(Cells(), "A/b");
  EXPECT_EQ(data.DataFilePath, text_file);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  EXPECT_EQ(ContentOf(text_file), "A\nb\n");
}

TEST_F(ImportTest, EachOfTwoImportsIsAStep) {
  ASSERT_EQ(ImportFile("A\nb\n"), ImportOutcome::kImported);
  ASSERT_EQ(ImportFile("C\nd\n"), ImportOutcome::kImported);
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(Cells(), "A/b");
  EXPECT_EQ(data.DataFilePath, text_file);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(data.DataFilePath, known);
}

// No save goes over the text unasked.

TEST_F(ImportTest, NoSaveGoesOverTheImportedText) {
  ASSERT_EQ(ImportFile("A\nb\n"), ImportOutcome::kImported);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  EXPECT_EQ(ContentOf(text_file), "A\nb\n");
  ASSERT_EQ(SaveAs(folder / "new.dcs"), SaveOutcome::kSaved);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_EQ(data.DataFilePath, folder / "new.dcs");
}

TEST_F(ImportTest, NorOverATextThatWasOnlyChosen) {
  Choose("A\nb\n");
  EXPECT_EQ(data.GridTitle, "known.dcs");
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  EXPECT_EQ(ContentOf(text_file), "A\nb\n");
  ASSERT_EQ(SaveAs(known), SaveOutcome::kSaved);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
}

TEST_F(ImportTest, NorBehindAnUndoOfAChangeMadeMeanwhile) {
  ApplyChange(data, CellChange(16, 1, "9", "Edit"));
  Choose("A\nb\n");
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  EXPECT_EQ(ContentOf(text_file), "A\nb\n");
}

// What is refused.

TEST_F(ImportTest, AnEmptyFileIsRefused) {
  for (const char* content : {"", "\r\n", "\n\n\n\n\n"}) {
    EXPECT_EQ(ImportFile(content), ImportOutcome::kNothing);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Import Aborted!");
    EXPECT_EQ(platform.messages[0].text, "There are no data to import.");
    platform.messages.clear();
  }
  EXPECT_EQ(Cells(), "SEX|AGE/1|34/2|41");
}

TEST_F(ImportTest, NamesAloneAreNoData) {
  EXPECT_EQ(ImportFile("SEX,AGE\n"), ImportOutcome::kNoData);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error!");
  EXPECT_EQ(platform.messages[0].text, "No data found.");
  EXPECT_EQ(Cells(), "SEX|AGE/1|34/2|41");
  EXPECT_EQ(data.DataFilePath, text_file);  // but this is taken
  EXPECT_EQ(data.DataFileTitle, "text.csv");
  EXPECT_EQ(data.DataFileSize, 8u);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
}

TEST_F(ImportTest, WithoutADelimiterNothingHappens) {
  Choose("A\nb\n", "");
  EXPECT_EQ(RunImport(), ImportOutcome::kNoDelimiter);
  form.delimiter.reset();
  EXPECT_EQ(RunImport(), ImportOutcome::kNoDelimiter);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(Cells(), "SEX|AGE/1|34/2|41");
}

TEST_F(ImportTest, AFileThatHasGoneMeanwhileIsAnError) {
  Choose("A\nb\n");
  std::filesystem::remove(text_file);
  EXPECT_EQ(RunImport(), ImportOutcome::kFailed);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, kImportError);
  EXPECT_EQ(data.GridTitle, "Data Grid");
  EXPECT_EQ(Cells(), "SEX|AGE/1|34/2|41");
  EXPECT_EQ(platform.wait_cursors, 0);
}

TEST_F(ImportTest, AShapeThatNoMemoryHoldsIsGivenUp) {
  // A hundred thousand variables, and more records than there is room for.
  Choose(std::string(100000, ',') + std::string(40'000'000, '\n') + "x");
  form.Check1 = true;
  EXPECT_THROW(RunImport(), std::bad_alloc);
  EXPECT_EQ(Cells(), "SEX|AGE/1|34/2|41");
  EXPECT_EQ(data.GridTitle, "known.dcs");
}

// Hostile texts.

TEST_F(ImportTest, ASeparatorInACellBreaksNoLaterSave) {
  ASSERT_EQ(ImportFile("A,B\nx\x01y,\x01z\x01\n1,2\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "A|B/x y| z/1|2");
  ASSERT_EQ(SaveAs(folder / "saved.dcs"), SaveOutcome::kSaved);
  ASSERT_EQ(Open(folder / "saved.dcs"), LoadOutcome::kLoaded);
  EXPECT_EQ(Cells(), "A|B/x y| z/1|2");
}

TEST_F(ImportTest, ACrWithinACellIsSavedAndReadAgain) {
  ASSERT_EQ(ImportFile("A,B\n1\r2,3\r\r\n4,5\r \n6,7"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "A|B/1\r2|3\r/4|5\r/6|7");
  ASSERT_EQ(SaveAs(folder / "saved.dcs"), SaveOutcome::kSaved);
  ASSERT_EQ(Open(folder / "saved.dcs"), LoadOutcome::kLoaded);
  EXPECT_EQ(Cells(), "A|B/1\r2|3\r/4|5\r/6|7");
}

TEST_F(ImportTest, ZeroBytesAreCharacters) {
  ASSERT_EQ(ImportFile("A,B\n\0,1\0\n"s), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "A|B/\0|1\0"s);
}

TEST_F(ImportTest, AHundredThousandVariablesAreHeld) {
  std::string content = "V";
  for (int i = 1; i < 100000; ++i) content += ",V";
  content += "\n1" + std::string(99999, ',') + "2\n3\n";
  ASSERT_EQ(ImportFile(content), ImportOutcome::kImported);
  EXPECT_EQ(data.VariableCount, 100000u);
  EXPECT_EQ(data.matrix.Cell(16, 100000).text(), "2");
  EXPECT_TRUE(data.matrix.Cell(17, 100000).is_empty());
}

TEST_F(ImportTest, OneVeryLongLineIsOneVariable) {
  ASSERT_EQ(ImportFile("1" + std::string(5'000'000, 'x')), ImportOutcome::kImported);
  EXPECT_EQ(data.VariableCount, 1u);
  EXPECT_EQ(data.RecordCount, 1u);
  EXPECT_EQ(data.matrix.Cell(16, 1).text().size(), 5'000'001u);
}

// Progress.

TEST_F(ImportTest, LongWorkShowsItsProgress) {
  std::string content = "A,B\n";
  for (int i = 0; i < 5000; ++i) content += "1,2\n";
  ASSERT_EQ(ImportFile(content), ImportOutcome::kImported);
  ASSERT_EQ(platform.progress.size(), 1u);
  EXPECT_EQ(platform.progress[0].caption, "Importing data...");
  EXPECT_EQ(platform.progress[0].minimum, 0);
  EXPECT_EQ(platform.progress[0].maximum, 5001);
  EXPECT_NEAR(platform.progress[0].last_value, 5001, 0.01);
  EXPECT_TRUE(platform.progress[0].hidden);
}

// From the clipboard.

TEST_F(ImportTest, APasteGoesByWayOfAFileAmongTheDocuments) {
  ASSERT_EQ(Paste("SEX\tAGE\r\n1\t1,034\r\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "SEX|AGE/1|1034");
  const Path file = folder / "documents" / "Tessara Data" / "Temp2.txt";
  EXPECT_EQ(ContentOf(file), "SEX\tAGE\r\n1\t1,034\r\n");
  EXPECT_EQ(data.DataFileTitle, file.string());
  EXPECT_EQ(data.DataFileSize, 18u);
  EXPECT_EQ(data.DataFilePath, known);
  EXPECT_EQ(data.GridTitle, "Data Grid");
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  EXPECT_FALSE(form.PasteImport);
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(data.DataFileTitle, "known.dcs");
}

TEST_F(ImportTest, TheClipboardsBytesAreTheCodePagesAlready) {
  ASSERT_EQ(Paste("A\n\xC3\xB6\n"), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "A/\xC3\xB6");
}

TEST_F(ImportTest, APasteThatCannotBeKeptIsAnError) {
  folder.Make("documents", "a file where the folder should be");
  EXPECT_EQ(Paste("A\n1\n"), ImportOutcome::kFailed);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, kImportError);
  EXPECT_EQ(Cells(), "SEX|AGE/1|34/2|41");
}

TEST_F(ImportTest, AnEmptyClipboardHasNoData) {
  EXPECT_EQ(Paste(""), ImportOutcome::kNothing);
  EXPECT_EQ(platform.messages.at(0).text, "There are no data to import.");
}

TEST_F(ImportTest, APasteOfNamesAloneTakesItsTitleAllTheSame) {
  EXPECT_EQ(Paste("SEX\tAGE"), ImportOutcome::kNoData);
  EXPECT_EQ(data.DataFileTitle, (folder / "documents" / "Tessara Data" / "Temp2.txt").string());
  EXPECT_EQ(Cells(), "SEX|AGE/1|34/2|41");
}

}  // namespace
}  // namespace tessara
