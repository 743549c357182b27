#include "window/reference/handbook1.h"

#include <QScrollBar>
#include <QVBoxLayout>

#include "shell/handbook_operations.h"
#include "window/reference/find_bar.h"
#include "window/reference/help_browser.h"
#include "window/system/qt_platform.h"
#include "window/widgets/text.h"

namespace tessara {

Handbook1::Handbook1(QtPlatform& platform, Session& the_session, QWidget* parent)
    : ViewForm(the_session, View::ViewHandbook, parent) {
  setObjectName("Handbook1");
  browser_ = new HelpBrowser(platform, this);
  browser_->setObjectName("HandbookPage");
  browser_->setAccessibleName(tr("Handbook page"));
  find_ = new FindBar(browser_, this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(browser_, 1);
  layout->addWidget(find_);
  setFocusProxy(browser_);
  connect(browser_, &QTextBrowser::sourceChanged, this, &Handbook1::PageChanged);
  connect(browser_, &QTextBrowser::historyChanged, this, &ViewForm::SessionChanged);
}

void Handbook1::showEvent(QShowEvent* event) {
  ViewForm::showEvent(event);
  LoadHome();
}

void Handbook1::LoadHome() {
  if (browser_->source().isEmpty()) browser_->ShowPage(kHandbookHome);
}

void Handbook1::ShowPage(const QString& page) {
  LoadHome();
  browser_->ShowPage(page);
  browser_->verticalScrollBar()->setValue(0);
}

void Handbook1::PageChanged(const QUrl& page) {
  NoteShownPage(session(), FromQt(page.fileName()));
  emit SessionChanged();
}

void Handbook1::FocusFirst() { browser_->setFocus(); }

WidgetState Handbook1::State() const {
  return {.page_can_go_back = browser_->isBackwardAvailable(), .page_can_go_forward = browser_->isForwardAvailable()};
}

void Handbook1::Perform(WidgetAction action) {
  switch (action) {
    case WidgetAction::kGoBack:
      return browser_->backward();
    case WidgetAction::kGoForward:
      return browser_->forward();
    case WidgetAction::kGoHome:
      return ShowPage(kHandbookHome);
    case WidgetAction::kShowTopic:
      return ShowPage(ToQt(session().handbook.wanted_page));
    case WidgetAction::kPrintPage:
      return browser_->PrintPage();
    default:
      return;
  }
}

}  // namespace tessara
