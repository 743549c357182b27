#include "data/exchange/delimit_form.h"

#include <gtest/gtest.h>

#include <string>

#include "data/tests/data_fixture.h"

namespace tessara {
namespace {

class DelimitFormTest : public DataFixture {
 protected:
  void Take(std::string_view content) { ASSERT_TRUE(TakeImportFile(form, data, folder.Make("text.txt", content))); }

  DelimitForm form;
};

TEST_F(DelimitFormTest, NextNeedsAnOption) {
  EXPECT_EQ(ImportNext(form, platform), NextStep::kStay);
  EXPECT_EQ(ExportNext(form, platform), std::nullopt);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_EQ(platform.messages[0].text, "You must select an import option to continue");
  EXPECT_EQ(platform.messages[1].title, "Error");
  EXPECT_EQ(platform.messages[1].text, "You must select an export option to continue");
}

TEST_F(DelimitFormTest, TheImportOptionChoosesTheDelimiter) {
  struct Case {
    ImportOption option;
    DelimiterOption delimiter;
  };
  for (const Case& one : {Case{ImportOption::kTabFile, DelimiterOption::kTab},
                          {ImportOption::kCommaFile, DelimiterOption::kComma},
                          {ImportOption::kOtherFile, DelimiterOption::kTab}}) {
    form.import_option = one.option;
    EXPECT_EQ(ImportNext(form, platform), NextStep::kAskFile);
    EXPECT_EQ(form.delimiter, one.delimiter);
  }
  form.import_option = ImportOption::kPaste;
  EXPECT_EQ(ImportNext(form, platform), NextStep::kPaste);
  TakePaste(form, "a\tb");
  EXPECT_TRUE(form.PasteImport);
  EXPECT_EQ(form.delimiter, DelimiterOption::kTab);
}

TEST_F(DelimitFormTest, TheExportOptionIsADelimiter) {
  form.export_option = ExportOption::kCommaFile;
  EXPECT_EQ(ExportNext(form, platform), ',');
  form.export_option = ExportOption::kTabFile;
  EXPECT_EQ(ExportNext(form, platform), '\t');
}

TEST_F(DelimitFormTest, ADelimiterForEachOption) {
  EXPECT_EQ(ImportDelimiter(form), "");
  form.Text2 = "::";
  for (const auto& [option, text] : {std::pair{DelimiterOption::kTab, "\t"},
                                     {DelimiterOption::kComma, ","},
                                     {DelimiterOption::kSpace, " "},
                                     {DelimiterOption::kOther, "::"}}) {
    form.delimiter = option;
    EXPECT_EQ(ImportDelimiter(form), text);
  }
}

TEST_F(DelimitFormTest, TheFirstCharacterTellsOfNames) {
  const std::pair<const char*, bool> cases[] = {{"SEX,AGE", true},
                                                {"1,SEX", false},
                                                {"-1,2", true},
                                                {".5,1", true},
                                                {"\"1\",2", true},
                                                {" 1,2", true},
                                                {"9", false},
                                                {"\xEF\xBB\xBF"
                                                 "1,2",
                                                 false}};
  for (const auto& [content, names] : cases) {
    Take(content);
    EXPECT_EQ(form.Check1, names) << content;
  }
}

TEST_F(DelimitFormTest, ThePreviewIsOfTheFirstFiveLines) {
  Take("1\n2\r\n3\n4\n5\n6\n");
  EXPECT_EQ(form.first_lines, "1\r\n2\r\n3\r\n4\r\n5");
  Take("\r\n\r\nthird\r\n");
  EXPECT_EQ(form.first_lines, "\r\n\r\nthird");
  Take("\n\n\n\n\nsixth");
  EXPECT_EQ(form.first_lines, "");  // nothing stands in the first five
}

TEST_F(DelimitFormTest, ThePreviewShowsTheDelimitersAsTabsAndBlanksSquashed) {
  Take("SEX,  AGE \r\n1,  34\r\n");
  EXPECT_EQ(PreviewText(form), "SEX,  AGE \r\n1,  34");  // no delimiter yet
  form.delimiter = DelimiterOption::kComma;
  EXPECT_EQ(PreviewText(form), "SEX\t AGE\r\n1\t 34");
  form.delimiter = DelimiterOption::kSpace;
  EXPECT_EQ(PreviewText(form), "SEX,\tAGE\r\n1,\t34");
  form.delimiter = DelimiterOption::kOther;
  form.Text2 = ", ";
  EXPECT_EQ(PreviewText(form), "SEX\tAGE\r\n1\t34");
  form.Text2 = "";
  EXPECT_EQ(PreviewText(form), "SEX,  AGE \r\n1,  34");
}

TEST_F(DelimitFormTest, ThePreviewHasAThousandCharacters) {
  Take(std::string(5000, 'x'));
  EXPECT_EQ(PreviewText(form), std::string(1000, 'x'));
}

TEST_F(DelimitFormTest, OfALongFileOnlyTheBeginningIsRead) {
  Take(std::string(65535, 'x') + "\xC3\xB6" + std::string(200000, 'x'));  // the cut falls into a character
  EXPECT_EQ(form.first_lines, std::string(65535, 'x'));
  Take("K\xC3\xB6ln" + std::string(65530, 'x') + "\xC3\xB6" + std::string(200000, 'x'));
  EXPECT_TRUE(form.first_lines.starts_with("K\xF6ln"));
}

TEST_F(DelimitFormTest, AFileThatCannotBeOpenedChangesNothing) {
  const Path before = data.DataFilePath;
  EXPECT_FALSE(TakeImportFile(form, data, folder / "nowhere.csv"));
  EXPECT_FALSE(TakeImportFile(form, data, platform.program_folder));  // a folder
  EXPECT_EQ(data.DataFilePath, before);
  EXPECT_TRUE(platform.messages.empty());
  ShowCannotOpen(platform);
  EXPECT_EQ(platform.messages.at(0).title, "Unable to open file");
  EXPECT_EQ(platform.messages.at(0).text, "Please make sure the file isn't currently in use by another program.");
}

TEST_F(DelimitFormTest, EnterInTheOtherDelimiterEmptiesIt) {
  form.Text2 = ";";
  RefuseEnter(form, platform);
  EXPECT_EQ(form.Text2, "");
  EXPECT_EQ(platform.messages.at(0).title, "Error");
  EXPECT_EQ(platform.messages.at(0).text, "An invalid character was entered.");
}

TEST_F(DelimitFormTest, TheFormOpensWithoutAnOption) {
  form.import_option = ImportOption::kPaste;
  form.Text2 = ";";
  OpenDelimitForm(form);
  EXPECT_FALSE(form.import_option.has_value());
  EXPECT_FALSE(form.delimiter.has_value());
  EXPECT_EQ(form.Text2, "");
}

}  // namespace
}  // namespace tessara
