#include "procedures/samples/run_iterations.h"

#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "data/change_door.h"
#include "numerics/report_text.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/describe/descriptives.h"
#include "procedures/samples/grid_room.h"
#include "procedures/samples/sample_progress.h"
#include "procedures/samples/sampling_distribution.h"
#include "procedures/samples/say_afterwards.h"

namespace tessara {
namespace {

constexpr int kFrameRule = 52;
constexpr int kFrameLabel = 28;
constexpr int kFrameValue = 23;

std::nullopt_t Refuse(Messages& messages, const char* text) {
  messages.ShowMessage({"Procedure Aborted", text});
  return std::nullopt;
}

std::optional<SamplingPlan> CheckedPlan(const DataSet& data, const SamplePanel& samples, std::size_t picked_variable,
                                        Messages& messages) {
  const std::size_t size = SizeOfBox(samples.Text15).value_or(0);
  if (size >= data.RecordCount) {
    return Refuse(messages, "Please enter a sample size that is less than the current size of the data file.");
  }
  if (size == 0) return Refuse(messages, "Please enter a sample size.");
  const auto iterations = SizeOfBox(samples.Text16);
  if (!iterations) return Refuse(messages, "Please enter the number of iterations.");
  if (picked_variable < 1 || picked_variable > data.VariableCount) {
    return Refuse(messages, "Please select a variable from the listbox.");
  }
  return SamplingPlan{size, *iterations};
}

// A sample takes as much memory again while it is drawn, described and charted as it takes in the data.
bool CanBeHeld(const SamplingPlan& plan) { return ShapeCanBeHeld(plan.iterations, 2 * kDistributionColumns); }

std::string FrameRule() { return " " + DashedRule(kFrameRule) + "\r\n"; }
std::string FrameLine(std::string_view label, std::string_view value) {
  return "| " + PadRight(label, kFrameLabel) + PadRight(value, kFrameValue) + "|\r\n";
}

// What stands ahead of the report of the means.
std::string SamplingFrame(const std::string& variable, const SamplingPlan& plan) {
  return FrameRule() +                                                              //
         "| Results of Random Sampling.                        |\r\n"               //
         "|                                                    |\r\n" +             //
         FrameLine("Variable Randomized:", variable) +                              //
         FrameLine("Size of Each Sample:", std::to_string(plan.sample_size)) +      //
         FrameLine("Number of Random Samples:", std::to_string(plan.iterations)) +  //
         "|                                                    |\r\n"               //
         "| This is the mean of means produced from repeated   |\r\n"               //
         "| random samples. Click the Data Grid Tab to view    |\r\n"               //
         "| the sample of means. Click the Charts Tab to view  |\r\n"               //
         "| histograms representing the distribution of means. |\r\n" +             //
         FrameRule() +
         "\r\n";
}

std::string NotesOnSampling(const std::string& variable, const SamplingPlan& plan) {
  return "Results from multiple random samples of " + variable + ". Based on " + std::to_string(plan.iterations) +
         " random samples of sample size " + std::to_string(plan.sample_size) + ".";
}

DataMatrix DrawDistribution(const DataSet& data, std::size_t variable, const SamplingPlan& plan, RandomNumbers& random,
                            SampleProgress& progress) {
  const auto samples = DrawSamples(GatherSampledVariable(data, variable), plan, random, [&](std::size_t k) {
    if (progress.IsDue()) progress.Show("Random Sample " + std::to_string(k), static_cast<double>(k));
  });
  return DistributionMatrix(samples);
}

// The report of the means and its charts, made apart from the session's data.
struct DescribedMeans {
  std::vector<std::string> reports;
  ChartStore charts;
  bool aborted = false;
};

DescribedMeans DescribeMeans(DataContents contents, const std::string& frame, const ChartStore& charts,
                             Platform& platform) {
  DataSet means;
  BeginData(means, std::move(contents));
  DescribedMeans described;
  described.charts.SelectedVariableCount = 1;
  described.charts.Revision = charts.Revision;
  ClearCharts(described.charts);
  const ControlVariable no_control;
  const ControlChoice no_relation;
  ProcedureRun run{.data = means,
                   .charts = described.charts,
                   .platform = platform,
                   .control_variable = no_control,
                   .control = no_relation};
  RunDescriptives(run, {.main = kMeanColumn}, {});
  described.reports = std::move(run.reports);
  described.aborted = run.aborted;
  if (!run.aborted) described.reports.front().insert(0, frame);
  return described;
}

}  // namespace

bool WantsToSaveFirst(const DataSet& data, Messages& messages) {
  if (!data.DataDirty) return false;
  return messages.ShowMessage({"Warning!",
                               "The simulation will replace the current spreadsheet. Do you wish to save the changes "
                               "to the data file before continuing?",
                               Buttons::kYesNo, Tone::kQuestion}) == Answer::kYes;
}

IterationsOutcome RunIterations(DataSet& data, const SamplePanel& samples, std::size_t picked_variable,
                                OutputLog& output, ChartStore& charts, RandomNumbers& random, Platform& platform) {
  const auto plan = CheckedPlan(data, samples, picked_variable, platform);
  if (!plan) return IterationsOutcome::kRefused;
  if (!CanBeHeld(*plan)) throw std::bad_alloc();
  const WaitCursor wait(platform);
  SampleProgress progress(platform, static_cast<double>(plan->iterations));
  progress.Show("Random Sample 1", 0);
  const std::string name = data.VariableName(picked_variable);
  DataContents contents = ContentsMadeOf(data, DrawDistribution(data, picked_variable, *plan, random, progress),
                                         plan->iterations, NotesOnSampling(name, *plan));
  progress.Show("Populating Data Grid", static_cast<double>(plan->iterations));
  DescribedMeans described = DescribeMeans(contents, SamplingFrame(name, *plan), charts, platform);

  // All is made: from here on the data, the output and the charts change together.
  RoomForReports room = MakeRoom(output, described.reports);
  ApplyChange(data, ReplaceByMade(std::move(contents), "Run Iterations"));
  AppendRun(output, described.reports, std::move(room));
  output.OutputGridMode = false;
  charts = std::move(described.charts);
  progress.Show("Random Selection Complete", static_cast<double>(plan->iterations));
  SayAfterwards([&] { platform.SetStatusPane(1, GridRoomText(data)); });
  return described.aborted ? IterationsOutcome::kAborted : IterationsOutcome::kRun;
}

}  // namespace tessara
