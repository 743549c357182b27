#include "window/reference/help_browser.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QToolButton>

#include "window/system/qt_platform.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kPageMargin = 10;
constexpr QLatin1String kGlossaryScheme("glossary");
constexpr const char* kVersionToken = "#version#";  // in a page that tells which version it belongs to

}  // namespace

HelpBrowser::HelpBrowser(QtPlatform& platform, QWidget* parent) : QTextBrowser(parent), platform_(platform) {
  setOpenLinks(false);
  setFrameShape(QFrame::NoFrame);
  link_colour_ = QApplication::palette().color(QPalette::Link);
  document()->setDocumentMargin(kPageMargin);
  document()->setDefaultStyleSheet("h1 { font-size: x-large; } h2 { font-size: large; } h3 { font-size: medium; }");
  connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::Follow);
  connect(this, &QTextBrowser::sourceChanged, this, [this] { anchored_at_ = verticalScrollBar()->value(); });
}

// A section stays in sight when the lines wrap anew, unless the reader has scrolled on.
void HelpBrowser::resizeEvent(QResizeEvent* event) {
  const bool at_anchor = source().hasFragment() && verticalScrollBar()->value() == anchored_at_;
  QTextBrowser::resizeEvent(event);
  if (!at_anchor) return;
  scrollToAnchor(source().fragment());
  anchored_at_ = verticalScrollBar()->value();
}

// A page takes the colour of its links when it is read: it is read anew for another palette.
void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  const bool palette_changed =
      event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange;
  const QColor links = QApplication::palette().color(QPalette::Link);
  if (!palette_changed || links == link_colour_) return;
  link_colour_ = links;
  if (source().isEmpty()) return;
  const int place = verticalScrollBar()->value();
  reload();
  verticalScrollBar()->setValue(place);
}

QString HelpBrowser::HelpFolder() const { return PathToQt(platform_.ProgramFolder() / "Help"); }

void HelpBrowser::ShowPage(const QString& page) {
  QUrl url = QUrl::fromLocalFile(HelpFolder() + "/" + page.section('#', 0, 0));
  if (page.contains('#')) url.setFragment(page.section('#', 1));
  if (url != source()) setSource(url);
}

void HelpBrowser::PrintPage() {
  if (platform_.AskPrint({.title = "Print"})) platform_.PrintDocument(*document());
}

// Pages stay in the browser, terms are shown by the glossary; everything else goes to the program that the system has
// for it.
void HelpBrowser::Follow(const QUrl& link) {
  if (link.scheme() == kGlossaryScheme) {
    emit TermAsked(link.path(QUrl::FullyDecoded));
    return;
  }
  const QUrl target = source().resolved(link);
  const QString suffix = QFileInfo(target.path()).suffix().toLower();
  if (target.isLocalFile() && (suffix == "html" || suffix == "htm")) {
    setSource(target);
  } else {
    platform_.OpenDocument(target.isLocalFile() ? target.toLocalFile().toStdString() : target.toString().toStdString());
  }
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QUrl target = source().resolved(name);
  if (type == QTextDocument::HtmlResource && !QFileInfo(target.toLocalFile()).isFile()) {
    return tr("<p>This page is not in your installation.</p>"
              "<p>It would be <i>%1</i> in the folder Help of the program.</p>")
        .arg(QFileInfo(target.path()).fileName().toHtmlEscaped());
  }
  const QVariant loaded = QTextBrowser::loadResource(type, name);
  if (type != QTextDocument::HtmlResource) return loaded;
  QByteArray page = loaded.toByteArray();
  if (!page.contains(kVersionToken)) return loaded;
  return page.replace(kVersionToken, TESSARA_VERSION);
}

BrowserButtons MakeBrowserButtons(QWidget* parent) {
  BrowserButtons buttons;
  buttons.bar = new QWidget(parent);
  auto* layout = new QHBoxLayout(buttons.bar);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  const auto add = [&](int index, const char* icon, const QString& name) {
    auto* button = new QToolButton(buttons.bar);
    button->setObjectName(QString("Image1(%1)").arg(index));
    button->setIcon(ThemeIcon(icon));
    button->setAutoRaise(true);
    button->setToolTip(name);
    button->setAccessibleName(name);
    layout->addWidget(button);
    return button;
  };
  buttons.back = add(0, "go-previous", HelpBrowser::tr("Back"));
  buttons.forward = add(1, "go-next", HelpBrowser::tr("Forward"));
  buttons.print = add(2, "document-print", HelpBrowser::tr("Print this page"));
  layout->addStretch();
  buttons.back->setEnabled(false);
  buttons.forward->setEnabled(false);
  return buttons;
}

QWidget* MakeBrowserButtons(HelpBrowser* browser, QWidget* parent) {
  const BrowserButtons buttons = MakeBrowserButtons(parent);
  QObject::connect(buttons.back, &QToolButton::clicked, browser, &QTextBrowser::backward);
  QObject::connect(buttons.forward, &QToolButton::clicked, browser, &QTextBrowser::forward);
  QObject::connect(buttons.print, &QToolButton::clicked, browser, &HelpBrowser::PrintPage);
  QObject::connect(browser, &QTextBrowser::backwardAvailable, buttons.back, &QWidget::setEnabled);
  QObject::connect(browser, &QTextBrowser::forwardAvailable, buttons.forward, &QWidget::setEnabled);
  return buttons.bar;
}

}  // namespace tessara
