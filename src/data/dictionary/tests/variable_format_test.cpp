#include "data/dictionary/variable_format.h"

#include <utility>

#include "data/change_door.h"
#include "data/tests/data_fixture.h"
#include "numerics/number_text.h"
#include "platform/tests/failing_memory.h"

namespace tessara {
namespace {

using enum FormatBox;

// Three records of SEX, AGE and CITY. SEX has a missing value and two value labels.
class VariableFormatTest : public DataFixture {
 protected:
  VariableFormatTest() {
    OpenText(FileText("3 3 Tessara data", "SEX~AGE~CITY", {"1~3.14159~Bern", "2~41~Oslo", "9~~Bern"}));
    MatrixEditor editor(data);
    editor.SetText(kMissingSpecRow, 1, "9||||0|5|");
    editor.SetText(kVariableLabelRow, 1, "Sex of respondent");
    editor.SetText(kFirstValueLabelRow, 1, "1=Male");
    editor.SetText(kFirstValueLabelRow + 1, 1, "2=Female");
    Forget();
  }

  void Forget() {
    data.DataDirty = false;
    data.history.Clear();
  }
  std::string Text(std::size_t row, std::size_t column) const { return TextOf(data.matrix.Cell(row, column)); }
  // The value label rows of a variable, one after the other.
  std::vector<std::string> Slots(std::size_t column) const {
    std::vector<std::string> slots;
    for (std::size_t row = 4; row <= 11; ++row) slots.push_back(Text(row, column));
    return slots;
  }
  std::vector<std::string> Records(std::size_t column) const {
    std::vector<std::string> records;
    for (std::size_t n = 1; n <= data.RecordCount; ++n) records.push_back(Record(n, column));
    return records;
  }
  // A Save that rewrites the cells of a variable.
  FormatSaved SaveWithDecimals(std::size_t column, const std::string& decimals) {
    ShowVariableFormat(format, data, column);
    SetChangeDecimals(format, true);
    format.boxes[Text22] = decimals;
    return SaveVariableFormat(format, data);
  }

  VariableFormat format;
};

TEST_F(VariableFormatTest, ShowFillsTheBoxesFromTheDictionary) {
  ShowVariableFormat(format, data, 1);
  EXPECT_EQ(format.column, 1u);
  const std::pair<FormatBox, const char*> expected[] = {{Text1, "SEX"}, {Text2, "Sex of respondent"},
                                                        {Text3, "9"},   {Text25, ""},
                                                        {Text26, ""},   {Text27, ""},
                                                        {Text20, "0"},  {Text21, "5"},
                                                        {Text4, "1"},   {Text5, "Male"},
                                                        {Text6, "2"},   {Text7, "Female"},
                                                        {Text8, ""},    {Text19, ""},
                                                        {Text22, ""}};
  for (const auto& [box, text] : expected) EXPECT_EQ(format.boxes[box], text) << static_cast<int>(box);
  EXPECT_FALSE(HasUnsavedBoxes(format));
}

TEST_F(VariableFormatTest, ShowLeavesTheDecimalsOfTheFormAlone) {
  SetChangeDecimals(format, true);
  format.boxes[Text22] = "2";
  ShowVariableFormat(format, data, 1);
  EXPECT_TRUE(format.Check1);
  EXPECT_EQ(format.boxes[Text22], "2");
}

TEST_F(VariableFormatTest, AMissingSpecOfSixCharactersShowsNothing) {
  MatrixEditor(data).SetText(kMissingSpecRow, 1, "5|||||");
  ShowVariableFormat(format, data, 1);
  EXPECT_EQ(format.boxes[Text3], "");
}

TEST_F(VariableFormatTest, SaveStoresEachBoxInItsRow) {
  ShowVariableFormat(format, data, 2);
  for (const auto& [box, text] : std::initializer_list<std::pair<FormatBox, const char*>>{{Text1, "YEARS"},
                                                                                          {Text2, "Age in years"},
                                                                                          {Text3, "98"},
                                                                                          {Text25, "99"},
                                                                                          {Text26, "NA"},
                                                                                          {Text27, "?"},
                                                                                          {Text20, "0"},
                                                                                          {Text21, "120"},
                                                                                          {Text4, "1"},
                                                                                          {Text5, "one"},
                                                                                          {Text8, "3"},
                                                                                          {Text9, "a=b"},
                                                                                          {Text18, "8"},
                                                                                          {Text19, "eight"}}) {
    format.boxes[box] = text;
  }
  EXPECT_TRUE(SaveVariableFormat(format, data).stored);
  EXPECT_EQ(Text(1, 2), "98|99|NA|?|0|120|");
  EXPECT_EQ(Text(2, 2), "Age in years");
  EXPECT_EQ(Slots(2), (std::vector<std::string>{"1=one", "=", "3=a=b", "=", "=", "=", "=", "8=eight"}));
  EXPECT_EQ(Text(15, 2), "YEARS");
  EXPECT_EQ(Records(2), (std::vector<std::string>{"3.14159", "41", ""}));
  EXPECT_TRUE(data.DataDirty);
}

TEST_F(VariableFormatTest, SavingAVariableWithNoValueLabelsWritesEightEqualSignsIntoTheFile) {
  ShowVariableFormat(format, data, 3);
  SaveVariableFormat(format, data);
  EXPECT_EQ(Slots(3), std::vector<std::string>(8, "="));
  EXPECT_EQ(Text(1, 3), "||||||");
  EXPECT_EQ(SavedText(), WithSeparators("3 3 Tessara data~~\r\n"
                                        "9||||0|5|~~||||||\r\n"
                                        "Sex of respondent~~\r\n"
                                        "~~\r\n"
                                        "1=Male~~=\r\n"
                                        "2=Female~~=\r\n"
                                        "~~=\r\n~~=\r\n~~=\r\n~~=\r\n~~=\r\n~~=\r\n"
                                        "~~\r\n~~\r\n~~\r\n"
                                        "SEX~AGE~CITY\r\n"
                                        "1~3.14159~Bern\r\n2~41~Oslo\r\n9~~Bern\r\n"));
}

TEST_F(VariableFormatTest, ANameLongerThanEightCharactersIsStoredAsTyped) {
  ShowVariableFormat(format, data, 2);
  format.boxes[Text1] = "9 years and more";
  SaveVariableFormat(format, data);
  EXPECT_EQ(Text(15, 2), "9 years and more");
}

TEST_F(VariableFormatTest, ANewNameIsInTheListsAtOnce) {
  ShowVariableFormat(format, data, 2);
  format.boxes[Text1] = "YEARS";
  SaveVariableFormat(format, data);
  ASSERT_EQ(data.VarList.size(), 4u);
  EXPECT_EQ(data.VarList[2].name, "YEARS");
  EXPECT_EQ(format.column, 2u);
  EXPECT_EQ(format.boxes[Text1], "YEARS");
}

TEST_F(VariableFormatTest, SaveTakesLineEndsAndCommasOutOfAllBoxes) {
  ShowVariableFormat(format, data, 2);
  format.boxes[Text1] = "A,B\r\nC";
  format.boxes[Text2] = "one,\r\ntwo\x01three";
  format.boxes[Text20] = ",1\r\n";
  format.boxes[Text4] = "1,000";
  SaveVariableFormat(format, data);
  EXPECT_EQ(Text(15, 2), "ABC");
  EXPECT_EQ(Text(2, 2), "onetwothree");
  EXPECT_EQ(Text(1, 2), "||||1||");
  EXPECT_EQ(Text(4, 2), "1000=");
  EXPECT_EQ(format.boxes[Text1], "ABC");  // the form shows what is stored
}

TEST_F(VariableFormatTest, TheReservedRowsStayAsTheyAre) {
  MatrixEditor(data).SetText(3, 1, "kept");
  MatrixEditor(data).SetText(13, 1, "kept too");
  ShowVariableFormat(format, data, 1);
  SaveVariableFormat(format, data);
  EXPECT_EQ(Text(3, 1), "kept");
  EXPECT_EQ(Text(13, 1), "kept too");
}

TEST_F(VariableFormatTest, ASaveIsOneStepThatCanBeUndone) {
  ShowVariableFormat(format, data, 2);
  format.boxes[Text1] = "YEARS";
  SetChangeDecimals(format, true);
  format.boxes[Text22] = "1";
  SaveVariableFormat(format, data);
  EXPECT_EQ(UndoName(data), "Format YEARS");
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(Text(15, 2), "AGE");
  EXPECT_TRUE(data.matrix.Cell(4, 2).text().empty());
  EXPECT_EQ(Records(2), (std::vector<std::string>{"3.14159", "41", ""}));
  EXPECT_FALSE(data.DataDirty);
  EXPECT_FALSE(CanUndo(data));
}

TEST_F(VariableFormatTest, WithoutAVariableSaveStoresNothing) {
  const auto revision = data.Revision();
  EXPECT_FALSE(SaveVariableFormat(format, data).stored);
  ShowVariableFormat(format, data, 4);
  EXPECT_EQ(format.column, 0u);
  EXPECT_FALSE(SaveVariableFormat(format, data).stored);
  EXPECT_EQ(data.Revision(), revision);
  EXPECT_FALSE(data.DataDirty);
}

// Change Decimals.

TEST_F(VariableFormatTest, DecimalsRewriteTheCellsForGood) {
  const FormatSaved saved = SaveWithDecimals(2, "2");
  EXPECT_EQ(Records(2), (std::vector<std::string>{"3.14", "41.00", ""}));
  EXPECT_EQ(saved.decimals_changed, 2u);
  EXPECT_TRUE(data.DataDirty);
}

TEST_F(VariableFormatTest, NoDecimalsRoundToWholeNumbers) {
  EXPECT_EQ(SaveWithDecimals(2, "0").decimals_changed, 1u);  // 41 stands as it was
  EXPECT_EQ(Records(2), (std::vector<std::string>{"3", "41", ""}));
}

TEST_F(VariableFormatTest, ANumberOfDecimalsThatIsNoNumberCountsAsNone) {
  SaveWithDecimals(2, "two");
  EXPECT_EQ(Records(2), (std::vector<std::string>{"3", "41", ""}));
}

TEST_F(VariableFormatTest, ANumberOfDecimalsIsRoundedHalfToEven) {
  SaveWithDecimals(2, "2.5");
  EXPECT_EQ(Record(1, 2), "3.14");
  SaveWithDecimals(2, "1.5");
  EXPECT_EQ(Record(2, 2), "41.00");
  SaveWithDecimals(2, "-0.5");
  EXPECT_EQ(Record(2, 2), "41");
}

TEST_F(VariableFormatTest, NegativeDecimalsGiveTheGeneralText) {
  MatrixEditor(data).SetText(kFirstRecordRow, 2, " 003.50 ");
  MatrixEditor(data).SetText(kFirstRecordRow + 1, 2, "1e3");
  SaveWithDecimals(2, "-1");
  EXPECT_EQ(Records(2), (std::vector<std::string>{"3.5", "1000", ""}));
}

TEST_F(VariableFormatTest, TextsAndBlankCellsKeepTheirDecimals) {
  MatrixEditor(data).SetText(kFirstRecordRow, 2, "about 3");
  MatrixEditor(data).SetNumber(kFirstRecordRow + 2, 2, 0);
  SaveWithDecimals(2, "1");
  EXPECT_EQ(Record(1, 2), "about 3");
  EXPECT_EQ(Record(2, 2), "41.0");
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 2, 2), TaggedView(0.0));  // the number 0 is blank
}

TEST_F(VariableFormatTest, ACellThatHoldsANumberBecomesText) {
  MatrixEditor(data).SetNumber(kFirstRecordRow, 2, 2.675);
  SaveWithDecimals(2, "2");
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 2), TaggedView("2.68"));
}

TEST_F(VariableFormatTest, MissingCellsKeepTheirDecimals) {
  SaveWithDecimals(1, "1");  // 9 is missing
  EXPECT_EQ(Records(1), (std::vector<std::string>{"1.0", "2.0", "9"}));
}

TEST_F(VariableFormatTest, DecimalsUseTheMissingValuesThatWereJustSaved) {
  ShowVariableFormat(format, data, 1);
  SetChangeDecimals(format, true);
  format.boxes[Text22] = "1";
  format.boxes[Text3] = "2";
  format.boxes[Text21] = "";
  SaveVariableFormat(format, data);
  EXPECT_EQ(Records(1), (std::vector<std::string>{"1.0", "2", "9.0"}));
}

TEST_F(VariableFormatTest, ABoundThatIsNoNumberLeavesAllCells) {
  ShowVariableFormat(format, data, 2);
  SetChangeDecimals(format, true);
  format.boxes[Text22] = "1";
  format.boxes[Text20] = "low";
  SaveVariableFormat(format, data);
  EXPECT_EQ(Records(2), (std::vector<std::string>{"3.14159", "41", ""}));
}

TEST_F(VariableFormatTest, WithoutANumberOfDecimalsTheBoxesAreStoredButTheFlagStays) {
  ShowVariableFormat(format, data, 2);
  SetChangeDecimals(format, true);
  format.boxes[Text2] = "Age in years";
  EXPECT_EQ(SaveVariableFormat(format, data).decimals_changed, std::nullopt);
  EXPECT_EQ(Text(2, 2), "Age in years");
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(VariableFormatTest, MoreDigitsThanTheMemoryHoldsChangeNothing) {
  ShowVariableFormat(format, data, 2);
  SetChangeDecimals(format, true);
  format.boxes[Text2] = "Age in years";
  for (const char* decimals : {"1e300", "1e13"}) {
    format.boxes[Text22] = decimals;
    EXPECT_THROW(SaveVariableFormat(format, data), std::bad_alloc);
    EXPECT_EQ(Text(2, 2), "");
    EXPECT_EQ(Record(1, 2), "3.14159");
    EXPECT_EQ(format.boxes[Text2], "Age in years");
    EXPECT_FALSE(CanUndo(data));
  }
}

TEST_F(VariableFormatTest, TheCheckBoxEmptiesTheNumberOfDecimals) {
  SetChangeDecimals(format, true);
  format.boxes[Text22] = "2";
  SetChangeDecimals(format, false);
  EXPECT_FALSE(format.Check1);
  EXPECT_EQ(format.boxes[Text22], "");
}

// Copy and Paste Format.

TEST_F(VariableFormatTest, ACopiedFormatIsPastedIntoTheBoxesAndStoredByASaveOnly) {
  CopiedFormat copied;
  ShowVariableFormat(format, data, 1);
  CopyFormat(format, copied);
  EXPECT_TRUE(copied.copied);
  EXPECT_EQ(copied.texts[0], "9");
  EXPECT_EQ(copied.texts[5], "5");
  EXPECT_EQ(copied.texts[6], "1");
  EXPECT_EQ(copied.texts[7], "Male");

  ShowVariableFormat(format, data, 3);
  PasteFormat(format, copied);
  EXPECT_EQ(format.boxes[Text1], "CITY");
  EXPECT_EQ(format.boxes[Text2], "");
  EXPECT_EQ(Text(1, 3), "");
  EXPECT_TRUE(HasUnsavedBoxes(format));
  SaveVariableFormat(format, data);
  EXPECT_EQ(Text(1, 3), "9||||0|5|");
  EXPECT_EQ(Slots(3), (std::vector<std::string>{"1=Male", "2=Female", "=", "=", "=", "=", "=", "="}));
  EXPECT_EQ(Text(15, 3), "CITY");
}

TEST_F(VariableFormatTest, TheCopyHoldsWhatTheBoxesHoldAlsoUnsaved) {
  CopiedFormat copied;
  ShowVariableFormat(format, data, 1);
  format.boxes[Text25] = "8";
  CopyFormat(format, copied);
  EXPECT_EQ(copied.texts[1], "8");
}

TEST_F(VariableFormatTest, PasteWithoutACopyLeavesTheBoxes) {
  ShowVariableFormat(format, data, 1);
  PasteFormat(format, CopiedFormat());
  EXPECT_EQ(format.boxes[Text3], "9");
}

// Keys and focus.

TEST_F(VariableFormatTest, ACommaShowsItsBoxAndBecomesABackspaceOrABlank) {
  EXPECT_EQ(PressComma(platform, Text1), CommaTurn::kBlank);
  EXPECT_EQ(PressComma(platform, Text2), CommaTurn::kBackspace);
  EXPECT_EQ(PressComma(platform, Text22), CommaTurn::kBackspace);
  ASSERT_EQ(platform.messages.size(), 3u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_EQ(platform.messages[0].text, "Commas are prohibited");
}

TEST_F(VariableFormatTest, TheLabelBoxesTrimAndSelectOnFocus) {
  ShowVariableFormat(format, data, 1);
  format.boxes[Text2] = "  Sex ";
  format.boxes[Text5] = " Male";
  format.boxes[Text4] = " 1";
  EXPECT_EQ(FocusBox(format, Text2), 3u);
  EXPECT_EQ(format.boxes[Text2], "Sex");
  EXPECT_EQ(FocusBox(format, Text5), 20u);
  EXPECT_EQ(format.boxes[Text5], "Male");
  EXPECT_EQ(FocusBox(format, Text19), 20u);
  for (const FormatBox box : {Text1, Text3, Text21, Text4, Text18, Text22})
    EXPECT_EQ(FocusBox(format, box), std::nullopt);
  EXPECT_EQ(format.boxes[Text4], " 1");
}

TEST_F(VariableFormatTest, TrimmingAloneIsNothingToBeSaved) {
  MatrixEditor(data).SetText(kVariableLabelRow, 2, "Age ");
  ShowVariableFormat(format, data, 2);
  FocusBox(format, Text2);
  EXPECT_EQ(format.boxes[Text2], "Age");
  EXPECT_FALSE(HasUnsavedBoxes(format));
}

// The form follows the data.

TEST_F(VariableFormatTest, WhatWasTypedForAVariableIsThereAgainWhenTheFormComesBack) {
  PickVariable(format, data, 1);
  format.boxes[Text2] = "typed";
  PickVariable(format, data, 2);
  EXPECT_EQ(format.boxes[Text1], "AGE");
  EXPECT_FALSE(HasUnsavedBoxes(format));
  EXPECT_EQ(UnsavedVariables(format), std::vector<std::size_t>{1});
  SaveVariableFormat(format, data);  // of AGE alone
  EXPECT_EQ(Text(2, 1), "Sex of respondent");
  PickVariable(format, data, 1);
  EXPECT_EQ(format.boxes[Text2], "typed");
  EXPECT_TRUE(HasUnsavedBoxes(format));
  SaveVariableFormat(format, data);
  EXPECT_EQ(Text(2, 1), "typed");
  EXPECT_TRUE(UnsavedVariables(format).empty());
}

TEST_F(VariableFormatTest, RevertGivesUpWhatWasTyped) {
  PickVariable(format, data, 1);
  format.boxes[Text2] = "typed";
  RevertFormat(format);
  EXPECT_EQ(format.boxes[Text2], "Sex of respondent");
  EXPECT_FALSE(HasUnsavedBoxes(format));
}

TEST_F(VariableFormatTest, AnUndoneSaveIsSeenInTheBoxesThatNobodyHasTypedInto) {
  PickVariable(format, data, 1);
  format.boxes[Text2] = "new";
  format.boxes[Text3] = "7";
  SaveVariableFormat(format, data);
  format.boxes[Text3] = "8";
  UndoChange(data);
  FollowFormat(format, data);
  EXPECT_EQ(format.boxes[Text2], "Sex of respondent");
  EXPECT_EQ(format.boxes[Text3], "8");
}

TEST_F(VariableFormatTest, DeletedColumnsMoveTheFormAndItsDrafts) {
  PickVariable(format, data, 2);
  format.boxes[Text2] = "age";
  PickVariable(format, data, 3);
  format.boxes[Text2] = "city";
  ApplyChange(data, RemoveColumns(data, 1, 1, "Delete"));
  FollowFormat(format, data);
  EXPECT_EQ(format.column, 2u);
  EXPECT_EQ(format.boxes[Text2], "city");
  EXPECT_EQ(UnsavedVariables(format), (std::vector<std::size_t>{1, 2}));
  SaveVariableFormat(format, data);
  EXPECT_EQ(Text(15, 2), "CITY");
  EXPECT_EQ(Text(2, 2), "city");
  EXPECT_EQ(Text(2, 1), "");
}

TEST_F(VariableFormatTest, ASaveNeverWritesIntoAnotherVariableThanItsOwn) {
  PickVariable(format, data, 1);
  format.boxes[Text2] = "typed";
  ApplyChange(data, RemoveColumns(data, 1, 1, "Delete"));
  EXPECT_FALSE(SaveVariableFormat(format, data).stored);
  EXPECT_EQ(format.column, 0u);
  EXPECT_EQ(format.boxes[Text2], "");
  EXPECT_EQ(Text(2, 1), "");
}

TEST_F(VariableFormatTest, OtherDataKeepADraftOnlyWhereTheNameIsTheSame) {
  PickVariable(format, data, 1);
  format.boxes[Text2] = "typed for SEX";
  PickVariable(format, data, 2);
  format.boxes[Text2] = "typed for AGE";
  OpenText(FileText("1 2 Tessara data", "SEX~WEIGHT", {"1~80"}));
  FollowFormat(format, data);
  EXPECT_EQ(format.column, 0u);
  EXPECT_EQ(UnsavedVariables(format), std::vector<std::size_t>{1});
  PickVariable(format, data, 1);
  EXPECT_EQ(format.boxes[Text2], "typed for SEX");
  EXPECT_EQ(format.boxes[Text3], "");  // the other data have no missing value here
}

// Where the memory fails at any point, the data and the boxes stay.
TEST_F(VariableFormatTest, ASaveThatTheMemoryDoesNotSufficeForLeavesEverything) {
  ShowVariableFormat(format, data, 2);
  SetChangeDecimals(format, true);
  format.boxes[Text22] = "20";
  format.boxes[Text2] = "A label of more than fifteen characters";
  const std::string before = Text(2, 2);
  std::size_t failures = 0;
  for (std::size_t allowed = 0; failures == allowed; ++allowed) {
    const FailingMemory memory(allowed);
    try {
      SaveVariableFormat(format, data);
    } catch (const std::bad_alloc&) {
      ++failures;
      EXPECT_EQ(data.matrix.Cell(2, 2).text(), before);
      EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 2).text(), "3.14159");
    }
  }
  EXPECT_GT(failures, 10u);
  EXPECT_EQ(Text(2, 2), "A label of more than fifteen characters");
}

}  // namespace
}  // namespace tessara
