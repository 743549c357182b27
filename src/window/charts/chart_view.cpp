#include "window/charts/chart_view.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

#include "window/charts/chart_drawing.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/hint_label.h"
#include "window/widgets/text.h"

namespace tessara {

ChartView::ChartView(QWidget* parent) : QChartView(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  setRenderHint(QPainter::Antialiasing);
  viewport()->setMouseTracking(true);  // for the hints over bars
  words_ = new HintLabel(QPalette::Text, viewport());
  words_->setObjectName("EmptyText");
  words_->setAlignment(Qt::AlignCenter);
  words_->setWordWrap(true);
  words_->setAttribute(Qt::WA_TransparentForMouseEvents);
  FollowFont(this, [this] { SetLow(low_); });
  ShowNothing({});
}

void ChartView::SetLow(bool low) {
  const int line = fontMetrics().height();
  setMinimumSize(low ? 0 : fontMetrics().averageCharWidth() * 30, low ? line * 2 : line * 9);
  setMaximumHeight(low ? line * 2 : QWIDGETSIZE_MAX);
  low_ = low;
  PlaceWords();
}

void ChartView::Show(const Chart& chart) {
  shown_ = chart;
  has_chart_ = true;
  words_->hide();
  setAccessibleName(ToQt(chart.title));
  setAccessibleDescription(ToQt(chart.vertical_title) + ", " + ToQt(chart.horizontal_title));
  Draw();
}

void ChartView::ShowNothing(const QString& words) {
  shown_ = {};
  has_chart_ = false;
  words_->setText(words);
  words_->show();
  setAccessibleName(tr("No chart"));
  setAccessibleDescription(words);
  Draw();
}

void ChartView::Draw() {
  const ChartColours colours = ColoursOfPalette(palette());
  QChart* before = chart();
  QChart* drawn = nullptr;
  if (has_chart_) {
    drawn = new DrawnChart(shown_, colours, font());
  } else {
    drawn = new QChart;
    drawn->setMinimumSize(0, 0);  // a view takes over the least size of its chart
    drawn->setBackgroundBrush(colours.ground);
    drawn->setBackgroundRoundness(0);
  }
  setBackgroundBrush(colours.ground);
  setChart(drawn);
  delete before;  // a view lets go of its chart, but does not delete it
}

void ChartView::changeEvent(QEvent* event) {
  QChartView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Draw();
}

void ChartView::focusInEvent(QFocusEvent* event) {
  QChartView::focusInEvent(event);
  viewport()->update();
}

void ChartView::focusOutEvent(QFocusEvent* event) {
  QChartView::focusOutEvent(event);
  viewport()->update();
}

void ChartView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space) {
    emit Opened();
  } else if (event->matches(QKeySequence::Copy)) {
    emit CopyAsked();
  } else {
    event->ignore();  // the frame may have a use for it
  }
}

void ChartView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit Opened();
}

// A sheet with an edge; the one with the keyboard has a strong edge.
void ChartView::paintEvent(QPaintEvent* event) {
  QChartView::paintEvent(event);
  QPainter painter(viewport());
  const bool chosen = hasFocus();
  painter.setPen(QPen(palette().color(chosen ? QPalette::Highlight : QPalette::Mid), chosen ? 2 : 1));
  const int inset = chosen ? 1 : 0;
  painter.drawRect(viewport()->rect().adjusted(inset, inset, -1 - inset, -1 - inset));
}

void ChartView::resizeEvent(QResizeEvent* event) {
  QChartView::resizeEvent(event);
  PlaceWords();
}

void ChartView::PlaceWords() {
  const int gap = low_ ? 0 : fontMetrics().height();
  words_->setGeometry(viewport()->rect().adjusted(gap, gap, -gap, -gap));
}

}  // namespace tessara
