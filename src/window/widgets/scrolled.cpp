#include "window/widgets/scrolled.h"

#include <QApplication>
#include <QScrollBar>
#include <algorithm>

namespace tessara {
namespace {

constexpr int kLeastLines = 3;
constexpr int kLeastCharacters = 12;

}  // namespace

Scrolled::Scrolled(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setWidget(content);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  connect(qApp, &QApplication::focusChanged, this, [this](auto*, QWidget* now) { BringIntoSight(now); });
}

void Scrolled::BringIntoSight(const QWidget* part) {
  if (!part || !isVisible() || !widget()->isAncestorOf(part)) return;
  const int margin = fontMetrics().height() / 2;
  const QRect place(part->mapTo(widget(), QPoint()), part->size());
  const QSize room = viewport()->size();
  ensureVisible(place.center().x(), place.center().y(), std::min(place.width() / 2 + margin, room.width() / 2),
                std::min(place.height() / 2 + margin, room.height() / 2));
}

QSize Scrolled::sizeHint() const {
  const int bar = verticalScrollBar()->sizeHint().width();
  return widget()->sizeHint() + QSize(2 * frameWidth() + bar, 2 * frameWidth());
}

QSize Scrolled::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kLeastCharacters, fontMetrics().height() * kLeastLines};
}

}  // namespace tessara
