#include "presentation/chart_data.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "numerics/checked.h"
#include "numerics/number_text.h"
#include "numerics/text.h"
#include "presentation/bar_chart.h"

namespace tessara {
namespace {

constexpr const char* kFrequency = "Frequency";
constexpr const char* kNoChart = "No Chart Available";

// A field of a tab-delimited line: what would break the line apart becomes a blank.
std::string Field(std::string_view text) {
  std::string field(text);
  std::ranges::replace_if(
      field, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
  return field;
}

// The points of a scatter chart go to their lines without a table in between: there may be a million of them.
void AppendRows(std::string& text, const Chart& chart) {
  if (chart.type == ChartType::kScatter) {
    NumberBuffer buffer;
    for (std::size_t i = 0; i < PointCount(chart); ++i) {
      text += TextOf((*chart.x)[i], buffer);
      text += '\t';
      text += TextOf((*chart.y)[i], buffer);
      text += "\r\n";
    }
    return;
  }
  for (const std::vector<TaggedValue>& row : ChartRows(chart)) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) text += '\t';
      text += Field(TextOf(row[i]));
    }
    text += "\r\n";
  }
}

// The intervals of values, of which there is one at least.
BarTable IntervalsOf(const std::vector<double>& values) {
  const auto [least, greatest] = std::ranges::minmax_element(values);
  Number range;
  range = Checked(*greatest) - *least;
  return MakeBarTable(values, *least, range.value());
}

Chart::Axes CommonAxes(const BarTable& first, const BarTable& second) {
  Chart::Axes axes;
  axes.low = std::min(first.edges.front(), second.edges.front());
  axes.high = std::max(first.edges.back(), second.edges.back());
  for (const BarTable* table : {&first, &second}) {
    for (const BarTable::Bar& bar : table->bars) axes.most = std::max(axes.most, static_cast<double>(bar.count));
  }
  return axes;
}

}  // namespace

void ClearCharts(ChartStore& store) {
  store.kind = ChartKind::kNone;
  store.charts.clear();
  store.summary.clear();
  ++store.Revision;
}

void KeepCharts(ChartStore& store, ChartKind kind, std::vector<Chart> charts) {
  store.kind = kind;
  store.charts = std::move(charts);
  if (store.charts.size() > kChartViews) store.charts.resize(kChartViews);
  ++store.Revision;
}

Chart BarsChart(std::string title, std::string horizontal_title, std::string vertical_title,
                std::vector<std::string> labels, std::vector<Chart::Series> series) {
  Chart chart;
  chart.type = ChartType::kBars;
  chart.title = std::move(title);
  chart.horizontal_title = std::move(horizontal_title);
  chart.vertical_title = std::move(vertical_title);
  chart.labels = std::move(labels);
  chart.series = std::move(series);
  return chart;
}

Chart IntervalChart(ChartType type, std::string title, std::string horizontal_title, ChartValues values) {
  Chart chart;
  chart.type = type;
  chart.title = std::move(title);
  chart.horizontal_title = std::move(horizontal_title);
  chart.vertical_title = kFrequency;
  chart.values = std::move(values);
  return chart;
}

Chart ScatterChart(std::string title, std::string horizontal_title, std::string vertical_title, ChartValues x,
                   ChartValues y) {
  Chart chart;
  chart.type = ChartType::kScatter;
  chart.title = std::move(title);
  chart.horizontal_title = std::move(horizontal_title);
  chart.vertical_title = std::move(vertical_title);
  chart.x = std::move(x);
  chart.y = std::move(y);
  return chart;
}

void ShareAxes(Chart& first, Chart& second) {
  first.beside = second.values;
  second.beside = first.values;
}

Chart WithRows(const Chart& chart) {
  Chart filled = chart;
  if (!chart.values || chart.values->empty()) return filled;
  BarTable table = IntervalsOf(*chart.values);
  Chart::Series counts{kFrequency, {}};
  filled.labels.clear();
  filled.details.clear();
  for (BarTable::Bar& bar : table.bars) {
    filled.labels.push_back(std::move(bar.low));
    filled.details.push_back(std::move(bar.high));
    counts.values.push_back(static_cast<double>(bar.count));
  }
  filled.series = {std::move(counts)};
  if (chart.beside && !chart.beside->empty()) filled.axes = CommonAxes(table, IntervalsOf(*chart.beside));
  filled.edges = std::move(table.edges);
  return filled;
}

std::string RowLabel(const Chart& chart, std::size_t row) {
  const std::string& label = chart.labels[row];
  if (row >= chart.details.size()) return label;
  const std::string& detail = chart.details[row];
  if (chart.type == ChartType::kBars) return label + "  (" + detail + ")";
  return std::string(Trimmed(IntervalLabel(IntervalText(label, detail))));
}

std::size_t PointCount(const Chart& chart) {
  return chart.x && chart.y ? std::min(chart.x->size(), chart.y->size()) : 0;
}

ChartTable ChartRows(const Chart& chart) {
  ChartTable table;
  if (chart.type == ChartType::kScatter) {
    for (std::size_t i = 0; i < PointCount(chart); ++i) table.push_back({(*chart.x)[i], (*chart.y)[i]});
    return table;
  }
  const Chart filled = WithRows(chart);
  for (std::size_t row = 0; row < filled.labels.size(); ++row) {
    std::vector<TaggedValue> cells = {RowLabel(filled, row)};
    for (const Chart::Series& series : filled.series) {
      cells.push_back(row < series.values.size() ? TaggedValue(series.values[row]) : TaggedValue());
    }
    table.push_back(std::move(cells));
  }
  return table;
}

std::string ChartRowsText(const Chart& chart) {
  std::string text;
  if (chart.series.size() > 1) {
    for (const Chart::Series& series : chart.series) text += '\t' + Field(series.name);
    text += "\r\n";
  }
  AppendRows(text, chart);
  return text;
}

std::optional<Chart> ShowChart(const ChartStore& store, std::size_t view, Platform& platform) {
  if (store.SelectedVariableCount > 1) {
    platform.ShowMessage(
        {kNoChart, "Charts are not shown when there is more than one variable in a stat procedure list box."});
    return std::nullopt;
  }
  if (view >= store.charts.size()) {
    platform.ShowMessage({kNoChart, "Charts are not available for this procedure."});
    return std::nullopt;
  }
  return WithRows(store.charts[view]);
}

std::string ChartsText(const ChartStore& store) {
  std::string text;
  for (const Chart& chart : store.charts) {
    text += "chart\t" + Field(chart.title) + '\t' + Field(chart.horizontal_title) + '\t' + Field(chart.vertical_title) +
            '\t' + Field(chart.footnote) + "\r\n";
    AppendRows(text, chart);
  }
  return text;
}

}  // namespace tessara
