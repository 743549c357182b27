#include "procedures/samples/data_dictionary.h"

#include <gtest/gtest.h>

#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

DataSet SurveyData() {
  DataSet data = MakeTestData({{.name = "SEX",
                                .cells = Texts({"1", "2"}),
                                .label = "Sex of respondent",
                                .missing_spec = "9|||x y|||",
                                .value_labels = {"1=Male", "2=Female", "=", "9=a=b", "no label"}},
                               {.name = "AGE", .cells = Texts({"34", "41"}), .missing_spec = "||||5|110|"},
                               {.name = "CITY", .cells = Texts({"Bern", "Oslo"}), .missing_spec = "||||||"}});
  data.DataFileTitle = "survey.dcs";
  data.DataFileSize = 12345;
  data.DataFileModified = "11/4/2026 9:00:00 AM";
  return data;
}

constexpr const char* kVariables =
    "Variable Name: \tSEX\r\n"
    "Variable Label: \tSex of respondent\r\n"
    "Value Labels:\r\n"
    " 1 = Male\r\n"
    " 2 = Female\r\n"
    " 9 = a=b\r\n"
    " no label = \r\n"
    "Missing Values: \t9  x y  \r\n"
    "Variable Name: \tAGE\r\n"
    "Variable Label: \tNone\r\n"
    "Value Labels: \tNone\r\n"
    "Missing Values: \t<5  >110  \r\n"
    "Variable Name: \tCITY\r\n"
    "Variable Label: \tNone\r\n"
    "Value Labels: \tNone\r\n"
    "Missing Values: \tNone\r\n";

TEST(DataDictionary, DescribesTheFileAndEachVariable) {
  EXPECT_EQ(DataDictionaryText(SurveyData(), {2026, 11, 5}),
            "FILE DATA DICTIONARY\t(As of 11/5/2026)\r\n"
            "________________________________________________________________________________________________\r\n"
            "Filename: survey.dcs\r\n"
            "Number of Variables: 3\r\n"
            "Number of Records: 2\r\n"
            "File Size: 12345 bytes\r\n"
            "Last Modified: 11/4/2026 9:00:00 AM\r\n"
            "\r\n" +
                std::string(kVariables));
}

TEST(DataDictionary, WithoutAFileItsFactsAreEmpty) {
  const DataSet data = MakeTestData({});
  EXPECT_EQ(DataDictionaryText(data, {2026, 11, 5}),
            "FILE DATA DICTIONARY\t(As of 11/5/2026)\r\n"
            "________________________________________________________________________________________________\r\n"
            "Filename: \r\n"
            "Number of Variables: 0\r\n"
            "Number of Records: 0\r\n"
            "File Size: \r\n"
            "Last Modified: \r\n"
            "\r\n");
}

TEST(DataDictionary, IsARunOfItsOwnAndMovesTheCursor) {
  DataSet data = SurveyData();
  data.CurrentRow = 2;
  data.CurrentColumn = 3;
  OutputLog output;
  output.OutputLogText = output.MostRecentText = "an earlier report";
  output.OutputGridMode = true;
  ScriptedPlatform platform;
  CreateDataDictionary(data, output, platform);
  const std::string report = DataDictionaryText(data, platform.now.date) + std::string(kReportSeparator);
  EXPECT_EQ(output.OutputLogText, "an earlier report" + report);
  EXPECT_EQ(output.MostRecentText, report);
  EXPECT_FALSE(output.OutputGridMode);
  EXPECT_EQ(data.CurrentRow, 0u);
  EXPECT_EQ(data.CurrentColumn, 1u);
  EXPECT_EQ(platform.most_wait_cursors, 1);
  EXPECT_EQ(platform.wait_cursors, 0);
}

TEST(ProjectNotes, StandUnderTheDataStatistics) {
  DataSet data = SurveyData();
  data.ProjectNotes = "First line\r\n\r\nThird line";
  EXPECT_EQ(ProjectNotesText(data),
            "TESSARA DATA FILE:  survey.dcs\r\n"
            "Number of Observations: 2\r\n"
            "Number of Variables: 3\r\n"
            "Data Cells Used: 6\r\n"
            "Data Cells Remaining: 199,994\r\n"
            "Data Cell Usage: 0.00%\r\n"
            "Data File Size: 12,345 bytes\r\n"
            "Data File Modified: 11/4/2026 9:00:00 AM\r\n"
            "________________________________________________\r\n"
            "NOTES:\r\n"
            "First line\r\n\r\nThird line\r\n");
}

TEST(ProjectNotes, ArePrintedAsOftenAsCopiesAreWanted) {
  const DataSet data = SurveyData();
  ScriptedPlatform platform;
  platform.print_answers = {PrintChoice{.copies = 2}};
  EXPECT_TRUE(PrintProjectNotes(data, platform));
  ASSERT_EQ(platform.print_dialogs.size(), 1u);
  EXPECT_EQ(platform.print_dialogs[0].title, "Print");
  const std::string text = ProjectNotesText(data);
  EXPECT_EQ(platform.printed, (std::vector<std::vector<std::string>>{{text, text}}));
}

TEST(ProjectNotes, CancelPrintsNothingAndAPrinterThatRefusesHasItsBox) {
  const DataSet data = SurveyData();
  ScriptedPlatform platform;
  platform.print_answers = {std::nullopt, PrintChoice{}};
  EXPECT_FALSE(PrintProjectNotes(data, platform));
  EXPECT_TRUE(platform.printed.empty());
  EXPECT_TRUE(platform.messages.empty());
  platform.printer_works = false;
  EXPECT_FALSE(PrintProjectNotes(data, platform));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Printer Error");
  EXPECT_EQ(platform.messages[0].text,
            "The printer is not accepting the print request.  Your printer software may be corrupted.  If the problem "
            "continues, you may want to reinstall the printer software.");
}

}  // namespace
}  // namespace tessara
