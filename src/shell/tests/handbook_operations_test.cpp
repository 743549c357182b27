#include "shell/handbook_operations.h"

#include "shell/tests/command_fixture.h"

namespace tessara {
namespace {

class HandbookTest : public CommandTest {
 protected:
  HandbookTest() { session.handbook.topics = {{"Contents", "Index"}, {"Means", "hb-means"}, {"Outliers", "hb-out"}}; }
};

TEST_F(HandbookTest, TheTopicsAreThereFromTheStart) {
  std::filesystem::create_directories(platform.program_folder / "Help");
  WriteFile("program/Help/Index.log", "Means,hb-means\r\n");
  StartSession(session, {});
  EXPECT_EQ(session.handbook.topics, (std::vector<HandbookTopic>{{"Means", "hb-means"}}));
}

TEST_F(HandbookTest, TheTopicBoxShowsThePageOfItsRow) {
  session.handbook.chosen_row = 1;
  EXPECT_EQ(Execute(kTopicBoxCommand, View::ViewHandbook), WidgetAction::kShowTopic);
  EXPECT_EQ(session.handbook.wanted_page, "Index.html");
  session.handbook.chosen_row = 3;
  EXPECT_EQ(Execute(kTopicBoxCommand, View::ViewHandbook), WidgetAction::kShowTopic);
  EXPECT_EQ(session.handbook.wanted_page, "hb-out.html");
  for (const int row : {0, 4, -1}) {
    session.handbook.chosen_row = row;
    EXPECT_EQ(Execute(kTopicBoxCommand, View::ViewHandbook), WidgetAction::kNone) << row;
  }
  EXPECT_EQ(session.handbook.wanted_page, "hb-out.html");
}

TEST_F(HandbookTest, BackForwardAndHomeBelongToTheHandbook) {
  EXPECT_EQ(StatesByView(kGoBackCommand), "------o-");
  EXPECT_EQ(StatesByView(kGoForwardCommand), "------o-");
  EXPECT_EQ(StatesByView(kGoHomeCommand), "------+-");
  EXPECT_EQ(ReasonOf(kGoBackCommand, View::ViewHandbook), "There is no page to go back to");
  widgets = {.page_can_go_back = true};
  EXPECT_EQ(StatesByView(kGoBackCommand), "------+-");
  EXPECT_EQ(StatesByView(kGoForwardCommand), "------o-");
  widgets = {.page_can_go_forward = true};
  EXPECT_EQ(StatesByView(kGoForwardCommand), "------+-");
  EXPECT_EQ(Execute(kGoBackCommand, View::ViewHandbook), WidgetAction::kGoBack);
  EXPECT_EQ(Execute(kGoForwardCommand, View::ViewHandbook), WidgetAction::kGoForward);
  EXPECT_EQ(Execute(kGoHomeCommand, View::ViewHandbook), WidgetAction::kGoHome);
  EXPECT_EQ(Execute(kPrintCommand, View::ViewHandbook), WidgetAction::kPrintPage);
  EXPECT_EQ(Execute(kGoHomeCommand, View::ViewDataGrid), WidgetAction::kNone);
}

TEST_F(HandbookTest, ATopicBringsItsViewToTheFront) {
  EXPECT_EQ(ShowTopicOfRow(session, 2), WidgetAction::kShowTopic);
  EXPECT_EQ(session.wanted_view, View::ViewHandbook);
  EXPECT_EQ(session.handbook.chosen_row, 2);
  EXPECT_EQ(session.handbook.wanted_page, "hb-means.html");
}

TEST_F(HandbookTest, TheMessageOfBeforeLeavesWithItsActivation) {
  platform.SetStatusPane(kMessagePane, "Save Completed");
  ActivateView(session, View::ViewGlossary);
  EXPECT_EQ(platform.panes[1], "Save Completed");
  ActivateView(session, View::ViewHandbook);
  EXPECT_EQ(platform.panes[1], "Ready");
  EXPECT_EQ(session.ActiveView, View::ViewHandbook);
}

TEST_F(HandbookTest, TheBoxFollowsThePage) {
  EXPECT_FALSE(NoteShownPage(session, "Index.html"));
  EXPECT_EQ(session.handbook.chosen_row, 0);
  EXPECT_TRUE(NoteShownPage(session, "hb-out.html"));
  EXPECT_EQ(session.handbook.chosen_row, 3);
  EXPECT_FALSE(NoteShownPage(session, "hb-out.html"));
  EXPECT_TRUE(NoteShownPage(session, "elsewhere.html"));
  EXPECT_EQ(session.handbook.chosen_row, 0);
}

TEST_F(HandbookTest, TitlesAreReadOnce) {
  std::filesystem::create_directories(platform.program_folder / "Help");
  WriteFile("program/Help/a.html", "<title>First</title>");
  EXPECT_EQ(HelpTitles(session), (std::vector<HandbookTopic>{{"First", "a"}}));
  WriteFile("program/Help/b.html", "<title>Second</title>");
  EXPECT_EQ(HelpTitles(session).size(), 1u);
}

}  // namespace
}  // namespace tessara
