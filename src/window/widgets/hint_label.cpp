#include "window/widgets/hint_label.h"

#include <QEvent>

namespace tessara {
namespace {

constexpr float kStrength = 0.7F;

}  // namespace

HintLabel::HintLabel(QPalette::ColorRole text, QWidget* parent) : QLabel(parent), text_(text) {
  setTextFormat(Qt::PlainText);
  setForegroundRole(QPalette::PlaceholderText);
  TakeColour();
}

void HintLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) TakeColour();
}

void HintLabel::TakeColour() {
  QPalette own;
  own.setResolveMask(0);
  bool same = true;
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    QColor colour = palette().color(group, text_);
    colour.setAlphaF(kStrength);
    same = same && palette().color(group, QPalette::PlaceholderText) == colour;
    own.setColor(group, QPalette::PlaceholderText, colour);
  }
  if (!same) setPalette(own);
}

}  // namespace tessara
