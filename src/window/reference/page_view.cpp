#include "window/reference/page_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "window/widgets/follow_font.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kIconSize = 66;
constexpr int kDrawnSize = 22;
constexpr int kTextColumns = 52;

// The icon of the page, drawn anew when the palette or the screen changes.
class PageIcon : public QWidget {
 public:
  PageIcon(const QIcon& icon, QWidget* parent) : QWidget(parent), icon_(icon) { setFixedSize(kIconSize, kIconSize); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    // The theme's drawings are made for a toolbar: asked for at a finer scale, they are sharp at this size too.
    const qreal scale = devicePixelRatioF() * kIconSize / kDrawnSize;
    painter.drawPixmap(rect(), icon_.pixmap(QSize(kDrawnSize, kDrawnSize), scale));
  }

 private:
  QIcon icon_;
};

}  // namespace

PageView::PageView(Session& the_session, View the_view, const PageText& page, QWidget* parent)
    : ViewForm(the_session, the_view, parent) {
  auto* title = new QLabel(page.title, this);
  FollowFont(this, [this, title] {
    QFont large;
    large.setPointSizeF(font().pointSizeF() * 1.5);
    title->setFont(large);
  });
  title->setAlignment(Qt::AlignHCenter);
  text_ = new QLabel(page.text, this);
  text_->setWordWrap(true);
  text_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);

  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(fontMetrics().height());
  layout->addStretch(2);
  layout->addWidget(new PageIcon(ThemeIcon(page.icon), this), 0, Qt::AlignHCenter);
  layout->addWidget(title);
  auto* middle = new QHBoxLayout;  // an aligned label would get the height of fewer lines than it wraps into
  middle->addStretch();
  middle->addWidget(text_);
  middle->addStretch();
  layout->addLayout(middle);
  layout->addStretch(3);
  setAccessibleName(page.title);
  setAccessibleDescription(page.text);
  FollowFont(text_, [this] { MeasureText(); });
}

// Lines of a length that reads well, shorter in a narrow window.
void PageView::MeasureText() {
  const QMargins around = layout()->contentsMargins();
  const int room = std::max(0, width() - around.left() - around.right());
  text_->setFixedWidth(std::min(text_->fontMetrics().averageCharWidth() * kTextColumns, room));
}

void PageView::resizeEvent(QResizeEvent* event) {
  ViewForm::resizeEvent(event);
  MeasureText();
}

}  // namespace tessara
