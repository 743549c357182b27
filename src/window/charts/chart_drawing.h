#pragma once

#include <QChart>
#include <QColor>
#include <QList>
#include <functional>

#include "presentation/chart_data.h"

class QAbstractAxis;
class QAbstractSeries;
class QBarCategoryAxis;
class QCategoryAxis;
class QGraphicsSimpleTextItem;
class QPainter;
class QPalette;
class QValueAxis;

// Draws a chart of the core. Series are told apart by colours that stay distinct for colour-blind readers: those of
// Okabe and Ito, "Color Universal Design" (2008), in an order that suits a light and a dark ground.

namespace tessara {

struct ChartColours {
  QColor ground;
  QColor text;
  QColor grid;
  QList<QColor> series;
};

// For the screen; and for paper and pictures, which stand on white.
ChartColours ColoursOfPalette(const QPalette& palette);
ChartColours ColoursOfPaper();

// From a round number at or below the least value to one at or above the greatest, with marks between them.
void MakeNice(QValueAxis* axis, double low, double high, int steps, double least_step);

class CountedDots;
struct CountedDot;
class PointCloud;

// The drawing of one chart at any size. Category labels turn, are cut and thin out as the room gets narrow.
class DrawnChart : public QChart {
  Q_OBJECT

 public:
  // The rows of an interval chart must be filled in.
  DrawnChart(const Chart& chart, const ChartColours& colours, const QFont& type);

  // The categories as the axis shows them now, without what tells equal ones apart; an empty text for one left out.
  QStringList ShownLabels() const;
  // Where the footnote stands; empty without one.
  QRectF FootnotePlace() const;
  // The dots of a scatter chart in which cases share places; nullptr of any other.
  const CountedDots* dots() const { return dots_; }
  // What the line below the plot says of the points; empty where each stands for itself.
  QString key() const { return key_text_; }

 protected:
  void resizeEvent(QGraphicsSceneResizeEvent* event) override;

 private:
  void SetAppearance(const QFont& type);
  void SetMarginsOfPlot();
  QGraphicsSimpleTextItem* MakeLine();
  qreal LinesBelow() const;
  void AddBars();
  void AddLine();
  void AddOutlines();
  void AddPoints();
  void AddDots(const QList<CountedDot>& places);
  void AddCloud();
  void AddIntervals();
  void ShowKey(const QString& text);
  void ShowEmptyPlot();
  void Attach(QAbstractSeries* series);
  QBarCategoryAxis* MakeCategoryAxis();
  QValueAxis* MakeValueAxis(Qt::Alignment side, const std::string& title);
  void SetCountRange(int steps);
  void SetPointsRange(const QSizeF& margin, int steps);
  void ShowHint(bool hovered, qsizetype row, const QString& series, double value);
  void StyleLabelAxis(QAbstractAxis* axis);
  void FitLabels();
  void PlaceUprightLabels(const std::function<QStringList(qsizetype)>& parts_of, qreal room, qsizetype every = 1);
  void PlaceSparseLabels(qreal room);
  void ShowCategories(const QStringList& places, int angle);
  QString SharedColumnsTitle() const;
  QString TurnedLabel(qsizetype category) const;
  qreal RoomForTurnedLabels() const;
  void FitTitles();
  void FitLinesBelow();
  void FitValueAxes();
  void FitIntervalAxis();

  Chart chart_;
  ChartColours colours_;
  QStringList labels_;
  QBarCategoryAxis* categories_ = nullptr;
  QCategoryAxis* sparse_ = nullptr;  // of outlines
  bool shares_columns_ = false;      // of outlines: a column stands for several categories
  QValueAxis* horizontal_ = nullptr;
  QValueAxis* vertical_ = nullptr;
  QGraphicsSimpleTextItem* footnote_ = nullptr;
  QGraphicsSimpleTextItem* key_ = nullptr;
  QString key_text_;
  QRectF points_range_;  // of a scatter chart
  bool has_axis_titles_ = true;
  qreal label_height_ = 0;  // of the categories' labels below the plot
  PointCloud* cloud_ = nullptr;
  CountedDots* dots_ = nullptr;
};

// Paints a chart as a drawing of that size, scaled into a place of the painter's device.
void PaintChart(QPainter& painter, const QRectF& place, const Chart& chart, const ChartColours& colours,
                const QSizeF& size);

}  // namespace tessara
