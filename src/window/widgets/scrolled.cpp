#include "window/widgets/scrolled.h"

#include <QApplication>
#include <QScrollBar>

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
  connect(qApp, &QApplication::focusChanged, this, [this](auto*, QWidget* now) { ShowFocus(now); });
}

void Scrolled::ShowFocus(QWidget* focused) {
  if (!focused || !isVisible() || !widget()->isAncestorOf(focused)) return;
  const int margin = fontMetrics().height() / 2;
  ensureWidgetVisible(focused, margin, margin);
}

QSize Scrolled::sizeHint() const {
  const int bar = verticalScrollBar()->sizeHint().width();
  return widget()->sizeHint() + QSize(2 * frameWidth() + bar, 2 * frameWidth());
}

QSize Scrolled::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kLeastCharacters, fontMetrics().height() * kLeastLines};
}

}  // namespace tessara
