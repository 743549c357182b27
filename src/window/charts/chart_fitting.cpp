#include <QBarCategoryAxis>
#include <QCategoryAxis>
#include <QFontMetricsF>
#include <QGraphicsSimpleTextItem>
#include <QLegend>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

#include "window/charts/chart_drawing.h"
#include "window/charts/chart_text.h"
#include "window/charts/counted_dots.h"
#include "window/charts/point_cloud.h"
#include "window/widgets/text.h"

// How the texts of a chart find their place when its size changes.

namespace tessara {
namespace {

constexpr qreal kSparseLines = 1.6;  // from one label of an outline to the next
constexpr int kLeastCutLabel = 11;   // characters: with less room a label is turned rather than cut
constexpr int kLeastShortLabel = 6;  // characters: cut as short as that where there is no room to turn it
constexpr qreal kLinesOfTitle = 4;   // with the margins
constexpr qreal kLinesOfLegend = 3;
constexpr qreal kLinesOfAxisTitle = 1.5;
constexpr qreal kLinesOfAMark = 1.6;
constexpr qreal kLinesOfCutTitles = 10;
constexpr qreal kLinesBesidePlot = 6;
constexpr int kMostMarks = 5;
constexpr qreal kLeastMargin = 0.02;  // of the range of points
constexpr qreal kRoomOfAPoint = 5;    // pixels
constexpr qreal kLinesOfFootnote = 1.5;
constexpr qreal kLeastTitledLines = 10;  // the height, without what else stands below, from which axes have titles
constexpr qreal kLeastTurnedLines = 4;   // the height below which a turned label would be cut to nothing

}  // namespace

QStringList DrawnChart::ShownLabels() const {
  QStringList shown;
  if (sparse_) {
    for (const QString& label : sparse_->categoriesLabels()) shown += WithoutMark(label);
  }
  if (categories_) {
    for (const QString& category : categories_->categories()) shown += WithoutMark(category);
  }
  return shown;
}

// Titles and footnote are cut where the room ends. The axes of a low chart go without, so that the plot keeps its
// height.
void DrawnChart::FitTitles() {
  const QFontMetricsF metrics(font());
  const qreal gap = metrics.height();
  const auto cut = [](const QFontMetricsF& type, const std::string& text, qreal room) {
    return type.elidedText(ToQt(text), Qt::ElideRight, std::max<qreal>(room, 1));
  };
  setTitle(Plain(cut(QFontMetricsF(titleFont()), chart_.title, size().width() - 2 * gap)));
  const qreal height = size().height() - (legend()->isVisible() ? kLinesOfLegend * gap : 0) - LinesBelow() * gap -
                       2 * std::max<qreal>(label_height_ - gap, 0);
  const bool low = height < kLeastTitledLines * gap;
  has_axis_titles_ = !low;
  const QString across = low ? QString() : Plain(cut(metrics, chart_.horizontal_title, size().width() - 4 * gap));
  if (categories_) categories_->setTitleText(across);
  if (sparse_) sparse_->setTitleText(shares_columns_ ? Plain(SharedColumnsTitle()) : across);
  if (horizontal_) horizontal_->setTitleText(across);
  if (vertical_)
    vertical_->setTitleText(low ? QString() : Plain(cut(metrics, chart_.vertical_title, height - 6 * gap)));
  FitLinesBelow();
}

// As many marks as stand side by side with room between them.
void DrawnChart::FitIntervalAxis() {
  const Chart::Axes range = DrawableAxes(*chart_.axes);
  const QFontMetricsF metrics(font());
  MakeNice(horizontal_, range.low, range.high, kMostMarks, 0);
  const auto width = [&](double mark) {
    return metrics.horizontalAdvance(QString::asprintf(horizontal_->labelFormat().toLatin1(), mark));
  };
  const qreal mark = std::max(width(horizontal_->min()), width(horizontal_->max())) + metrics.height();
  const qreal room = size().width() - kLinesBesidePlot * metrics.height();
  MakeNice(horizontal_, range.low, range.high, std::clamp(static_cast<int>(room / mark) - 1, 1, kMostMarks), 0);
}

// What the points mean, and below it the footnote, each on a line of its own below all that belongs to the axes.
void DrawnChart::FitLinesBelow() {
  const QFontMetricsF metrics(font());
  const qreal gap = metrics.height();
  qreal y = size().height();
  const auto place = [&](QGraphicsSimpleTextItem* line, const QString& text) {
    if (!line) return;
    y -= gap * kLinesOfFootnote;
    line->setText(metrics.elidedText(text, Qt::ElideRight, std::max<qreal>(size().width() - 2 * gap, 1)));
    line->setPos(gap, y);
  };
  place(footnote_, ToQt(chart_.footnote));
  place(key_, key_text_);
}

QRectF DrawnChart::FootnotePlace() const {
  return footnote_ ? footnote_->boundingRect().translated(footnote_->pos()) : QRectF();
}

qreal DrawnChart::LinesBelow() const { return ((footnote_ ? 1 : 0) + (key_ ? 1 : 0)) * kLinesOfFootnote; }

// As many marks as the height has room for, and points that stand clear of the frame.
void DrawnChart::FitValueAxes() {
  const bool scatter = chart_.type == tessara::ChartType::kScatter;
  if (!vertical_ || (!scatter && (labels_.isEmpty() || chart_.series.empty()))) return;
  const qreal line = QFontMetricsF(font()).height();
  qreal lines = size().height() / line - kLinesOfTitle - std::max(label_height_ / line, 1.0);
  if (legend()->isVisible()) lines -= kLinesOfLegend;
  lines -= LinesBelow();
  if (has_axis_titles_) lines -= kLinesOfAxisTitle;
  // Beside a low plot there is no title rather than half of one.
  const qreal title = QFontMetricsF(font()).horizontalAdvance(ToQt(chart_.vertical_title));
  if (lines < kLinesOfCutTitles && title > lines * line) vertical_->setTitleText(QString());
  const int steps = std::clamp(static_cast<int>(lines / kLinesOfAMark), 1, kMostMarks);
  if (chart_.axes) FitIntervalAxis();
  if (!scatter) return SetCountRange(steps);
  const qreal width = std::max(size().width() - kLinesBesidePlot * line, line);
  const qreal height = std::max(lines, 1.0) * line;
  const qreal room = dots_ ? DiameterOfDot(dots_->most(), dots_->most()) / 2 + 1 : kRoomOfAPoint;
  SetPointsRange({std::max(kLeastMargin, room / width), std::max(kLeastMargin, room / height)}, steps);
}

QString DrawnChart::SharedColumnsTitle() const {
  return tr("%1 categories: each column is as high as the highest of those it stands for").arg(labels_.size());
}

// Upright labels where they fit side by side, in lines if need be, cut where they are long and there is room for the
// better part of them. Else turned ones, or upright ones again where the chart is too low for that, and only every
// second, third and so on where even those would touch.
void DrawnChart::FitLabels() {
  if (labels_.isEmpty() || (!categories_ && !sparse_)) return;
  const QFontMetricsF metrics(font());
  const qreal line = metrics.height();
  const qreal room = std::max<qreal>(size().width() - 5 * line, line) / static_cast<qreal>(labels_.size());
  if (sparse_) return PlaceSparseLabels(room);
  const auto widest = [&](auto parts_of) {
    qreal widest_part = 0;
    for (qsizetype row = 0; row < labels_.size(); ++row) {
      for (const QString& part : parts_of(row)) widest_part = std::max(widest_part, metrics.horizontalAdvance(part));
    }
    return widest_part + line * 0.4;
  };
  const auto whole = [this](qsizetype row) { return QStringList(labels_[row]); };
  const auto wide = [this](qsizetype row) { return Folded(chart_, row, false); };
  const auto narrow = [this](qsizetype row) { return Folded(chart_, row, true); };
  if (widest(whole) + line * 0.4 <= room) return PlaceUprightLabels(whole, room);
  if (widest(wide) <= room) return PlaceUprightLabels(wide, room);
  if (widest(narrow) <= room || room >= metrics.averageCharWidth() * kLeastCutLabel) {
    return PlaceUprightLabels(narrow, room);
  }
  if (RoomForTurnedLabels() < line * kLeastTurnedLines) {
    if (room >= metrics.averageCharWidth() * kLeastShortLabel) return PlaceUprightLabels(narrow, room);
    return PlaceUprightLabels(wide, room, static_cast<qsizetype>(std::ceil(widest(wide) / room)));
  }
  const auto every = static_cast<qsizetype>(std::ceil(line * 1.05 / room));
  QStringList places;
  for (qsizetype i = 0; i < labels_.size(); ++i) {
    const bool shown = i % every == every / 2;
    places += Distinct(shown ? TurnedLabel(i) : QString(), i + 1);
  }
  ShowCategories(places, -90);
}

void DrawnChart::PlaceUprightLabels(const std::function<QStringList(qsizetype)>& parts_of, qreal room,
                                    qsizetype every) {
  const QFontMetricsF metrics(font());
  const qreal most = room * static_cast<qreal>(every) - metrics.height() * 0.2;
  QStringList places;
  for (qsizetype i = 0; i < labels_.size(); ++i) {
    QStringList parts = i % every == every / 2 ? parts_of(i) : QStringList();
    for (QString& part : parts) part = Plain(metrics.elidedText(part, Qt::ElideRight, most));
    places += Distinct(parts.join("<br>"), i + 1);
  }
  ShowCategories(places, 0);
}

void DrawnChart::ShowCategories(const QStringList& places, int angle) {
  const QFontMetricsF metrics(font());
  label_height_ = 0;
  for (const QString& place : places) {
    const QString text = WithoutMark(place);
    const qreal lines = static_cast<qreal>(text.count("<br>") + 1) * metrics.height();
    label_height_ = std::max(label_height_, angle == 0 ? lines : metrics.horizontalAdvance(text));
  }
  if (places != categories_->categories()) categories_->setCategories(places);
  categories_->setLabelsAngle(angle);
}

// The labels of an outline's categories: upright where all fit side by side, else turned and as many as there is room
// for.
void DrawnChart::PlaceSparseLabels(qreal room) {
  for (const QString& label : sparse_->categoriesLabels()) sparse_->remove(label);
  const QFontMetricsF metrics(font());
  const qreal line = metrics.height();
  const auto fits = [&](const QString& label) { return metrics.horizontalAdvance(label) + line * 0.8 <= room; };
  const bool upright = std::ranges::all_of(labels_, fits);
  qreal widest = 0;  // of those shown
  const auto every = upright ? 1 : static_cast<qsizetype>(std::ceil(line * kSparseLines / room));
  for (qsizetype i = every / 2; i < labels_.size(); i += every) {
    const QString label = upright ? Plain(labels_[i]) : TurnedLabel(i);
    widest = std::max(widest, metrics.horizontalAdvance(labels_[i]));
    sparse_->append(Distinct(label, i + 1), static_cast<qreal>(i));
  }
  label_height_ = upright ? line : std::min(widest, RoomForTurnedLabels());
  sparse_->setLabelsAngle(upright ? 0 : -90);
}

QString DrawnChart::TurnedLabel(qsizetype category) const {
  return Plain(QFontMetricsF(font()).elidedText(labels_[category], Qt::ElideRight, RoomForTurnedLabels()));
}

// An axis gets two fifths of the height, its title included.
qreal DrawnChart::RoomForTurnedLabels() const {
  const qreal line = QFontMetricsF(font()).height();
  qreal height = size().height() - margins().top() - margins().bottom();
  if (!chart_.title.empty()) height -= 2 * line;
  if (legend()->isVisible()) height -= 2 * line;
  return std::max(line, height * 0.4 - line - (chart_.horizontal_title.empty() ? 0 : 1.5 * line));
}

}  // namespace tessara
