#pragma once

#include <QWidget>
#include <optional>

namespace tessara {

// The normal curve of the standard scores with the marker of one score. The scale of its axis is that of the marker,
// dense far out, so that a score of 4 still has its place; the curve is drawn on that scale too, so that its height at
// a tick is that of the score beside it. Drawn in the palette's colours, sharp at any size.
class NormalCurve : public QWidget {
  Q_OBJECT

 public:
  explicit NormalCurve(QWidget* parent);

  // The marker's place as the calculator tells it: 2030 is the middle, 1900 to either side the edge. Without a place
  // there is no marker. `score` is the text beside it, which may be empty.
  void ShowScore(std::optional<double> centre, const QString& score);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // Where things stand on the widget, in pixels.
  struct Plot {
    double X(double place) const { return middle + place * half; }

    double line;    // the height of a line of text
    double middle;  // of the axis
    double half;    // its length to either side
    double base;
    double top;  // of the curve; the score stands above it
  };
  Plot PlotOf() const;
  void PaintCurve(QPainter& painter, const Plot& plot) const;
  void PaintAxis(QPainter& painter, const Plot& plot) const;
  void PaintMarker(QPainter& painter, const Plot& plot, double place) const;

  std::optional<double> place_;  // of the marker: -1 the left edge, 1 the right one
  QString score_;
};

}  // namespace tessara
