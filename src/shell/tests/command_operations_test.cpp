#include "shell/command_operations.h"

#include "data/change_door.h"
#include "shell/tests/command_fixture.h"

// What a command does in each view, behind ExecuteCommand.

namespace tessara {
namespace {

TEST_F(CommandTest, AnUnknownNumberDoesNothing) {
  EXPECT_EQ(Execute(999, View::ViewDataGrid), WidgetAction::kNone);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CommandTest, NewInTheDataGridMakesAnEmptyDataSet) {
  Open(WriteDataFile("people.dcs"));
  session.data.DataDirty = true;
  Execute(101, View::ViewDataGrid);
  EXPECT_EQ(session.data.RecordCount, 1000u);
  EXPECT_TRUE(session.data.DataFilePath.empty());
  EXPECT_FALSE(session.data.DataDirty);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CommandTest, NewOnThePanelResetsIt) {
  Open(WriteDataFile("people.dcs"));
  session.panel.SelectedVariables = {1};
  session.panel.IndependentVariables = {2};
  session.panel.control_variable.column = 1;
  Execute(101, View::ViewStatProcs);
  EXPECT_TRUE(session.panel.SelectedVariables.empty());
  EXPECT_TRUE(session.panel.IndependentVariables.empty());
  EXPECT_FALSE(ControlIsSet(session.panel, session.data));
  EXPECT_EQ(session.data.RecordCount, 2u);
}

TEST_F(CommandTest, NewInTheOutputViewWarnsAndClearsTheLogAlone) {
  Report("report");
  const std::string recent = session.output.MostRecentText;
  platform.message_answers = {Answer::kNo};
  Execute(101, View::ViewOutput);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Warning!");
  EXPECT_EQ(platform.messages[0].text,
            "This will clear the Output log.  Do you wish to permanently erase all your output?");
  EXPECT_EQ(platform.messages[0].buttons, Buttons::kYesNo);
  EXPECT_TRUE(platform.sounds.empty());
  EXPECT_EQ(session.output.OutputLogText, recent);

  platform.message_answers = {Answer::kYes};
  Execute(101, View::ViewOutput);
  ASSERT_EQ(platform.sounds.size(), 1u);
  EXPECT_EQ(platform.sounds[0].filename(), "clean.wav");
  EXPECT_EQ(session.output.OutputLogText, "");
  EXPECT_EQ(session.output.BoxText(), "");
  EXPECT_EQ(session.output.MostRecentText, recent);
}

TEST_F(CommandTest, OpenAsksForAFileOfTheView) {
  platform.open_answers = {Chosen(WriteDataFile("people.dcs"))};
  Execute(102, View::ViewDataGrid);
  EXPECT_EQ(session.data.VariableName(2), "SEX");

  platform.open_answers = {Chosen(WriteFile("old.txt", "old output"))};
  Execute(102, View::ViewOutput);
  EXPECT_EQ(session.output.OutputLogText, "old output\r\n\r\n<Page Break>");
  EXPECT_EQ(session.data.VariableName(2), "SEX");

  Execute(102, View::ViewStatProcs);
  EXPECT_EQ(platform.open_dialogs.size(), 2u);
}

TEST_F(CommandTest, AnOutputThatWasNotSavedIsNotSaidToBe) {
  Report("report");
  platform.panes[1] = "Ready";
  Execute(103, View::ViewOutput);  // cancelled
  EXPECT_EQ(platform.panes[1], "Ready");
  EXPECT_TRUE(platform.messages.empty());

  platform.save_answers = {Chosen(folder / "no such folder" / "output.txt")};
  Execute(103, View::ViewOutput);
  EXPECT_EQ(platform.panes[1], "Ready");
  EXPECT_TRUE(session.output.OutputChanged);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Save Aborted!");
}

TEST_F(CommandTest, SaveSaysSaveCompletedInBothViews) {
  Open(WriteDataFile("people.dcs"));
  session.data.DataFilePath = folder / "people.dcs";
  session.data.DataDirty = true;
  Execute(103, View::ViewDataGrid);
  EXPECT_FALSE(session.data.DataDirty);
  EXPECT_EQ(platform.panes[1], "Save Completed");

  platform.panes[1].clear();
  Report("report");
  platform.save_answers = {Chosen(folder / "output.txt")};
  Execute(103, View::ViewOutput);
  EXPECT_EQ(ReadFile(folder / "output.txt"), "report" + std::string(kReportSeparator));
  EXPECT_EQ(platform.panes[1], "Save Completed");
  EXPECT_EQ(session.wanted_view, View::ViewOutput);
}

TEST_F(CommandTest, SaveAsAsksForANameInTheDataGridAlone) {
  platform.save_answers = {Chosen(folder / "copy.dcs")};
  Execute(110, View::ViewDataGrid);
  EXPECT_EQ(session.data.DataFilePath, folder / "copy.dcs");
  Execute(110, View::ViewOutput);
  EXPECT_EQ(platform.save_dialogs.size(), 1u);
}

TEST_F(CommandTest, PrintSendsThePagesOfTheOutput) {
  Report("report");
  platform.print_answers = {PrintChoice{1}};
  widgets.output_has_selection = true;
  session.settings.Op12 = 1;  // no date
  Execute(106, View::ViewOutput);
  ASSERT_EQ(platform.print_dialogs.size(), 1u);
  EXPECT_TRUE(platform.print_dialogs[0].offer_selection);
  ASSERT_EQ(platform.printed.size(), 1u);
  ASSERT_EQ(platform.printed[0].size(), 1u);
  const std::string& page = platform.printed[0][0];
  EXPECT_NE(page.find("Page 1\r\n"), std::string::npos);  // no date behind it
  EXPECT_NE(page.find("report"), std::string::npos);
  EXPECT_NE(page.find("Notes\r\n"), std::string::npos);

  platform.print_answers = {PrintChoice{1}};
  session.settings.Op11 = 1;  // no notes caption
  session.settings.Op12 = 0;
  Execute(106, View::ViewOutput);
  ASSERT_EQ(platform.printed.size(), 2u);
  EXPECT_EQ(platform.printed[1][0].find("Notes"), std::string::npos);
  EXPECT_NE(platform.printed[1][0].find("11/5/2026"), std::string::npos);

  Execute(106, View::ViewDataGrid);
  EXPECT_EQ(platform.print_dialogs.size(), 2u);
}

TEST_F(CommandTest, PrintInTheChartsSaysWhereAChartIsPrinted) {
  Execute(106, View::ViewCharts);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Information");
  EXPECT_EQ(platform.messages[0].text, "Please click graph to view print screen");
  EXPECT_EQ(platform.messages[0].tone, Tone::kInformation);
  EXPECT_TRUE(platform.print_dialogs.empty());
}

TEST_F(CommandTest, RunRunsOnThePanelAlone) {
  Open(WriteDataFile("people.dcs"));
  SelectProcedure(session.panel, Procedure::kFrequencies);
  session.panel.SelectedVariables = {1};
  Execute(308, View::ViewDataGrid);
  EXPECT_EQ(session.output.OutputLogText, "");
  Execute(308, View::ViewStatProcs);
  EXPECT_NE(session.output.OutputLogText.find("Variable: AGE"), std::string::npos);
  EXPECT_EQ(session.wanted_view, View::ViewOutput);
}

TEST_F(CommandTest, TheCalculatorsAreRunCopiedPrintedAndCleared) {
  EXPECT_FALSE(State(212, View::ViewBrevarum).enabled);
  Execute(212, View::ViewBrevarum);
  EXPECT_EQ(platform.clipboard, "");
  for (const char* box : {"tx1", "ts1", "tn1", "ts2", "tn2"}) SetBox(session.brevarum, box, "9");
  Execute(308, View::ViewStatProcs);
  EXPECT_EQ(session.output.OutputLogText.find("Two-Sample"), std::string::npos);
  Execute(308, View::ViewBrevarum);
  EXPECT_NE(session.output.OutputLogText.find("Two-Sample Difference of Means"), std::string::npos);
  EXPECT_EQ(session.wanted_view, View::kNone);
  EXPECT_TRUE(State(212, View::ViewBrevarum).enabled);

  Execute(212, View::ViewBrevarum);
  EXPECT_EQ(platform.clipboard, session.brevarum.BrevarumResults[0]);
  platform.clipboard.clear();
  Execute(205, View::ViewBrevarum);
  EXPECT_EQ(platform.clipboard, session.brevarum.BrevarumResults[0]);

  platform.print_answers = {PrintChoice{1}};
  session.settings.Op12 = 1;  // no date
  Execute(106, View::ViewBrevarum);
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_TRUE(platform.printed[0][0].starts_with("\r\n\r\n\r\n     Tessara Output\r\n     Two-Sample"));

  Execute(101, View::ViewBrevarum);
  EXPECT_EQ(session.brevarum.Box("tx1"), "");
  EXPECT_FALSE(State(212, View::ViewBrevarum).enabled);
}

TEST_F(CommandTest, ToggleAndConvertWorkOnTheTextOfTheOutputView) {
  Report("first");
  Report("a  b");
  Execute(350, View::ViewOutput);
  EXPECT_TRUE(session.output.ShowLogMode);
  Execute(350, View::ViewDataGrid);
  EXPECT_TRUE(session.output.ShowLogMode);
  Execute(350, View::ViewOutput);
  EXPECT_FALSE(session.output.ShowLogMode);
  Execute(211, View::ViewOutput);
  EXPECT_EQ(session.output.BoxText().substr(0, 3), "a\tb");
  EXPECT_NE(session.output.OutputLogText.find("a  b"), std::string::npos);
}

TEST_F(CommandTest, RepairAsksFirst) {
  Execute(402, View::ViewDataGrid);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Repair Practice Data Files");
}

TEST_F(CommandTest, DocumentsAreOpenedFromTheProgramFolder) {
  const std::pair<int, const char*> expected[] = {{503, "UserManual.pdf"},
                                                  {504, "Handbook.pdf"},
                                                  {505, "Workbook.pdf"},
                                                  {506, "Discount.pdf"},
                                                  {507, "Brochure.pdf"}};
  for (const auto& [id, name] : expected) {
    Execute(id, View::ViewDataGrid);
    EXPECT_EQ(platform.documents.back(), PathToUtf8(platform.program_folder / name));
  }
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CommandTest, ADocumentThatDoesNotOpenIsTold) {
  platform.documents_open = false;
  Execute(505, View::ViewDataGrid);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error!");
  EXPECT_EQ(platform.messages[0].text,
            "Tessara was unable to open the pdf file.  The most likely reason is because you don't have Adobe Acrobat "
            "Reader version 4.0 or later installed on your computer.");
}

TEST_F(CommandTest, RefreshTestsTheDocumentsAgain) {
  WriteFile("program/Brochure.pdf", "x");
  EXPECT_EQ(Execute(502, View::ViewDataGrid), WidgetAction::kRefreshHelpLists);
  EXPECT_TRUE(State(507, View::ViewDataGrid).enabled);
}

TEST_F(CommandTest, CommandsOfTheWidgetsAreHandedBack) {
  EXPECT_EQ(Execute(107, View::ViewCharts), WidgetAction::kCloseFrame);
  EXPECT_EQ(Execute(204, View::ViewDataGrid), WidgetAction::kSelectAll);
  EXPECT_EQ(Execute(205, View::ViewOutput), WidgetAction::kCopy);
  EXPECT_EQ(Execute(206, View::ViewOutput), WidgetAction::kPaste);
  EXPECT_EQ(Execute(213, View::ViewOutput), WidgetAction::kCut);
  EXPECT_EQ(Execute(401, View::ViewCharts), WidgetAction::kDefaultSize);
  EXPECT_EQ(Execute(608, View::ViewCharts), WidgetAction::kShowAbout);
  EXPECT_EQ(Execute(106, View::ViewTips), WidgetAction::kPrintPage);
  // Views without a selection of their own.
  for (const int id : {204, 205, 206, 213}) EXPECT_EQ(Execute(id, View::ViewStatProcs), WidgetAction::kNone) << id;
}

TEST_F(CommandTest, NothingIsCutFromTheGridAndNothingPasted) {
  EXPECT_EQ(Execute(206, View::ViewDataGrid), WidgetAction::kNone);
  EXPECT_EQ(Execute(213, View::ViewDataGrid), WidgetAction::kNone);
}

TEST_F(CommandTest, TheHelpPaneIsShownAndHidden) {
  EXPECT_EQ(Execute(602, View::ViewDataGrid), WidgetAction::kToggleHelpPane);
  EXPECT_TRUE(session.help_pane_visible);
  Execute(602, View::ViewDataGrid);
  EXPECT_FALSE(session.help_pane_visible);
  EXPECT_EQ(Execute(601, View::ViewDataGrid), WidgetAction::kOpenHelp);
  EXPECT_TRUE(session.help_pane_visible);
  Execute(601, View::ViewDataGrid);
  EXPECT_TRUE(session.help_pane_visible);
}

}  // namespace
}  // namespace tessara
