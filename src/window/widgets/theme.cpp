#include "window/widgets/theme.h"

#include <QApplication>
#include <QPainter>

#include "window/widgets/contrast.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kDarkBelow = 128;
constexpr float kHint = 0.65F;  // of the text's colour

}  // namespace

void AddIconFolder(const Path& program_folder) {
  QStringList folders = QIcon::themeSearchPaths();
  for (const QString& folder : {PathToQt(program_folder / "icons"), QString("/usr/share/icons")}) {
    if (!folders.contains(folder)) folders += folder;
  }
  QIcon::setThemeSearchPaths(folders);
}

void UseIconsOfPalette(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightness() < kDarkBelow;
  const QString name = dark ? "breeze-dark" : "breeze";
  if (QIcon::themeName() != name) QIcon::setThemeName(name);
}

QIcon ThemeIcon(const char* name) { return QIcon::fromTheme(QLatin1String(name)); }

QColor HintColour(const QPalette& palette) {
  QColor colour = palette.color(QPalette::Active, QPalette::Text);
  colour.setAlphaF(kHint);
  return colour;
}

void UseLegibleColours() {
  const QPalette at_hand = QApplication::palette();
  QPalette palette = at_hand;
  palette.setColor(QPalette::PlaceholderText, HintColour(palette));
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    const auto colour = [&](QPalette::ColorRole role) { return palette.color(group, role); };
    palette.setColor(group, QPalette::HighlightedText,
                     TextOn(colour(QPalette::Highlight), colour(QPalette::HighlightedText)));
    for (const QPalette::ColorRole link : {QPalette::Link, QPalette::LinkVisited}) {
      palette.setColor(group, link,
                       StandingOut(colour(link), {colour(QPalette::Base), colour(QPalette::Window)}, kContrastOfText));
    }
  }
  if (palette != at_hand) QApplication::setPalette(palette);
}

QColor TextOn(const QColor& ground, const QColor& usual) {
  if (ContrastOf(usual, ground) >= kContrastOfText) return usual;
  return ContrastOf(Qt::white, ground) >= kContrastOfText ? Qt::white : Qt::black;
}

void PaintLogo(QPainter& painter, const QRectF& place, const QPalette& palette) {
  constexpr int kTiles = 3;
  const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(accent);
  const qreal side = std::min(place.width(), place.height());
  const QRectF square(place.center().x() - side / 2, place.center().y() - side / 2, side, side);
  painter.drawRoundedRect(square, side * 0.2, side * 0.2);

  const qreal border = side * 0.18;
  const qreal pitch = (side - 2 * border) / kTiles;
  const qreal tile = pitch * 0.8;
  for (int column = 0; column < kTiles; ++column) {
    for (int row = 0; row < kTiles; ++row) {
      const bool in_bar = row >= kTiles - 1 - column;  // one, two, three tiles high
      QColor colour(Qt::white);
      colour.setAlphaF(in_bar ? 0.95F : 0.22F);
      painter.setBrush(colour);
      painter.drawRoundedRect(QRectF(square.left() + border + column * pitch + (pitch - tile) / 2,
                                     square.top() + border + row * pitch + (pitch - tile) / 2, tile, tile),
                              tile * 0.15, tile * 0.15);
    }
  }
  painter.restore();
}

QIcon LogoIcon(const QPalette& palette) {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PaintLogo(painter, QRectF(0, 0, size, size), palette);
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

LogoLabel::LogoLabel(int size, QWidget* parent) : QWidget(parent) { setFixedSize(size, size); }

void LogoLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintLogo(painter, rect(), palette());
}

}  // namespace tessara
