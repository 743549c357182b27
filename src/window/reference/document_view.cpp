#include "window/reference/document_view.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfView>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <memory>

#include "presentation/print_pages.h"
#include "window/system/qt_platform.h"
#include "window/widgets/theme.h"
#include "window/widgets/zoom.h"

namespace tessara {
namespace {

constexpr qreal kZoomStep = 1.2;
constexpr qreal kLeastZoom = 0.2;
constexpr qreal kMostZoom = 5;
constexpr qreal kMostDots = 3500;  // of a page's longer side in print: 300 an inch

}  // namespace

DocumentView::DocumentView(QWidget* parent) : QWidget(parent) {
  view_ = new QPdfView(this);
  view_->setObjectName("DocumentPages");
  view_->setAccessibleName(tr("Document"));
  view_->setFrameShape(QFrame::NoFrame);
  view_->setPageMode(QPdfView::PageMode::MultiPage);
  view_->setFocusPolicy(Qt::StrongFocus);
  view_->installEventFilter(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(MakeBar());
  layout->addWidget(view_, 1);
  setFocusProxy(view_);
  Zoom::LeaveTo(this);
  FitWidth();
  connect(view_->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this, &DocumentView::ShowPlace);
  ShowPlace();
}

QWidget* DocumentView::MakeBar() {
  auto* bar = new QWidget(this);
  auto* layout = new QHBoxLayout(bar);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  const auto add = [&](const char* name, const char* icon, const QString& words, auto act) {
    auto* button = new QToolButton(bar);
    button->setObjectName(name);
    button->setIcon(ThemeIcon(icon));
    button->setAutoRaise(true);
    button->setToolTip(words);
    button->setAccessibleName(words);
    connect(button, &QToolButton::clicked, this, act);
    layout->addWidget(button);
    return button;
  };
  previous_ = add("PreviousPage", "go-up", tr("Previous page"), [this] { GoToPage(page() - 1); });
  next_ = add("NextPage", "go-down", tr("Next page"), [this] { GoToPage(page() + 1); });
  place_ = new QLabel(bar);
  place_->setObjectName("PageOfDocument");
  place_->setMargin(fontMetrics().height() / 4);
  layout->addWidget(place_);
  layout->addStretch();
  add("DocumentSmaller", "zoom-out", tr("Smaller (Ctrl+-)"), [this] { ZoomStep(-1); });
  add("DocumentFits", "zoom-fit-width", tr("As wide as the window (Ctrl+0)"), [this] { FitWidth(); });
  add("DocumentLarger", "zoom-in", tr("Larger (Ctrl++)"), [this] { ZoomStep(1); });
  return bar;
}

bool DocumentView::Open(const QString& file) {
  auto opened = std::make_unique<QPdfDocument>(this);
  if (opened->load(file) != QPdfDocument::Error::None || opened->pageCount() < 1) return false;
  view_->setDocument(opened.get());
  delete document_;
  document_ = opened.release();
  GoToPage(0);
  ShowPlace();
  return true;
}

int DocumentView::page() const { return view_->pageNavigator()->currentPage(); }

void DocumentView::Print(QtPlatform& platform) const {
  if (!document_) return;
  const auto choice = platform.AskPrint({.title = "Print"});
  if (!choice) return;
  const int pages = document_->pageCount();
  const auto paint = [&](QPainter& painter, const QRectF& place, int sheet) {
    const QSizeF fitted = document_->pagePointSize(sheet % pages).scaled(place.size(), Qt::KeepAspectRatio);
    const QSizeF sharp = fitted.boundedTo(fitted.scaled(kMostDots, kMostDots, Qt::KeepAspectRatio));
    painter.drawImage(QRectF(place.topLeft(), fitted), document_->render(sheet % pages, sharp.toSize()));
  };
  if (!platform.PrintPictures(pages * choice->copies, paint)) ShowPrinterError(platform);
}

void DocumentView::GoToPage(int page) {
  if (!document_) return;
  view_->pageNavigator()->jump(std::clamp(page, 0, document_->pageCount() - 1), {}, view_->zoomFactor());
}

void DocumentView::ZoomStep(int steps) {
  qreal zoom = view_->zoomFactor();
  if (view_->zoomMode() != QPdfView::ZoomMode::Custom && document_) {  // from the size that it has now
    const qreal points = document_->pagePointSize(page()).width();
    const qreal pixels = points * logicalDpiX() / 72;
    if (pixels > 0) zoom = view_->viewport()->width() / pixels;
  }
  view_->setZoomMode(QPdfView::ZoomMode::Custom);
  view_->setZoomFactor(std::clamp(zoom * std::pow(kZoomStep, steps), kLeastZoom, kMostZoom));
}

void DocumentView::ZoomBy(int steps) {
  if (steps == 0) return FitWidth();
  ZoomStep(steps);
}

void DocumentView::FitWidth() { view_->setZoomMode(QPdfView::ZoomMode::FitToWidth); }

void DocumentView::ShowPlace() {
  const int pages = document_ ? document_->pageCount() : 0;
  place_->setText(pages == 0 ? QString() : tr("Page %1 of %2").arg(page() + 1).arg(pages));
  previous_->setEnabled(page() > 0);
  next_->setEnabled(page() + 1 < pages);
}

// The arrow keys and those that scroll by a screen belong to the pages themselves; Home and End go to the ends of the
// document, and Ctrl with Page Up and Page Down turns a page.
bool DocumentView::TakeKey(const QKeyEvent& event) {
  const bool control = event.modifiers() & Qt::ControlModifier;
  if (event.key() == Qt::Key_Home) {
    GoToPage(0);
  } else if (event.key() == Qt::Key_End && document_) {
    GoToPage(document_->pageCount() - 1);
  } else if (control && event.key() == Qt::Key_PageDown) {
    GoToPage(page() + 1);
  } else if (control && event.key() == Qt::Key_PageUp) {
    GoToPage(page() - 1);
  } else {
    return false;
  }
  return true;
}

bool DocumentView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == view_ && event->type() == QEvent::KeyPress && TakeKey(*static_cast<QKeyEvent*>(event))) return true;
  return QWidget::eventFilter(watched, event);
}

}  // namespace tessara
