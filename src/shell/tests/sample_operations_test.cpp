#include "shell/sample_operations.h"

#include "data/change_door.h"
#include "data/data_file.h"
#include "numerics/number_text.h"
#include "shell/tests/command_fixture.h"

namespace tessara {
namespace {

// Forty records of ID and ODD, opened from a file.
class SampleOperationsTest : public CommandTest {
 protected:
  SampleOperationsTest() {
    std::string text = "40 2 Tessara data\x01notes\r\n";
    for (int row = 1; row <= 14; ++row) text += "\x01\r\n";
    text += "ID\x01ODD\r\n";
    for (int i = 1; i <= 40; ++i) text += std::to_string(i) + "\x01" + std::to_string(i % 2) + "\r\n";
    file = WriteFile("numbers.dcs", text);
    Open(file);
    platform.entropy = 42;
  }

  // The files beside it that hold what a save would have lost.
  std::size_t KeptFiles() const { return std::filesystem::exists(folder / "numbers (as found).dcs") ? 1 : 0; }

  Path file;
};

TEST_F(SampleOperationsTest, ASampleLeavesThePanel) {
  session.panel.SelectedVariables = {1};
  session.panel.IndependentVariables = {2};
  SetControlVariable(session.panel, session.data, platform, {2});
  session.panel.control = {ControlRelation::kEqualTo, "1"};
  PickVariable(session.panel, 1);
  session.samples.Text8 = "10";
  Execute(kCreateSampleCommand, View::ViewStatProcs);
  EXPECT_EQ(session.data.RecordCount, 10u);
  EXPECT_EQ(session.panel.SelectedVariables, std::vector<std::size_t>{1});
  EXPECT_EQ(session.panel.IndependentVariables, std::vector<std::size_t>{2});
  EXPECT_EQ(session.panel.control_variable.column, 2u);
  EXPECT_EQ(session.panel.control.value, "1");
  EXPECT_EQ(session.panel.PickedVariable, 1u);
  EXPECT_EQ(session.samples.Text8, "10");
  EXPECT_TRUE(platform.notes.empty());
  EXPECT_EQ(session.wanted_view, View::kNone);
}

TEST_F(SampleOperationsTest, OneGeneratorServesAllSamples) {
  session.samples.Text8 = "40";
  Execute(kCreateSampleCommand, View::ViewStatProcs);
  const std::string first = TextOf(session.data.matrix.Cell(kFirstRecordRow, 1));
  UndoChange(session.data);
  Execute(kCreateSampleCommand, View::ViewStatProcs);
  RandomNumbers random(42);
  for (int i = 0; i < 80; ++i) random.Uniform();
  EXPECT_EQ(RandomNumbersOf(session).Uniform(), random.Uniform());
  EXPECT_EQ(first, "11");  // worked out by another program
}

TEST_F(SampleOperationsTest, IterationsResetThePanelAndShowTheOutput) {
  session.panel.SelectedVariables = {1};
  SetControlVariable(session.panel, session.data, platform, {2});
  session.panel.control.relation = ControlRelation::kAllMissing;
  PickVariable(session.panel, 1);
  session.samples.Text8 = "7";
  session.samples.Text15 = "5";
  session.samples.Text16 = "20";
  Execute(kRunIterationsCommand, View::ViewStatProcs);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_TRUE(platform.notes.empty());  // nobody is told of a control that was reset on purpose
  EXPECT_EQ(session.data.VariableName(2), "Mean");
  EXPECT_TRUE(session.panel.SelectedVariables.empty());
  EXPECT_EQ(session.panel.control_variable.column, 0u);
  EXPECT_EQ(session.panel.control.relation, ControlRelation::kNone);
  EXPECT_EQ(session.panel.PickedVariable, 0u);
  EXPECT_EQ(session.samples.Text8, "7");
  EXPECT_EQ(session.samples.Text15, "");
  EXPECT_EQ(session.samples.Text16, "");
  EXPECT_EQ(session.wanted_view, View::ViewOutput);
  EXPECT_EQ(platform.panes[1], "There are 199,920 data cells remaining.");
}

TEST_F(SampleOperationsTest, WhoWantsToSaveFirstPressesTheButtonAgain) {
  MarkChanged(session.data);
  PickVariable(session.panel, 1);
  session.samples.Text15 = "5";
  session.samples.Text16 = "20";
  platform.message_answers = {Answer::kYes};
  platform.save_answers = {Chosen(folder / "kept.dcs")};
  Execute(kRunIterationsCommand, View::ViewStatProcs);
  EXPECT_EQ(session.data.RecordCount, 40u);
  EXPECT_TRUE(std::filesystem::exists(folder / "kept.dcs"));
  EXPECT_EQ(session.samples.Text16, "20");
  EXPECT_EQ(session.wanted_view, View::kNone);
  Execute(kRunIterationsCommand, View::ViewStatProcs);
  EXPECT_EQ(session.data.RecordCount, 20u);
  EXPECT_EQ(platform.messages.size(), 1u);
}

TEST_F(SampleOperationsTest, ASubsetResetsThePanelAndShowsNoOutput) {
  SetControlVariable(session.panel, session.data, platform, {2});
  session.panel.control = {ControlRelation::kEqualTo, "1"};
  platform.message_answers = {Answer::kYes};
  Execute(kRunCommand, View::ViewStatProcs);
  EXPECT_EQ(session.data.RecordCount, 20u);
  EXPECT_EQ(session.panel.control_variable.column, 0u);
  EXPECT_TRUE(session.panel.control.value.empty());
  EXPECT_EQ(session.wanted_view, View::kNone);
  EXPECT_EQ(platform.panes[1], "There are 199,960 data cells remaining.");
}

// The path stays, and a save goes there: what it would lose is kept beside it, once.
TEST_F(SampleOperationsTest, TheFirstSaveOverTheSourceKeepsIt) {
  const std::string before = ReadFile(file);
  session.samples.Text8 = "10";
  Execute(kCreateSampleCommand, View::ViewStatProcs);
  EXPECT_EQ(SaveData(session), SaveOutcome::kSaved);
  EXPECT_EQ(ReadFile(folder / "numbers (as found).dcs"), before);
  EXPECT_TRUE(ReadFile(file).starts_with("10 2 Tessara data"));
  EXPECT_EQ(platform.notes,
            std::vector<std::string>{"the data that the file held before are kept as numbers (as found).dcs"});
  EXPECT_EQ(SaveData(session), SaveOutcome::kSaved);
  EXPECT_FALSE(std::filesystem::exists(folder / "numbers (as found 2).dcs"));
}

TEST_F(SampleOperationsTest, ASampleThatIsSavedElsewhereLeavesItsSourceAlone) {
  session.samples.Text8 = "10";
  Execute(kCreateSampleCommand, View::ViewStatProcs);
  EXPECT_EQ(SaveDataTo(session, folder / "sample.dcs"), SaveOutcome::kSaved);
  EXPECT_EQ(KeptFiles(), 0u);
  EXPECT_TRUE(platform.notes.empty());
}

TEST_F(SampleOperationsTest, DataThatUndoHasBroughtBackAreSavedAsEver) {
  const std::string before = ReadFile(file);
  session.samples.Text8 = "10";
  Execute(kCreateSampleCommand, View::ViewStatProcs);
  UndoChange(session.data);
  EXPECT_EQ(SaveData(session), SaveOutcome::kSaved);
  EXPECT_EQ(ReadFile(file), before);
  EXPECT_EQ(KeptFiles(), 0u);
}

TEST_F(SampleOperationsTest, TheDictionaryComesToTheFront) {
  Execute(kDictionaryCommand, View::ViewDataGrid);
  EXPECT_EQ(session.wanted_view, View::ViewOutput);
  EXPECT_TRUE(session.output.MostRecentText.starts_with("FILE DATA DICTIONARY\t(As of 11/5/2026)\r\n"));
  EXPECT_EQ(session.data.CurrentRow, 0u);
}

TEST_F(SampleOperationsTest, PrintOnThePanelPrintsTheNotes) {
  platform.print_answers = {PrintChoice{}};
  Execute(kPrintCommand, View::ViewStatProcs);
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_TRUE(platform.printed[0][0].starts_with("TESSARA DATA FILE:  numbers.dcs\r\nNumber of Observations: 40\r\n"));
  EXPECT_TRUE(platform.printed[0][0].ends_with("NOTES:\r\nnotes\r\n"));
}

}  // namespace
}  // namespace tessara
