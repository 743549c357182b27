#include "window/charts/chart_drawing.h"

#include <QAreaSeries>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QCategoryAxis>
#include <QCursor>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QGuiApplication>
#include <QLegend>
#include <QLineSeries>
#include <QPainter>
#include <QPalette>
#include <QScatterSeries>
#include <QToolTip>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

#include "numerics/number_text.h"
#include "window/charts/chart_text.h"
#include "window/charts/counted_dots.h"
#include "window/charts/point_cloud.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kDarkBelow = 128;
constexpr qsizetype kMostBars = 80;  // more of them are drawn as one outline
constexpr int kSteps = 5;
constexpr qsizetype kMostColumns = 1000;      // of an outline, each as high as the highest of its categories
constexpr std::size_t kMostNamedSeries = 14;  // in the legend, which would be boxes without names beyond
constexpr double kAboveALine = 1.04;
constexpr qreal kTitleScale = 1.15;
constexpr qreal kBarWidth = 0.7;  // of a category's room
constexpr qreal kLargestMarker = 9;
constexpr qreal kSmallestMarker = 6;
constexpr qsizetype kFewPoints = 500;
constexpr double kPlainNumbersTo = 1e9;
constexpr double kPlainStepsFrom = 1e-4;

// Blue, orange, green, purple, vermilion, sky blue, yellow; the strong ones first on white, the bright ones on black.
const QList<QColor> kOnLight = {0x0072B2, 0xE69F00, 0x009E73, 0xCC79A7, 0xD55E00, 0x56B4E9, 0xF0E442};
const QList<QColor> kOnDark = {0x56B4E9, 0xE69F00, 0x009E73, 0xCC79A7, 0xF0E442, 0xD55E00, 0x0072B2};

// A drawing is laid out for the screen and painted at many scales: its type must not follow the device's resolution.
QFont InPixels(QFont type, qreal scale) {
  type.setPixelSize(qRound(QFontInfo(type).pixelSize() * scale));
  return type;
}

constexpr qreal kMarginOfPoints = 0.02;

// The step of 1, 2 or 5 times a power of ten that is next above the wanted one.
double NiceStep(double wanted) {
  const double power = std::pow(10, std::floor(std::log10(wanted)));
  for (const double step : {power, 2 * power, 5 * power}) {
    if (step >= wanted * (1 - 1e-9)) return step;
  }
  return 10 * power;
}

// As many decimals as the step needs, and the short form for what would be too long.
QString NumberFormat(double low, double high, double step) {
  if (std::max(std::abs(low), std::abs(high)) >= kPlainNumbersTo || step < kPlainStepsFrom) return "%.6g";
  const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
  return QString("%.%1f").arg(decimals);
}

// From the least value to the greatest, with its marks at round numbers between them.
void MakeTight(QValueAxis* axis, double low, double high, int steps) {
  const double step = NiceStep((high - low) / steps);
  const double first = std::ceil(low / step) * step + 0.0;  // no mark is a -0
  axis->setRange(low, high);
  axis->setTickType(QValueAxis::TicksDynamic);
  axis->setTickAnchor(first);
  axis->setTickInterval(step);
  axis->setLabelFormat(NumberFormat(first, high, step));
}

double LargestValue(const Chart& chart) {
  double largest = chart.axes ? chart.axes->most : 0;
  for (const Chart::Series& series : chart.series) {
    for (const double value : series.values) largest = std::max(largest, value);
  }
  return largest;
}

bool HasWholeValues(const Chart& chart) {
  const auto whole = [](double value) { return std::floor(value) == value; };
  return std::ranges::all_of(chart.series,
                             [&](const auto& series) { return std::ranges::all_of(series.values, whole); });
}

}  // namespace

void MakeNice(QValueAxis* axis, double low, double high, int steps, double least_step) {
  const double step = std::max(NiceStep((high - low) / steps), least_step);
  const double first = std::floor(low / step) * step;
  const double last = std::ceil(high / step) * step;
  axis->setRange(first, last);
  axis->setTickCount(static_cast<int>(std::round((last - first) / step)) + 1);
  axis->setLabelFormat(NumberFormat(first, last, step));
}

ChartColours ColoursOfPalette(const QPalette& palette) {
  ChartColours colours;
  colours.ground = palette.color(QPalette::Active, QPalette::Base);
  colours.text = palette.color(QPalette::Active, QPalette::Text);
  colours.grid = colours.text;
  colours.grid.setAlphaF(0.18F);
  colours.series = colours.ground.lightness() < kDarkBelow ? kOnDark : kOnLight;
  return colours;
}

ChartColours ColoursOfPaper() { return {Qt::white, Qt::black, QColor(0xD8D8D8), kOnLight}; }

DrawnChart::DrawnChart(const Chart& chart, const ChartColours& colours, const QFont& type)
    : chart_(chart), colours_(colours) {
  for (std::size_t row = 0; row < chart.labels.size(); ++row) labels_ += ToQt(RowLabel(chart, row));
  SetAppearance(type);
  if (chart.type == tessara::ChartType::kScatter) {
    AddPoints();
  } else if (labels_.isEmpty() || chart.series.empty()) {
    ShowEmptyPlot();
  } else if (chart.axes && chart.type == tessara::ChartType::kHistogram) {
    AddIntervals();
  } else if (labels_.size() * static_cast<qsizetype>(chart.series.size()) > kMostBars) {
    AddOutlines();
  } else {
    if (chart.type != tessara::ChartType::kLine) AddBars();
    if (chart.type == tessara::ChartType::kLine || chart.type == tessara::ChartType::kHistogramAndLine) AddLine();
  }
}

void DrawnChart::SetAppearance(const QFont& type) {
  setAnimationOptions(QChart::NoAnimation);
  setBackgroundRoundness(0);
  setBackgroundBrush(colours_.ground);
  setBackgroundPen(Qt::NoPen);
  setDropShadowEnabled(false);
  layout()->setContentsMargins(0, 0, 0, 0);
  setFont(InPixels(type, 1));
  QFont title = InPixels(type, kTitleScale);
  title.setWeight(QFont::DemiBold);
  setTitleFont(title);
  setTitleBrush(colours_.text);
  legend()->setVisible(chart_.series.size() > 1 && chart_.series.size() <= kMostNamedSeries);
  legend()->setAlignment(Qt::AlignBottom);
  legend()->setFont(font());
  legend()->setLabelColor(colours_.text);

  if (!chart_.footnote.empty()) footnote_ = MakeLine();
  SetMarginsOfPlot();
}

QGraphicsSimpleTextItem* DrawnChart::MakeLine() {
  auto* line = new QGraphicsSimpleTextItem(this);
  line->setFont(font());
  line->setBrush(colours_.text);
  return line;
}

// The lines below the plot stand in its margin.
void DrawnChart::SetMarginsOfPlot() {
  const qreal line = QFontMetricsF(font()).height();
  const int gap = qCeil(line * 0.7);
  setMargins(QMargins(gap, gap, gap, gap + qCeil(line * LinesBelow())));
}

QBarCategoryAxis* DrawnChart::MakeCategoryAxis() {
  if (categories_) return categories_;
  categories_ = new QBarCategoryAxis(this);
  QStringList places;
  for (qsizetype i = 0; i < labels_.size(); ++i) places += Distinct({}, i + 1);
  categories_->append(places);
  StyleLabelAxis(categories_);
  return categories_;
}

void DrawnChart::StyleLabelAxis(QAbstractAxis* axis) {
  axis->setLabelsFont(font());
  axis->setLabelsColor(colours_.text);
  axis->setTitleFont(font());
  axis->setTitleBrush(colours_.text);
  axis->setLinePen(colours_.grid);
  axis->setGridLineVisible(false);
  axis->setTruncateLabels(false);
  addAxis(axis, Qt::AlignBottom);
}

QValueAxis* DrawnChart::MakeValueAxis(Qt::Alignment side, const std::string& title) {
  auto* axis = new QValueAxis(this);
  axis->setLabelsFont(font());
  axis->setLabelsColor(colours_.text);
  axis->setTitleFont(font());
  axis->setTitleBrush(colours_.text);
  axis->setTitleText(Plain(ToQt(title)));
  axis->setLinePen(colours_.grid);
  axis->setGridLinePen(colours_.grid);
  addAxis(axis, side);
  (side == Qt::AlignLeft ? vertical_ : horizontal_) = axis;
  return axis;
}

// Bars stand on 0. Counts of a few have a tick each, and no axis shows half a case. The points of a line keep off the
// edge.
void DrawnChart::SetCountRange(int steps) {
  const bool has_line =
      chart_.type == tessara::ChartType::kLine || chart_.type == tessara::ChartType::kHistogramAndLine;
  const double largest = std::clamp(LargestValue(chart_), 0.0, 1e300) * (has_line ? kAboveALine : 1);
  const bool whole = HasWholeValues(chart_);
  if (largest > steps || (largest > 0 && !whole)) return MakeNice(vertical_, 0, largest, steps, whole ? 1 : 0);
  const int top = std::max(1, static_cast<int>(std::ceil(largest)));
  vertical_->setRange(0, top);
  vertical_->setTickCount(top + 1);
  vertical_->setLabelFormat("%.0f");
}

void DrawnChart::Attach(QAbstractSeries* series) {
  addSeries(series);
  if (!vertical_) {
    MakeValueAxis(Qt::AlignLeft, chart_.vertical_title);
    SetCountRange(kSteps);
  }
  if (sparse_) {
    series->attachAxis(sparse_);
  } else if (horizontal_) {
    series->attachAxis(horizontal_);
  } else {
    series->attachAxis(MakeCategoryAxis());
  }
  series->attachAxis(vertical_);
}

void DrawnChart::AddBars() {
  auto* bars = new QBarSeries(this);
  const bool touching = chart_.type != tessara::ChartType::kBars;
  bars->setBarWidth(touching ? 1.0 : kBarWidth);
  for (std::size_t i = 0; i < chart_.series.size(); ++i) {
    auto* set = new QBarSet(ToQt(chart_.series[i].name).toHtmlEscaped(), bars);
    for (const double value : chart_.series[i].values) *set << value;
    set->setColor(colours_.series[static_cast<qsizetype>(i) % colours_.series.size()]);
    set->setPen(touching ? QPen(colours_.ground, 1) : QPen(Qt::NoPen));
    bars->append(set);
  }
  connect(bars, &QAbstractBarSeries::hovered, this, [this, bars](bool hovered, int row, QBarSet* set) {
    const auto place = static_cast<std::size_t>(bars->barSets().indexOf(set));
    ShowHint(hovered, row, ToQt(chart_.series[place].name), set->at(row));
  });
  Attach(bars);
}

// Through the middles of the intervals.
void DrawnChart::AddLine() {
  auto* line = new QLineSeries(this);
  QList<QPointF> points;
  const std::vector<double>& values = chart_.series[0].values;
  for (std::size_t i = 0; i < values.size(); ++i) points += QPointF(static_cast<double>(i), values[i]);
  line->replace(points);
  line->setPen(QPen(colours_.series[chart_.type == tessara::ChartType::kLine ? 0 : 1], 2.5));
  line->setPointsVisible(true);
  connect(line, &QXYSeries::hovered, this, [this](const QPointF& point, bool hovered) {
    const auto row = static_cast<std::size_t>(std::max(0.0, std::round(point.x())));
    if (row < chart_.series[0].values.size()) {
      ShowHint(hovered, static_cast<qsizetype>(row), {}, chart_.series[0].values[row]);
    }
  });
  Attach(line);
  line->setName(ToQt(chart_.series[0].name).toHtmlEscaped());
}

// Many categories: one outline for all bars of a series, with the labels that there is room for. Thousands of them
// share columns, each as high as its highest, so that none is lost to sight.
void DrawnChart::AddOutlines() {
  const auto count = static_cast<std::size_t>(labels_.size());
  const auto group = static_cast<std::size_t>((labels_.size() + kMostColumns - 1) / kMostColumns);
  shares_columns_ = group > 1;
  const double gap = group == 1 ? (1 - kBarWidth) / 2 : 0;
  sparse_ = new QCategoryAxis(this);
  sparse_->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
  sparse_->setRange(-0.5, static_cast<double>(count) - 0.5);
  StyleLabelAxis(sparse_);
  for (std::size_t i = 0; i < chart_.series.size(); ++i) {
    auto* upper = new QLineSeries(this);
    QList<QPointF> points;
    const std::vector<double>& values = chart_.series[i].values;
    for (std::size_t first = 0; first < std::min(values.size(), count); first += group) {
      const std::size_t end = std::min(first + group, values.size());
      const double value = *std::max_element(values.begin() + static_cast<std::ptrdiff_t>(first),
                                             values.begin() + static_cast<std::ptrdiff_t>(end));
      // The series of a category stand side by side.
      const double width = (static_cast<double>(end - first) - 2 * gap) / static_cast<double>(chart_.series.size());
      const double left = static_cast<double>(first) - 0.5 + gap + static_cast<double>(i) * width;
      const double right = left + width;
      points << QPointF(left, 0) << QPointF(left, value) << QPointF(right, value) << QPointF(right, 0);
    }
    upper->replace(points);
    auto* area = new QAreaSeries(upper);
    area->setParent(this);
    area->setName(ToQt(chart_.series[i].name).toHtmlEscaped());
    const QColor colour = colours_.series[static_cast<qsizetype>(i) % colours_.series.size()];
    area->setBrush(colour);
    area->setPen(chart_.series.size() > 1 ? QPen(Qt::NoPen) : QPen(colour, 1));
    Attach(area);
  }
}

void DrawnChart::AddPoints() {
  points_range_ = RangeOfPoints(chart_);
  MakeValueAxis(Qt::AlignBottom, chart_.horizontal_title);
  MakeValueAxis(Qt::AlignLeft, chart_.vertical_title);
  legend()->hide();
  const std::optional<QList<CountedDot>> places = PlacesOfPoints(chart_);
  if (!places) {
    AddCloud();
  } else if (places->size() < static_cast<qsizetype>(PointCount(chart_))) {
    AddDots(*places);
  }
  SetPointsRange({kMarginOfPoints, kMarginOfPoints}, kSteps);
  auto* points = new QScatterSeries(this);
  QColor translucent = colours_.series[0];
  translucent.setAlphaF(0.7F);
  points->setColor(translucent);
  points->setBorderColor(Qt::transparent);
  if (!cloud_ && !dots_) points->replace(SinglePoints(chart_));
  points->setMarkerSize(points->count() <= kFewPoints ? kLargestMarker : kSmallestMarker);
  Attach(points);
}

void DrawnChart::AddCloud() {
  cloud_ = new PointCloud(this, PictureOfPoints(chart_, points_range_, colours_.series[0]), points_range_);
  connect(this, &QChart::plotAreaChanged, this, [this] { cloud_->Place(); });
  ShowKey(tr("The stronger the colour, the more cases"));
}

void DrawnChart::AddDots(const QList<CountedDot>& places) {
  dots_ = new CountedDots(this, places, colours_.series[0]);
  connect(this, &QChart::plotAreaChanged, this, [this] { dots_->Place(); });
  ShowKey(tr("The area of a dot shows its cases: the largest holds %1").arg(dots_->most()));
}

void DrawnChart::ShowKey(const QString& text) {
  key_text_ = text;
  key_ = MakeLine();
  SetMarginsOfPlot();
}

// With a margin on every side, a share of the points' own range.
void DrawnChart::SetPointsRange(const QSizeF& margin, int steps) {
  const qreal across = points_range_.width() * margin.width();
  const qreal upward = points_range_.height() * margin.height();
  MakeTight(horizontal_, points_range_.left() - across, points_range_.right() + across, kSteps);
  MakeTight(vertical_, points_range_.top() - upward, points_range_.bottom() + upward, steps);
}

void DrawnChart::ShowEmptyPlot() {
  MakeValueAxis(Qt::AlignBottom, chart_.horizontal_title)->setLabelsVisible(false);
  MakeValueAxis(Qt::AlignLeft, chart_.vertical_title)->setRange(0, 1);
  vertical_->setTickCount(2);
  vertical_->setLabelFormat("%.0f");
}

void DrawnChart::ShowHint(bool hovered, qsizetype row, const QString& series, double value) {
  if (!hovered || row < 0 || row >= labels_.size()) return QToolTip::hideText();
  QString hint = labels_[row];
  if (chart_.series.size() > 1) hint += "\n" + series;
  NumberBuffer buffer;
  hint += "\n" + ToQt(WriteGeneralText(value, buffer));
  QToolTip::showText(QCursor::pos(), hint.toHtmlEscaped().replace(QLatin1Char(10), QLatin1String("<br>")));
}

void DrawnChart::resizeEvent(QGraphicsSceneResizeEvent* event) {
  QChart::resizeEvent(event);
  FitLabels();
  FitTitles();
  FitValueAxes();
  // The new texts ask for room of their own: the plot takes what they leave, at once.
  layout()->invalidate();
  layout()->activate();
}

void PaintChart(QPainter& painter, const QRectF& place, const Chart& chart, const ChartColours& colours,
                const QSizeF& size) {
  QGraphicsScene scene;
  auto* drawn = new DrawnChart(chart, colours, QGuiApplication::font());
  scene.addItem(drawn);
  drawn->resize(size);
  scene.setSceneRect(QRectF(QPointF(0, 0), size));
  painter.setRenderHint(QPainter::Antialiasing);
  scene.render(&painter, place, scene.sceneRect());
}

}  // namespace tessara
