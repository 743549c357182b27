#include <algorithm>

#include "calculators/brevarum_panel.h"

namespace tessara {
namespace {

constexpr auto kLabel = BrevarumBoxKind::kLabel;
constexpr auto kNumber = BrevarumBoxKind::kNumber;
constexpr auto kChoice = BrevarumBoxKind::kChoice;

constexpr std::string_view kAlphaTexts[] = {".01", ".05", ".10"};
constexpr std::string_view kPowerTexts[] = {".80", ".85", ".90", ".95"};

constexpr BrevarumBox kTwoMeans[] = {
    {"Text11", kLabel, "Optional label", "Sample(1)"},
    {"Text12", kLabel, "Optional label", "Sample(2)"},
    {"tx1", kNumber, "Mean of Sample 1"},
    {"tx2", kNumber, "Mean of Sample 2"},
    {"ts1", kNumber, "Standard deviation of Sample 1"},
    {"ts2", kNumber, "Standard deviation of Sample 2"},
    {"tn1", kNumber, "Number of observations"},
    {"tn2", kNumber, "Number of observations"},
};
constexpr std::string_view kTwoMeansCaptions[] = {"Label", "Sample Mean", "Standard Deviation", "Cases (n)"};

constexpr BrevarumBox kOneMean[] = {
    {"Text20", kNumber, "Population mean"},
    {"Text21", kNumber, "Sample mean"},
    {"Text22", kNumber, "Standard deviation"},
    {"Text23", kNumber, "Number of observations"},
};
constexpr std::string_view kOneMeanCaptions[] = {"Population Mean", "Sample Mean", "Standard Deviation", "Cases (n)"};

constexpr BrevarumBox kManyMeans[] = {
    {"Text13", kLabel, "Optional label"},
    {"Text14", kLabel, "Optional label"},
    {"Text15", kLabel, "Optional label"},
    {"Text16", kLabel, "Optional label"},
    {"An1"},
    {"An2"},
    {"An3"},
    {"An4"},
    {"Ax1"},
    {"Ax2"},
    {"Ax3"},
    {"Ax4"},
    {"As1"},
    {"As2"},
    {"As3"},
    {"As4"},
};
constexpr std::string_view kManyMeansCaptions[] = {"Label", "Cases (n)", "Mean", "Std Dev"};

constexpr BrevarumBox kTwoProportions[] = {
    {"Text17", kLabel, "", "Sample(1)"}, {"Text18", kLabel, "", "Sample(2)"}, {"zp1"}, {"zp2"}, {"zn1"}, {"zn2"},
};
constexpr std::string_view kTwoProportionsCaptions[] = {"Label", "Sample Proportion", "Cases (n)"};

constexpr BrevarumBox kOneProportion[] = {{"PU1"}, {"SU1"}, {"NU1"}};
constexpr std::string_view kOneProportionCaptions[] = {"Pop. Proportion", "Sample Proportion", "Cases (n)"};

// Column c, row r of the table of counts is C<c>R<r>.
constexpr std::string_view kColumnTip = "Optional column label";
constexpr std::string_view kRowTip = "Optional row label";
constexpr BrevarumBox kCounts[] = {
    {"Text1", kLabel, kColumnTip},
    {"Text2", kLabel, kColumnTip},
    {"Text3", kLabel, kColumnTip},
    {"Text4", kLabel, kColumnTip},
    {"Text5", kLabel, kColumnTip},
    {"Text6", kLabel, kRowTip},
    {"C1R1"},
    {"C2R1"},
    {"C3R1"},
    {"C4R1"},
    {"C5R1"},
    {"Text7", kLabel, kRowTip},
    {"C1R2"},
    {"C2R2"},
    {"C3R2"},
    {"C4R2"},
    {"C5R2"},
    {"Text8", kLabel, kRowTip},
    {"C1R3"},
    {"C2R3"},
    {"C3R3"},
    {"C4R3"},
    {"C5R3"},
    {"Text9", kLabel, kRowTip},
    {"C1R4"},
    {"C2R4"},
    {"C3R4"},
    {"C4R4"},
    {"C5R4"},
    {"Text10", kLabel, kRowTip},
    {"C1R5"},
    {"C2R5"},
    {"C3R5"},
    {"C4R5"},
    {"C5R5"},
};
constexpr std::string_view kCountsCaptions[] = {"Dependent Variable", "Independent Variable"};

constexpr BrevarumBox kThreeShared[] = {{"T1"}, {"T2"}, {"T3"}};
constexpr BrevarumBox kTwoShared[] = {{"T1"}, {"T2"}};
constexpr BrevarumBox kFourShared[] = {{"T1"}, {"T2"}, {"T3"}, {"T4"}};
constexpr BrevarumBox kPower[] = {
    {"Alpha", kChoice, "", ".05", kAlphaTexts},
    {"Beta", kChoice, "", ".80", kPowerTexts},
    {"T1"},
    {"T2"},
    {"T3"},
    {"T4"},
};

// The panel numbers run in the order in which the panels came to be; the samples of one were the last.
constexpr BrevarumPanelRow kRows[] = {
    {.panel = 0,
     .option = 0,
     .button = "T-Test",
     .samples = kTwoSample,
     .command_name = "t-test",
     .frame = "Frame4",
     .frame_caption = "Two Sample Means",
     .help_page = "UserManual3.html#sumt",
     .instructions = "Two-sample t-test:\tCompare two independent sample means.\r\n\r\n"
                     "Enter the summary statistics in the boxes for each sample as indicated and click the calculate "
                     "button.",
     .captions = kTwoMeansCaptions,
     .boxes = kTwoMeans},
    {.panel = 1,
     .option = 1,
     .button = "ANOVA",
     .command_name = "anova",
     .frame = "Frame6",
     .frame_caption = "Two or More Sample Means",
     .help_page = "UserManual3.html#sumanova",
     .instructions = "Compare two or more independent sample means.\r\n\r\n"
                     "Enter the summary statistics in the boxes as indicated for each sample (column) and click the "
                     "calculate button.\r\n\r\n"
                     "Each column represents one sample distribution. You must start with the left column. At least "
                     "two columns (the two left columns) must have data for Brevarum to compute statistics. ",
     .captions = kManyMeansCaptions,
     .boxes = kManyMeans},
    {.panel = 2,
     .option = 2,
     .button = "Z-Test",
     .samples = kTwoSample,
     .command_name = "z-test",
     .frame = "Frame2",
     .frame_caption = "Two Sample Proportions",
     .frame_tooltip = "Test for the difference between two independent sample proportions",
     .help_page = "UserManual3.html#sumztest",
     .instructions = "Two-sample z-test:  Compare two independent sample proportions. \r\n\r\n"
                     "Enter the data in the boxes as indicated. It is important to remember that, if you are comparing "
                     "percentages, that you first convert them to proportions (e.g., 75% = .75). ",
     .captions = kTwoProportionsCaptions,
     .boxes = kTwoProportions},
    {.panel = 3,
     .option = 3,
     .button = "Chi-Square",
     .command_name = "chi-square",
     .frame = "Frame7",
     .frame_caption = "Chi-Square Test of Independence",
     .help_page = "UserManual3.html#sumchi",
     .instructions = "Compare two discrete variables.\r\n\r\n"
                     "Enter frequencies (counts) in the boxes and click the calculate button. The columns represent "
                     "one variable with up to five subgroups (e.g., Protestant, Catholic, and Muslim are subcategories "
                     "for the variable 'Religion'). The rows represent a second variable with up to five subgroups."
                     "\r\n\r\n"
                     "You must start with the left column.  At least two columns (the two left columns) and two rows "
                     "(the top two rows) must have data for Brevarum to compute statistics.",
     .captions = kCountsCaptions,
     .boxes = kCounts},
    {.panel = 4,
     .option = 4,
     .button = "Mean CI",
     .command_name = "mean-ci",
     .frame = "F1",
     .frame_caption = " Margin of Error for Means",
     .help_page = "UserManual3.html#summean",
     .instructions = "Enter the sample size (n), mean, and standard deviation (std dev) and click the calculate button "
                     "to estimate the margin of error.\r\n\r\n"
                     "Brevarum will produce 90%, 95%, and 99% confidence intervals (in order from top to bottom).  The "
                     "margin of error (+ or -) will be presented in the middle of the range and the upper and lower "
                     "limits will be present at the left and right margins respectively.",
     .labels = {"n", "Mean", "StdDev"},
     .boxes = kThreeShared},
    {.panel = 5,
     .option = 5,
     .button = "Proportion CI",
     .command_name = "proportion-ci",
     .frame = "F1",
     .frame_caption = " Margin of Error for Proportions",
     .help_page = "UserManual3.html#sumprop",
     .instructions = "Enter the sample size (n) and the proportion and click the calculate button to estimate the "
                     "margin of error.\r\n\r\n"
                     "Brevarum will produce 90%, 95%, and 99% confidence intervals (in order from top to bottom).  The "
                     "margin of error (+ or -) will be presented in the middle of the range and the upper and lower "
                     "limits will be present at the left and right margins respectively.\r\n\r\n"
                     "Note: Don't forget to convert percentages to proportions (e.g., 82% must be converted to .82).",
     .labels = {"n", "Proportion"},
     .boxes = kTwoShared},
    {.panel = 6,
     .option = 6,
     .button = "Z-Scores",
     .command_name = "z-score",
     .frame = "F1",
     .frame_caption = " Standardized Scores",
     .help_page = "UserManual3.html#sumz",
     .instructions = "To use the standardized score module, enter one score from a distribution of scores in the first "
                     "box.  Enter the mean of the distribution in the second box. Enter the standard deviation of the "
                     "distribution in the third box.\r\n\r\n"
                     "Click the calculate button and the z-score will be calculated and its relative location in a "
                     "normal distribution will be noted in the graph.",
     .labels = {"Score", "Mean", "StdDev", "Z Score"},
     .boxes = kThreeShared},
    {.panel = 7,
     .option = 7,
     .button = "Accuracy",
     .command_name = "accuracy",
     .frame = "F1",
     .frame_caption = "Diagnostic Accuracy",
     .help_page = "UserManual3.html#sumacc",
     .instructions = "Enter counts in each cell to evaluate the accuracy of a diagnostic test in identifying disease "
                     "presence or absence.\r\n\r\n"
                     "The letter D represents known disease status. The letter T represents test results.\r\n\r\n"
                     " The + and - signs represent disease present and disease absent.\r\n\r\n"
                     "Interpretation of the six measures commonly used in diagnostic accuracy can be found in the Help "
                     "module.",
     .labels = {"Known Status", "Test Result          D-           D+         Total", "T-", "T+", "       Total"},
     .boxes = kFourShared},
    {.panel = 8,
     .option = 8,
     .button = "Power",
     .command_name = "power",
     .frame = "F1",
     .frame_caption = "Sample Size Estimator",
     .help_page = "UserManual3.html#sumpower",
     .instructions = "Estimate the appropriate sample size for a study. Sometimes called a power analysis, the primary "
                     "goal is to collect enough cases to ensure you don't make a Type II error (Beta).\r\n\r\n"
                     "Beta is the probability of not rejecting a null hypothesis when it should have been rejected.  "
                     "Power is 1- beta and is defined as the probability of correctly finding statistical "
                     "significance.\r\n\r\n"
                     "A common value for power is .80 or an 80% chance that a random sample will find a statistically "
                     "significant difference when there truly is a difference in the population. ",
     .labels = {"Statistical Significance", "Statistical Power", "Proportions (for z-test)", "Sample1 Proportion",
                "Sample2 Proportion", "Means (for t-test)", "Difference of Means", "Estimated Std Dev"},
     .boxes = kPower},
    {.panel = 9,
     .option = 0,
     .button = "T-Test",
     .samples = kOneSample,
     .command_name = "t-test-one",
     .frame = "Frame3",
     .frame_caption = "One Sample Mean",
     .help_page = "UserManual3.html#sumt",
     .instructions = "One-sample t-test:\tCompare a sample mean to a population mean.\r\n\r\n"
                     "Enter the summary statistics in the boxes as indicated and click the calculate button.  Entering "
                     "a label is not required. The population mean is the hypothetical mean that is used to compare to "
                     "the sample mean.  If you leave it blank, Brevarum will assume it is 0.",
     .captions = kOneMeanCaptions,
     .boxes = kOneMean},
    {.panel = 10,
     .option = 2,
     .button = "Z-Test",
     .samples = kOneSample,
     .command_name = "z-test-one",
     .frame = "Frame1",
     .frame_caption = "One Sample Proportion",
     .frame_tooltip = "Test for the difference between one sample proportion and a population proportion",
     .help_page = "UserManual3.html#sumztest",
     .instructions = "One-sample z-test:  Compare a sample proportion to a population proportion. \r\n\r\n"
                     "Enter the summary statistics in the boxes as indicated and click the calculate button. The "
                     "population proportion is the hypothetical proportion that is used to compare to the sample "
                     "proportion.  If you leave it blank, Brevarum will assume it is 0.",
     .captions = kOneProportionCaptions,
     .boxes = kOneProportion},
};
static_assert(std::size(kRows) == kBrevarumPanels);

}  // namespace

std::span<const BrevarumPanelRow> BrevarumPanelRows() { return kRows; }

const BrevarumPanelRow* FindBrevarumPanel(std::string_view command_name) {
  const auto found = std::ranges::find(kRows, command_name, &BrevarumPanelRow::command_name);
  return found == std::end(kRows) ? nullptr : found;
}

const BrevarumBox* FindBrevarumBox(const BrevarumPanelRow& row, std::string_view name) {
  for (const BrevarumPanelRow& other : kRows) {
    if (other.option != row.option) continue;  // one and two samples share their button
    const auto found = std::ranges::find(other.boxes, name, &BrevarumBox::name);
    if (found != other.boxes.end()) return &*found;
  }
  return nullptr;
}

}  // namespace tessara
