#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "numerics/tagged_value.h"
#include "platform/platform.h"

// What the last procedure left for the charts. A chart is its titles, a footnote and a table of rows with a label and
// values; how it is drawn is the front end's.

namespace tessara {

inline constexpr std::size_t kChartViews = 4;

// Which procedure filled the charts.
enum class ChartKind { kNone, kFrequencies, kDescriptives, kCorrelation, kTTest, kCrosstabulation, kDiagnostic };

enum class ChartType {
  kBars,              // categories: bars with gaps
  kHistogram,         // intervals: bars without gaps
  kLine,              // intervals: a line through their middles
  kHistogramAndLine,  // both
  kScatter,           // points
};

// More categories than this have nothing to show in a chart, those of an ID variable for example.
inline constexpr std::size_t kMostChartedCategories = 10000;

// Values of cases, shared by the charts that show them.
using ChartValues = std::shared_ptr<const std::vector<double>>;

struct Chart {
  struct Series {
    std::string name;
    std::vector<double> values;  // one for each row
  };
  // What the axes of charts that stand side by side have in common.
  struct Axes {
    double low = 0;  // along the rows
    double high = 0;
    double most = 0;  // upward, from 0
  };

  ChartType type = ChartType::kBars;
  std::string title;
  std::string horizontal_title;  // of the axis along the rows; in a scatter chart that of x
  std::string vertical_title;    // of the axis of the values; in a scatter chart that of y
  std::string footnote;          // the words of the control caption

  std::vector<std::string> labels;   // one for each row; none in a scatter chart, whose rows are its points
  std::vector<std::string> details;  // what a label has behind it: of a category its percent, of an interval, whose
                                     // label is its lower end, the upper one; none at all where labels stand alone
  std::vector<Series> series;        // bars: one or more; intervals: one; none in a scatter chart

  ChartValues values;         // of the interval kinds, whose rows are counted when the chart is looked at
  ChartValues beside;         // the values of the chart whose axes this one shares, if any
  std::vector<double> edges;  // of the intervals, one more than rows; empty until they are counted
  std::optional<Axes> axes;   // shared ones, known when the rows are counted
  ChartValues x;              // of a scatter chart
  ChartValues y;
};

// The table of a chart: labels and values, a row each. The first column holds the label, the columns behind it the
// series; a scatter chart has x and y instead.
using ChartTable = std::vector<std::vector<TaggedValue>>;

struct ChartStore {
  ChartKind kind = ChartKind::kNone;
  std::vector<Chart> charts;              // the first views, kChartViews at most
  std::string summary;                    // the text beside an enlarged chart
  std::size_t SelectedVariableCount = 0;  // analysis variables of the last run
  std::uint64_t Revision = 0;             // counts up when the charts change
};

// Forgets the charts. A run begins with it, and a procedure that gives no chart leaves it so.
void ClearCharts(ChartStore& store);

// Takes the charts of a procedure in the place of the former ones; what has no view is left out.
void KeepCharts(ChartStore& store, ChartKind kind, std::vector<Chart> charts);

// One bar for each label.
Chart BarsChart(std::string title, std::string horizontal_title, std::string vertical_title,
                std::vector<std::string> labels, std::vector<Chart::Series> series);
// The frequencies of the values in the intervals that the text bar chart has.
Chart IntervalChart(ChartType type, std::string title, std::string horizontal_title, ChartValues values);
// Gives two interval charts the same axes, so that their pictures can be compared.
void ShareAxes(Chart& first, Chart& second);
Chart ScatterChart(std::string title, std::string horizontal_title, std::string vertical_title, ChartValues x,
                   ChartValues y);

// The rows of a chart: labels of the intervals are without the blanks that fill them in a report. A series that is
// shorter than the labels has empty cells at its end.
ChartTable ChartRows(const Chart& chart);
// A row's label with its detail: "Male  (61.2%)", "10.00 to 20.00". The chart has its rows.
std::string RowLabel(const Chart& chart, std::size_t row);
// The points of a scatter chart; 0 of any other.
std::size_t PointCount(const Chart& chart);

// The rows as tab-delimited text, each with a line end: what goes to the clipboard with a chart's image. More than one
// series stand under a line of their names.
std::string ChartRowsText(const Chart& chart);

// An interval chart with its labels and counts filled in, as in the text bar chart: a range beyond that of a double
// counts as 0, and no values at all have no rows. Other charts as they are.
Chart WithRows(const Chart& chart);

// The chart of a view of the last run, views counted from 0, to be shown enlarged; nothing, and a box that says why,
// where there is none.
std::optional<Chart> ShowChart(const ChartStore& store, std::size_t view, Platform& platform);

// All charts as tab-delimited text: for each a line "chart", title, both axis titles and footnote, then its rows.
std::string ChartsText(const ChartStore& store);

}  // namespace tessara
