#include "window/frame/frm_splash2.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kLogoSize = 96;
constexpr int kAccentHeight = 4;

QLabel* Line(const QString& text, qreal type_factor, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * type_factor);
  label->setFont(font);
  return label;
}

}  // namespace

FrmSplash2::FrmSplash2() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
  setObjectName("frmSplash2");
  setWindowTitle("Tessara");
  setCursor(Qt::WaitCursor);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);

  auto* texts = new QVBoxLayout;
  texts->addStretch(1);
  auto* name = Line("Tessara", 2.6, this);
  QFont name_font = name->font();
  name_font.setWeight(QFont::DemiBold);
  name->setFont(name_font);
  texts->addWidget(name);
  texts->addWidget(Line(tr("Statistics for students, teachers and researchers"), 1.0, this));
  texts->addSpacing(fontMetrics().height() / 2);
  auto* version = Line(tr("Version %1").arg(TESSARA_VERSION), 1.0, this);
  version->setObjectName("Version");
  version->setForegroundRole(QPalette::PlaceholderText);
  texts->addWidget(version);
  texts->addStretch(1);

  const int gap = fontMetrics().height() * 2;
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(gap, gap, gap, gap);
  layout->setSpacing(gap);
  layout->addWidget(new LogoLabel(kLogoSize, this));
  layout->addLayout(texts);
  setFixedSize(sizeHint());
}

void FrmSplash2::ShowNow() {
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    QRect place(QPoint(), size());
    place.moveCenter(screen->availableGeometry().center());
    move(place.topLeft());
  }
  show();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void FrmSplash2::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(QRect(0, height() - kAccentHeight, width(), kAccentHeight), palette().brush(QPalette::Highlight));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace tessara
