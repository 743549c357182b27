#pragma once

#include <QChartView>

#include "presentation/chart_data.h"

class QLabel;

// A chart in the window: drawn in the colours of the palette, reached by the keyboard, and opened by a double click,
// Enter or the blank.

namespace tessara {

class ChartView : public QChartView {
  Q_OBJECT

 public:
  explicit ChartView(QWidget* parent);

  // The rows of an interval chart must be filled in.
  void Show(const Chart& chart);
  // No chart, and words that say how there will be one.
  void ShowNothing(const QString& words);
  bool has_chart() const { return has_chart_; }
  // No higher than its words need.
  void SetLow(bool low);

 signals:
  void Opened();
  void CopyAsked();

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Draw();
  void PlaceWords();

  Chart shown_;
  bool has_chart_ = false;
  bool low_ = false;
  QLabel* words_ = nullptr;
};

}  // namespace tessara
