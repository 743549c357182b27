#pragma once

#include <QWidget>

namespace tessara {

// The normal curve of the standard scores with the marker of one score. The scale of its axis is that of the marker:
// dense far out, so that a score of 4 still has its place. Drawn in the palette's colours, sharp at any size.
class NormalCurve : public QWidget {
  Q_OBJECT

 public:
  explicit NormalCurve(QWidget* parent);

  // The marker's place as the calculator tells it: 2030 is the middle, 1900 to either side the edge.
  void SetMarker(double centre);
  // The score that the marker stands for, as a text; without one there is no marker.
  void SetScore(const QString& score);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double place_ = 0;  // of the marker: -1 the left edge, 1 the right one
  QString score_;
};

}  // namespace tessara
