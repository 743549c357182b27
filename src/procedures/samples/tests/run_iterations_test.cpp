#include "procedures/samples/run_iterations.h"

#include <gtest/gtest.h>

#include "platform/tests/failing_memory.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

constexpr const char* kTooLarge = "Please enter a sample size that is less than the current size of the data file.";

// Eight records of X.
struct Iterations {
  Iterations() {
    data.DataFilePath = "/somewhere/x.dcs";
    data.GridTitle = data.DataFileTitle = "x.dcs";
  }

  IterationsOutcome Run(const std::string& size, const std::string& count, std::size_t picked = 1) {
    RandomNumbers random(7);
    return RunIterations(data, {.Text8 = {}, .Text15 = size, .Text16 = count}, picked, output, charts, random,
                         platform);
  }
  std::string RefusalOf(const std::string& size, const std::string& count, std::size_t picked = 1) {
    EXPECT_EQ(Run(size, count, picked), IterationsOutcome::kRefused);
    EXPECT_FALSE(CanUndo(data));
    if (platform.messages.size() != 1) return "so many boxes: " + std::to_string(platform.messages.size());
    EXPECT_EQ(platform.messages[0].title, "Procedure Aborted");
    const std::string text = platform.messages[0].text;
    platform.messages.clear();
    return text;
  }

  DataSet data = MakeTestData({{.name = "X", .cells = Texts({"3", "", "5", "abc", "7", "9", "11", "20"})},
                               {.name = "ONE", .cells = Texts({"1", "1", "1", "1", "1", "1", "1", "1"})}});
  OutputLog output;
  ChartStore charts;
  ScriptedPlatform platform;
};

TEST(RunIterations, ChecksComeInTheirOrder) {
  Iterations iterations;
  EXPECT_EQ(iterations.RefusalOf("8", "", 0), kTooLarge);
  EXPECT_EQ(iterations.RefusalOf("1e30", "", 0), kTooLarge);
  for (const char* size : {"", " ", "0", "-1", "0.4", "many"}) {
    EXPECT_EQ(iterations.RefusalOf(size, "", 0), "Please enter a sample size.") << size;
  }
  for (const char* count : {"", "0", "-5", "x"}) {
    EXPECT_EQ(iterations.RefusalOf("7", count, 0), "Please enter the number of iterations.") << count;
  }
  EXPECT_EQ(iterations.RefusalOf("7", "10", 0), "Please select a variable from the listbox.");
  EXPECT_EQ(iterations.RefusalOf("7", "10", 3), "Please select a variable from the listbox.");
  EXPECT_TRUE(iterations.output.OutputLogText.empty());
}

TEST(RunIterations, ReplacesTheDataByTheDistribution) {
  Iterations iterations;
  ASSERT_EQ(iterations.Run("3", "5"), IterationsOutcome::kRun);
  const DataSet& data = iterations.data;
  EXPECT_EQ(data.RecordCount, 5u);
  EXPECT_EQ(data.VariableCount, 4u);
  EXPECT_EQ(data.matrix.RowCount(), 21u);
  EXPECT_EQ(data.VarList[2].name, "Mean");
  // As in the test of the samples.
  EXPECT_EQ(data.matrix.Cell(17, 1), TaggedView(2.0));
  EXPECT_DOUBLE_EQ(data.matrix.Cell(17, 2).number(), 10.666666666666666);
  EXPECT_DOUBLE_EQ(data.matrix.Cell(17, 3).number(), 8.621678104251709);
  EXPECT_EQ(data.ProjectNotes,
            "Results from multiple random samples of X. Based on 5 random samples of sample size 3.");
  EXPECT_EQ(data.DataFilePath, Path("/somewhere/x.dcs"));
  EXPECT_EQ(data.GridTitle, "x.dcs");
  EXPECT_FALSE(data.DataDirty);
  EXPECT_EQ(iterations.platform.panes[1], "There are 199,980 data cells remaining.");
}

// Each mean is 1, so that every figure is known.
TEST(RunIterations, ReportsTheMeansBehindTheFrame) {
  Iterations iterations;
  iterations.output.MostRecentText = "an earlier run";
  iterations.output.OutputGridMode = true;
  ASSERT_EQ(iterations.Run(" 2 ", "3", 2), IterationsOutcome::kRun);
  const std::string rule = std::string(79, '-');
  EXPECT_EQ(iterations.output.OutputLogText,
            " ----------------------------------------------------\r\n"
            "| Results of Random Sampling.                        |\r\n"
            "|                                                    |\r\n"
            "| Variable Randomized:        ONE                    |\r\n"
            "| Size of Each Sample:        2                      |\r\n"
            "| Number of Random Samples:   3                      |\r\n"
            "|                                                    |\r\n"
            "| This is the mean of means produced from repeated   |\r\n"
            "| random samples. Click the Data Grid Tab to view    |\r\n"
            "| the sample of means. Click the Charts Tab to view  |\r\n"
            "| histograms representing the distribution of means. |\r\n"
            " ----------------------------------------------------\r\n"
            "\r\n"
            "Descriptive Statistics\r\n"
            "Variable: Mean     \r\n" +
                rule +
                "\r\n"
                "Count                          3         Pop Var                        0.0000\r\n"
                "Sum                            3.0000    Sam Var                        0.0000\r\n"
                "Mean                           1.0000    Pop Std                        0.0000\r\n"
                "Median                         1.0000    Sam Std                        0.0000\r\n"
                "Min                            1.0000    Std Error                      0.0000\r\n"
                "Max                            1.0000    CV%                            0.0000\r\n"
                "Range                          0.0000    95% CI (+/-)                   0.0000\r\n"
                "Skewness                       0.0000    One sample t-test (mu=0)  |p<| 1.0000\r\n" +
                rule +
                "\r\n\r\n"
                "Missing Cases    0\r\n"
                "\r\n" +
                std::string(kReportSeparator));
  EXPECT_EQ(iterations.output.MostRecentText, iterations.output.OutputLogText);
  EXPECT_FALSE(iterations.output.OutputGridMode);  // the report is what is to be seen
}

TEST(RunIterations, AVariableNameOfAnyLengthKeepsTheFrame) {
  Iterations iterations;
  MatrixEditor(iterations.data).SetText(kVariableNameRow, 2, "A_NAME_THAT_A_PROGRAM_MAY_HAVE_WRITTEN");
  ASSERT_EQ(iterations.Run("2", "3", 2), IterationsOutcome::kRun);
  EXPECT_NE(iterations.output.OutputLogText.find("| Variable Randomized:        A_NAME_THAT_A_PROGRAM_M|\r\n"),
            std::string::npos);
}

TEST(RunIterations, LeavesTheHistogramOfTheMeans) {
  Iterations iterations;
  ASSERT_EQ(iterations.Run("3", "5"), IterationsOutcome::kRun);
  EXPECT_EQ(iterations.charts.kind, ChartKind::kDescriptives);
  ASSERT_EQ(iterations.charts.charts.size(), 3u);
  EXPECT_EQ(iterations.charts.charts[0].title, "Histogram");
  EXPECT_EQ(iterations.charts.charts[0].horizontal_title, "Mean");
  EXPECT_EQ(iterations.charts.charts[0].values->size(), 5u);
  EXPECT_TRUE(ShowChart(iterations.charts, 0, iterations.platform).has_value());
}

// One sample has no deviation to be described.
TEST(RunIterations, OfOneSampleTheErrorFrameStandsAlone) {
  Iterations iterations;
  EXPECT_EQ(iterations.Run("2", "1"), IterationsOutcome::kAborted);
  EXPECT_EQ(iterations.output.OutputLogText,
            FramedError("Descriptive Analysis: Mean", "There are less than 2 observations, so procedure was aborted.") +
                std::string(kReportSeparator));
  EXPECT_EQ(iterations.data.RecordCount, 1u);
}

// A deviation divides by 0 then, and the cells hold what was there before: nothing was ever computed.
TEST(RunIterations, SamplesOfOneRecordHaveTheDeviationZero) {
  Iterations iterations;
  ASSERT_EQ(iterations.Run("1", "4", 2), IterationsOutcome::kRun);
  for (std::size_t row = 16; row < 20; ++row) {
    EXPECT_EQ(iterations.data.matrix.Cell(row, 2), TaggedView(1.0));
    EXPECT_EQ(iterations.data.matrix.Cell(row, 3), TaggedView(0.0));
  }
}

TEST(RunIterations, IsOneStepThatUndoTakesBack) {
  Iterations iterations;
  iterations.data.ProjectNotes = "notes";
  ASSERT_EQ(iterations.Run("3", "5"), IterationsOutcome::kRun);
  EXPECT_EQ(UndoName(iterations.data), "Run Iterations");
  ASSERT_TRUE(UndoChange(iterations.data));
  EXPECT_EQ(iterations.data.RecordCount, 8u);
  EXPECT_EQ(iterations.data.VariableCount, 2u);
  EXPECT_EQ(iterations.data.ProjectNotes, "notes");
  EXPECT_EQ(iterations.data.matrix.Cell(19, 1), TaggedView("abc"));
  ASSERT_TRUE(RedoChange(iterations.data));
  EXPECT_EQ(iterations.data.VariableName(3), "StdDev");
}

TEST(RunIterations, TellsWhatItDoes) {
  Iterations iterations;
  ASSERT_EQ(iterations.Run("3", "5"), IterationsOutcome::kRun);
  const auto& progress = iterations.platform.progress;
  ASSERT_GE(progress.size(), 3u);
  EXPECT_EQ(progress.front().caption, "Random Sample 1");
  EXPECT_EQ(progress[progress.size() - 2].caption, "Populating Data Grid");
  EXPECT_EQ(progress.back().caption, "Random Selection Complete");
  EXPECT_TRUE(progress.back().hidden);
  EXPECT_EQ(iterations.platform.wait_cursors, 0);
}

TEST(RunIterations, AtTheEditLimitTheStatusBarWarns) {
  Iterations iterations;
  ASSERT_EQ(iterations.Run("2", "50000"), IterationsOutcome::kRun);
  EXPECT_EQ(iterations.platform.panes[1], "GRID WARNING: Spreadsheet cannot be edited.");
}

TEST(RunIterations, MoreThanCanBeHeldIsRefusedBeforeAnythingIsDrawn) {
  Iterations iterations;
  for (const char* count : {"1e12", "99999999999999999999", "1e300"}) {
    EXPECT_THROW(iterations.Run("3", count), std::bad_alloc) << count;
  }
  EXPECT_EQ(iterations.data.RecordCount, 8u);
  EXPECT_TRUE(iterations.output.OutputLogText.empty());
}

TEST(RunIterations, WithoutMemoryAllIsAsItWas) {
  Iterations iterations;
  for (std::size_t allowed = 0; allowed < 2000; ++allowed) {
    iterations.platform.progress.clear();
    bool failed = false;
    {
      const FailingMemory memory(allowed);
      try {
        iterations.Run("3", "5");
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }
    if (!failed) break;
    ASSERT_EQ(iterations.data.RecordCount, 8u) << allowed;
    ASSERT_FALSE(CanUndo(iterations.data)) << allowed;
    ASSERT_TRUE(iterations.output.OutputLogText.empty()) << allowed;
    ASSERT_TRUE(iterations.charts.charts.empty()) << allowed;
  }
  EXPECT_EQ(iterations.data.RecordCount, 5u);
  EXPECT_FALSE(iterations.output.OutputLogText.empty());
  EXPECT_EQ(iterations.charts.charts.size(), 3u);
}

TEST(WantsToSaveFirst, AsksAboutChangesAlone) {
  Iterations iterations;
  EXPECT_FALSE(WantsToSaveFirst(iterations.data, iterations.platform));
  EXPECT_TRUE(iterations.platform.messages.empty());
  iterations.data.DataDirty = true;
  iterations.platform.message_answers = {Answer::kYes, Answer::kNo};
  EXPECT_TRUE(WantsToSaveFirst(iterations.data, iterations.platform));
  EXPECT_FALSE(WantsToSaveFirst(iterations.data, iterations.platform));
  ASSERT_EQ(iterations.platform.messages.size(), 2u);
  EXPECT_EQ(iterations.platform.messages[0].title, "Warning!");
  EXPECT_EQ(iterations.platform.messages[0].text,
            "The simulation will replace the current spreadsheet. Do you wish to save the changes to the data file "
            "before continuing?");
  EXPECT_EQ(iterations.platform.messages[0].buttons, Buttons::kYesNo);
}

}  // namespace
}  // namespace tessara
