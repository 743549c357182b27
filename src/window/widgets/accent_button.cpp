#include "window/widgets/accent_button.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

#include "window/widgets/theme.h"

namespace tessara {
namespace {

// An icon of one colour in another one: on the accent neither the dark nor the light icons are sure to stand out.
QIcon Tinted(const QIcon& icon, const QColor& colour) {
  constexpr int kSide = 64;
  QPixmap picture = icon.pixmap(kSide, kSide);
  if (picture.isNull()) return icon;
  QPainter painter(&picture);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(picture.rect(), colour);
  painter.end();
  return picture;
}

}  // namespace

AccentButton::AccentButton(const char* icon, const QString& text, QWidget* parent)
    : QPushButton(text, parent), icon_name_(icon) {
  TakeColours();
}

void AccentButton::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::PaletteChange) TakeColours();
}

void AccentButton::TakeColours() {
  const QPalette usual = QApplication::palette(this);
  const QColor ground = usual.color(QPalette::Active, QPalette::Highlight);
  const QColor text = TextOn(ground, usual.color(QPalette::Active, QPalette::HighlightedText));
  QPalette own = palette();
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    own.setColor(group, QPalette::Button, ground);
    own.setColor(group, QPalette::ButtonText, text);
  }
  if (own == palette() && !icon().isNull()) return;
  setIcon(Tinted(ThemeIcon(icon_name_), text));
  setPalette(own);
}

}  // namespace tessara
