#include "shell/format_operations.h"

#include "data/change_door.h"
#include "shell/command_row.h"
#include "shell/tests/session_fixture.h"

namespace tessara {
namespace {

using enum FormatBox;

// Two records of AGE and SEX.
class FormatOperations : public SessionFixture {
 protected:
  FormatOperations() {
    StartSession(session, {});
    Open(WriteDataFile("people.dcs"));
  }
};

TEST_F(FormatOperations, TheFormOpensOnTheVariableOfTheGridsCursor) {
  session.data.CurrentColumn = 2;
  EXPECT_EQ(OpenVariableFormat(session), WidgetAction::kFormatVariables);
  EXPECT_EQ(session.format.column, 2u);
  session.data.CurrentColumn = 0;  // in the record numbers
  OpenVariableFormat(session);
  EXPECT_EQ(session.format.column, 1u);
}

TEST_F(FormatOperations, PaneOneTellsWhatASaveHasDone) {
  OpenVariableFormat(session);
  SaveFormat(session);
  EXPECT_EQ(platform.panes[1], "Saved the format of AGE");
  SetChangeDecimals(session.format, true);
  session.format.boxes[Text22] = "1";
  SaveFormat(session);
  EXPECT_EQ(platform.panes[1], "Saved the format of AGE, 2 cells rewritten");
  SaveFormat(session);
  EXPECT_EQ(platform.panes[1], "Saved the format of AGE, 0 cells rewritten");
}

TEST_F(FormatOperations, CopyAndPastePlayTheirSoundsWhenSoundsAreOn) {
  OpenVariableFormat(session);
  CopyFormat(session);
  PasteFormat(session);
  ASSERT_EQ(platform.sounds.size(), 2u);
  EXPECT_EQ(platform.sounds[0], platform.program_folder / "Media" / "copy.wav");
  EXPECT_EQ(platform.sounds[1], platform.program_folder / "Media" / "paste.wav");
}

TEST_F(FormatOperations, TheCopiedFormatIsKeptBesideOtherData) {
  OpenVariableFormat(session);
  session.format.boxes[Text3] = "99";
  CopyFormat(session);
  NewData(session);
  OpenVariableFormat(session);
  EXPECT_EQ(session.format.boxes[Text3], "");
  PasteFormat(session);
  EXPECT_EQ(session.format.boxes[Text3], "99");
}

TEST_F(FormatOperations, TheFormFollowsTheDataBehindEachOperation) {
  session.data.CurrentColumn = 2;
  OpenVariableFormat(session);
  session.format.boxes[Text2] = "typed";
  ApplyChange(session.data, RemoveColumns(session.data, 1, 1, "Delete"));
  FollowPanel(session);
  EXPECT_EQ(session.format.column, 1u);
  EXPECT_EQ(session.format.boxes[Text2], "typed");
  NewData(session);
  EXPECT_EQ(session.format.column, 0u);
}

TEST_F(FormatOperations, ARunBehindASaveReadsTheNewMissingValues) {
  OpenVariableFormat(session);
  session.format.boxes[Text3] = "34";
  SaveFormat(session);
  AddAnalysisVariable(session.panel, platform, {1});
  SelectProcedure(session.panel, Procedure::kFrequencies);
  RunPanel(session);
  EXPECT_NE(session.output.MostRecentText.find("                  Total         1\r\n"), std::string::npos);
  EXPECT_NE(session.output.MostRecentText.find("                Missing         1\r\n"), std::string::npos);
}

}  // namespace
}  // namespace tessara
