#include "procedures/compare/two_sample_t.h"

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "data/value_labels.h"
#include "numerics/case_values.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/probability.h"
#include "numerics/report_text.h"
#include "numerics/sums.h"
#include "procedures/cases/accepted_cases.h"

namespace tessara {
namespace {

constexpr std::uint8_t kNeither = 2;

// The sample of a record, by 2 * code + flag: a dropped record, whose flag is 0, is in neither.
std::vector<std::uint8_t> SamplesOfCodes(const CodedColumn& coded, const std::array<std::string, 2>& values) {
  std::vector<std::uint8_t> samples(2 * coded.cells.size(), kNeither);
  NumberBuffer buffer;
  for (std::size_t code = 0; code < coded.cells.size(); ++code) {
    const std::string_view text = TextOf(coded.cells[code], buffer);
    if (text == values[0]) {
      samples[2 * code + 1] = 0;
    } else if (text == values[1]) {
      samples[2 * code + 1] = 1;
    }
  }
  return samples;
}

}  // namespace

TTestCases GatherTTest(const CaseSource& source, const Roles& roles, const std::array<std::string, 2>& values) {
  const CodedColumn coded = ReadCodedColumn(source, roles.independent);
  const std::vector<std::uint8_t> samples = SamplesOfCodes(coded, values);
  CaseFlags accepted = PassingRecords(source);
  DropUnlessNumber(source, roles.main, accepted);

  std::array<std::size_t, 3> sizes{};
  for (std::size_t record = 0; record < accepted.size(); ++record) {
    ++sizes[samples[2 * std::size_t{coded.codes[record]} + accepted[record]]];
  }
  TTestCases cases{std::vector<double>(sizes[0]), std::vector<double>(sizes[1])};
  // Every value is written, those of neither sample to a place that does not move, so that no case costs a branch.
  double nowhere = 0;
  std::array<double*, 3> places{cases[0].data(), cases[1].data(), &nowhere};
  constexpr std::array<std::ptrdiff_t, 3> kSteps{1, 1, 0};
  const std::vector<double>& numbers = source.data.matrix.Numbers(roles.main, source.used.records).values;
  for (std::size_t record = 0; record < accepted.size(); ++record) {
    const std::size_t sample = samples[2 * std::size_t{coded.codes[record]} + accepted[record]];
    *places[sample] = numbers[record];
    places[sample] += kSteps[sample];
  }
  return cases;
}

TTestSample ComputeTTestSample(const std::vector<double>& values) {
  TTestSample sample;
  sample.n = static_cast<double>(values.size());
  sample.mean = SumInOrder(values.size(), [&](std::size_t i) { return values[i]; }) / sample.n;
  sample.squares = SumOfSquares(values, sample.mean.value());
  return sample;
}

namespace {

// A p as it is printed: one that shows as 0, and one that was not computed, is told as the smallest that can be shown.
Number ShownP(Checked p) {
  const Checked shown = RoundedBy(p, "0.0000");
  return shown == 0 ? Number(0.0001) : Number(shown);  // also when there is no p, which cannot be compared
}

SampleSpread SpreadOf(const TTestSample& sample) {
  const Number variance = sample.squares / sample.n;
  return {.n = sample.n, .squares = sample.squares, .mean_variance = variance / (sample.n - 1)};
}

}  // namespace

TTestResult ComputeTTest(const TTestSample& one, const TTestSample& two) {
  TTestResult result;
  result.deviations[0] = Sqrt(one.squares / (one.n - 1));
  result.deviations[1] = Sqrt(two.squares / (two.n - 1));
  const SampleSpread spread_one = SpreadOf(one);
  const SampleSpread spread_two = SpreadOf(two);

  result.equal_df = PooledDf(spread_one, spread_two);
  Number error = PooledError(spread_one, spread_two);
  result.equal.t = RoundedBy((one.mean - two.mean) / error, "0.000");
  result.unequal_df = RoundedBy(WelchDf(spread_one, spread_two), "0.00");
  error = WelchError(spread_one, spread_two);  // one that fails leaves the pooled error
  result.unequal.t = RoundedBy((one.mean - two.mean) / error, "0.000");

  const std::array<StudentT, 2> tests = {
      {{result.equal_df, result.equal.t}, {RoundHalfEven(result.unequal_df.value()), result.unequal.t}}};
  const std::vector<Checked> ps = TDistPs(tests);
  result.equal.p = ShownP(ps[0]);
  result.unequal.p = ShownP(result.unequal_df.value() >= 5 ? ps[1] : Checked::Failed());  // there is none below that

  result.ratio = CompareVariances(one.n, Number(one.squares / one.n), two.n, Number(two.squares / two.n));
  result.f_p = Computed(FDistP(result.ratio.numerator_df, result.ratio.denominator_df, result.ratio.f));
  return result;
}

namespace {

std::string TTestReport(const CaseSource& source, const Roles& roles, const std::array<std::string, 2>& values,
                        const std::array<std::string, 2>& labels, const TTestSample& one, const TTestSample& two,
                        const TTestResult& result) {
  const auto head = [&](std::size_t column) {
    return source.data.VariableName(column) + "\t" + source.data.VariableLabel(column);
  };
  const std::string degrees = "(" + GeneralText(result.ratio.numerator_df.value()) + ", " +
                              GeneralText(result.ratio.denominator_df.value()) + ")";
  const TTestResult::Line& equal = result.equal;
  const TTestResult::Line& unequal = result.unequal;

  std::string report = source.control.ControlCaption();
  report += "Two-Sample Difference of Means\r\n\r\n\r\n";
  report += "Independent Variable: " + head(roles.independent) + "\r\n";
  report += "Dependent Variable: " + head(roles.main) + "\r\n\r\n";
  report += "Sample One: " + values[0] + " " + labels[0] + "\r\n";
  report += "Sample Two: " + values[1] + " " + labels[1] + "\r\n\r\n";
  report += "                         Sample 1         Sample 2\r\n";
  report += "                         " + PadRight(labels[0], 8) + "         " + PadRight(labels[1], 8) + "\r\n";
  report += "                    --------------   --------------\r\n";
  report += "Sample Mean     " + FormatCol(one.mean, 18, 4) + FormatCol(two.mean, 17, 4) + "\r\n";
  report +=
      "Std Deviation   " + FormatCol(result.deviations[0], 18, 4) + FormatCol(result.deviations[1], 17, 4) + "\r\n";
  report += "Sample Size (n)      " + FormatCol(one.n, 8, 0) + "           " + FormatCol(two.n, 6, 0) + "\r\n\r\n";
  report += "\r\n" + Blanks(10) + "              Homogeneity of Variance\r\n";
  report += Blanks(7) + "  ---------------------------------------------------\r\n";
  report += Blanks(10) + "    F-ratio   " + MaskedNumber(result.ratio.f.value(), "0.00") +  //
            "    DF " + degrees + "   p < " + MaskedOrEmpty(result.f_p, "0.0000") + "\r\n\r\n\r\n";
  report += "                     T-statistic          DF        p < (2-tailed)\r\n";
  report += "                   -------------     -------      ----------------\r\n";
  report += "Equal Variance   " + FormatCol(equal.t, 15, 4) + "  " + PadLeftBlank(result.equal_df.value(), 7) +
            FormatCol(equal.p, 24, 4) + "\r\n";
  report += "Unequal Variance " + FormatCol(unequal.t, 15, 4) + "  " +
            PadLeftBlank(MaskedNumber(result.unequal_df.value(), "0.00"), 10) + FormatCol(unequal.p, 21, 4) +
            "\r\n\r\n\r\n";
  report += "\r\n\r\n\r\n";
  return report;
}

// The lists move into the charts: nothing reads them any more.
void LeaveHistograms(ProcedureRun& run, const std::string& name, const std::array<std::string, 2>& labels,
                     TTestCases& cases) {
  const auto histogram = [&](const std::string& title, std::size_t sample) {
    auto values = std::make_shared<const std::vector<double>>(std::move(cases[sample]));
    return IntervalChart(ChartType::kHistogram, title + " (" + labels[sample] + ")", name, std::move(values));
  };
  std::vector<Chart> charts = {histogram("Group 1", 0), histogram("Group 2", 1)};
  ShareAxes(charts[0], charts[1]);
  run.LeaveCharts(ChartKind::kTTest, std::move(charts));
}

constexpr std::string_view kVerifyValues =
    "Verify you have properly indicated the values (e.g.; 1 for male 2 for female)\r\n"
    "for the independent variable and that they match the data.";

}  // namespace

void RunTTest(ProcedureRun& run, const Roles& roles, const TTestOptions& options) {
  constexpr std::string_view kTitle = "T-Test Comparison: ";
  const DataSet& data = run.data;
  const std::string pair = NamesOfPair(data, roles.main, roles.independent);
  if (roles.main < 1 || roles.independent < 1) {
    run.ReportError(ErrorMessage(kTitle, pair, "You must select an independent and dependent variable."));
    return;
  }
  const std::array<std::string, 2> values{options.group_a, options.group_b};
  if (values[0].empty() || values[1].empty()) {
    run.ReportError(ErrorMessage(kTitle, pair, "You must select two valid values."));
    return;
  }
  const CaseSource source = BeginCases(run);
  if (source.used.records == 0) return;
  TTestCases cases = GatherTTest(source, roles, values);
  // No line ends follow the two messages below.
  const std::string head = std::string(kTitle).append(pair).append("\r\n\r\n");
  if (cases[0].size() < 5 || cases[1].size() < 5) {  // both must reach five, though the message says "in each"
    run.ReportError(head + "Procedure was aborted. There are less than five observations in each group.\r\n" +
                    std::string(kVerifyValues));
    return;
  }
  const TTestSample one = ComputeTTestSample(cases[0]);
  const TTestSample two = ComputeTTestSample(cases[1]);
  if (one.squares == 0 || two.squares == 0) {
    run.ReportError(head + "There is no variance in one of the variables, so this procedure was aborted.\r\n" +
                    std::string(kVerifyValues));
    return;
  }
  const ValueLabels value_labels = LoadValueLabels(data.matrix, roles.independent);
  const std::array<std::string, 2> labels{value_labels.Apply(values[0]), value_labels.Apply(values[1])};
  run.AppendReport(TTestReport(source, roles, values, labels, one, two, ComputeTTest(one, two)));
  if (run.wants_charts) LeaveHistograms(run, data.VariableName(roles.main), labels, cases);
}

}  // namespace tessara
