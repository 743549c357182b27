#include "shell/palette.h"

#include <algorithm>

#include "reference/tests/glossary_fixture.h"
#include "shell/palette_search.h"
#include "shell/tests/command_fixture.h"

namespace tessara {
namespace {

class PaletteTest : public CommandTest {
 protected:
  std::vector<PaletteEntry> Build(View view = View::ViewDataGrid) {
    session.ActiveView = view;
    return BuildPalette(session, [this](View asked) {
      return asked == View::ViewTips ? std::nullopt : std::optional<WidgetState>(widgets);
    });
  }
  // The entries of that caption.
  static std::vector<PaletteEntry> Named(const std::vector<PaletteEntry>& entries, std::string_view caption) {
    std::vector<PaletteEntry> named;
    for (const PaletteEntry& entry : entries) {
      if (entry.caption == caption) named.push_back(entry);
    }
    return named;
  }
  // The one entry of that caption.
  PaletteEntry Only(std::string_view caption, View view = View::ViewDataGrid) {
    const auto named = Named(Build(view), caption);
    EXPECT_EQ(named.size(), 1u) << caption;
    return named.empty() ? PaletteEntry() : named.front();
  }
  WidgetAction Choose(const char* caption) { return ChooseFromPalette(session, Only(caption).target); }
};

TEST_F(PaletteTest, ACommandTellsWhereItStandsAndItsKeys) {
  const PaletteEntry open = Only("Open Data File");
  EXPECT_EQ(open.target, (PaletteTarget(CommandTarget{102, View::ViewDataGrid})));
  EXPECT_EQ(open.where, "File \xB7 Data Grid");
  EXPECT_EQ(open.shortcut, "Ctrl+O");
  EXPECT_TRUE(open.enabled);
  EXPECT_EQ(Only("Open Text File").where, "File \xB7 Output");
  EXPECT_EQ(Only("Exit").where, "File");
  EXPECT_EQ(Only("Exit").target, (PaletteTarget(CommandTarget{107})));
  EXPECT_EQ(Only("Default Size").where, "Options");
}

TEST_F(PaletteTest, TheCommandsOfTheViewInFrontComeFirst) {
  for (const View view : {View::ViewDataGrid, View::ViewOutput, View::ViewHandbook}) {
    const auto entries = Build(view);
    const auto is_of_view = [&](const PaletteEntry& entry) {
      const auto* command = std::get_if<CommandTarget>(&entry.target);
      return command && (command->view == view || command->view == View::kNone);
    };
    const auto end = std::ranges::find_if_not(entries, is_of_view);
    EXPECT_GT(end - entries.begin(), 15);
    EXPECT_TRUE(std::none_of(end, entries.end(), is_of_view));
  }
}

TEST_F(PaletteTest, ACommandStandsInEachOfItsViewsButOnceWhereItIsTheSameInAll) {
  const auto entries = Build();
  EXPECT_EQ(Named(entries, "New").size(), 4u);    // views 1 to 4
  EXPECT_EQ(Named(entries, "Print").size(), 6u);  // all but the grid, and the tips are closed
  EXPECT_EQ(Named(entries, "Options Panel").size(), 1u);
  EXPECT_TRUE(Named(entries, "Find a Command or Topic").empty());  // which is open already
}

TEST_F(PaletteTest, WhatCannotBeChosenSaysWhy) {
  const PaletteEntry undo = Named(Build(), "Undo").front();
  EXPECT_FALSE(undo.enabled);
  EXPECT_EQ(undo.reason, "There is nothing to undo");
  EXPECT_EQ(Only("Find Cell Data", View::ViewOutput).enabled, true);  // of a view that is not in front
  EXPECT_EQ(Only("Copy Output").reason, "There is no result yet");
  widgets.page_can_go_back = true;
  EXPECT_TRUE(Only("Back").enabled);
}

TEST_F(PaletteTest, ProceduresAreChosenOnThePanel) {
  EXPECT_EQ(Choose("One-Way ANOVA"), WidgetAction::kNone);
  EXPECT_EQ(session.panel.selected, Procedure::kAnova);
  EXPECT_EQ(session.wanted_view, View::ViewStatProcs);
  Choose("Logistic Regression");
  EXPECT_EQ(session.panel.selected, Procedure::kRegression);
  EXPECT_EQ(session.panel.regression, RegressionKind::kLogistic);
  Choose("Ordinary Least Squares Regression");
  EXPECT_EQ(session.panel.regression, RegressionKind::kLeastSquares);
  int procedures = 0;
  for (const PaletteEntry& entry : Build()) procedures += std::holds_alternative<ProcedureTarget>(entry.target);
  EXPECT_EQ(procedures, 15);  // thirteen and the two kinds of regression
}

TEST_F(PaletteTest, AProcedureThatIsChosenAlreadyKeepsItsOptions) {
  SelectProcedure(session.panel, Procedure::kCrosstabulation);
  const auto& box = FindProcedureRow(Procedure::kCrosstabulation)->boxes.front();
  const bool changed = box.option(session.panel.options) = !box.option(session.panel.options);
  Choose("Crosstabulation");
  EXPECT_EQ(box.option(session.panel.options), changed);
  Choose("Descriptives");
  Choose("Crosstabulation");
  EXPECT_NE(box.option(session.panel.options), changed);
}

TEST_F(PaletteTest, CalculatorsAreChosenOnTheirForm) {
  Choose("One Sample Proportion");
  EXPECT_EQ(session.brevarum.CurrentPanel, kOneProportionPanel);
  EXPECT_TRUE(session.brevarum.one_sample);
  EXPECT_EQ(session.wanted_view, View::ViewBrevarum);
  Choose("Two Sample Proportions");
  EXPECT_EQ(session.brevarum.CurrentPanel, kTwoProportionsPanel);
  Choose("Sample Size Estimator");
  EXPECT_EQ(session.brevarum.CurrentPanel, kPowerPanel);
  EXPECT_EQ(Only("One Sample Mean").where, "Brevarum \xB7 T-Test \xB7 One Sample");
}

TEST_F(PaletteTest, ACalculatorThatIsInForceKeepsWhatIsTyped) {
  SetBox(session.brevarum, "tx1", "5.5");
  const std::string typed(session.brevarum.Box("tx1"));
  EXPECT_EQ(typed, "5.5");
  Choose("Two Sample Means");
  EXPECT_EQ(session.brevarum.Box("tx1"), typed);
}

TEST_F(PaletteTest, AVariableTakesTheCursor) {
  Open(WriteDataFile("two.dcs"));
  MoveCursor(session.data, {2, 1});
  const PaletteEntry sex = Only("SEX");
  EXPECT_EQ(sex.where, "Variable");
  ChooseFromPalette(session, sex.target);
  EXPECT_EQ(CursorOf(session.data), (GridPlace{2, 2}));
  EXPECT_EQ(session.grid_selection, (GridBlock{2, 2, 2, 2}));
  EXPECT_EQ(session.wanted_view, View::ViewDataGrid);
  // From the heading row, which is no record, to the first one.
  MoveCursor(session.data, {0, 2});
  Choose("AGE");
  EXPECT_EQ(CursorOf(session.data), (GridPlace{1, 1}));
}

TEST_F(PaletteTest, AVariableBeyondTheGridSaysWhereItIs) {
  std::string text = "1 301 Tessara data\r\n";
  for (int row = 1; row <= 14; ++row) text += std::string(300, '\x01') + "\r\n";
  for (int i = 1; i <= 301; ++i) text += (i == 1 ? "" : "\x01") + std::string("X") + std::to_string(i);
  Open(WriteFile("wide.dcs", text + "\r\n" + std::string(300, '\x01') + "\r\n"));
  ASSERT_EQ(session.data.VariableCount, 301u);
  MoveCursor(session.data, {1, 7});
  Choose("X301");
  EXPECT_EQ(CursorOf(session.data), (GridPlace{1, 7}));
  EXPECT_EQ(platform.panes[1], "The grid shows the first 300 variables, and this one is variable 301");
}

TEST_F(PaletteTest, TopicsAndPagesAreShown) {
  std::filesystem::create_directories(platform.program_folder / "Help");
  WriteFile("program/Help/hb-means.html", "<title>A title of its own</title>");
  WriteFile("program/Help/extra.html", "<title>An extra page</title>");
  session.handbook.topics = {{"Contents", "Index"}, {"Means", "hb-means"}};
  EXPECT_EQ(Choose("Means"), WidgetAction::kShowTopic);
  EXPECT_EQ(session.handbook.wanted_page, "hb-means.html");
  EXPECT_EQ(session.wanted_view, View::ViewHandbook);
  EXPECT_TRUE(Named(Build(), "A title of its own").empty());  // a topic already
  EXPECT_EQ(Choose("An extra page"), WidgetAction::kShowHelpPage);
  EXPECT_EQ(session.handbook.wanted_page, "extra.html");
  EXPECT_TRUE(session.help_pane_visible);
}

TEST_F(PaletteTest, NotesOfTheGlossaryAreThereOnceItIsOpen) {
  WriteFile("program/Lexicards.lx1", GlossaryBytes({{"Median", "The middle."}, {"Mean deviation", ""}}));
  EXPECT_TRUE(Named(Build(), "Mean deviation").empty());
  ActivateView(session, View::ViewGlossary);
  EXPECT_EQ(session.glossary.Text1, "Median");
  EXPECT_EQ(Only("Mean deviation").where, "Glossary");
  Choose("Mean deviation");
  EXPECT_EQ(session.glossary.Text1, "Mean deviation");
  EXPECT_EQ(session.wanted_view, View::ViewGlossary);
}

TEST_F(PaletteTest, HostileTextsAreLinesOfPlainTextOfAFewWords) {
  session.handbook.topics = {{std::string(3'000'000, 'x'), "a"}, {"one\x01two\r\n<b>three</b>", "b"}, {"   ", "c"}};
  const auto entries = Build();
  EXPECT_EQ(Named(entries, std::string(200, 'x') + "...").size(), 1u);
  EXPECT_EQ(Named(entries, "one two  <b>three</b>").size(), 1u);
  for (const PaletteEntry& entry : entries) EXPECT_LT(entry.caption.size() + entry.where.size(), 500u);
}

}  // namespace
}  // namespace tessara
