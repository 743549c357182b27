#include "window/reference/help_pane.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QLabel>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/files.h"
#include "window/reference/document_view.h"
#include "window/system/qt_platform.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr std::size_t kDocumentation = 0;
constexpr int kPaneColumns = 34;

struct ListedDocument {
  const char* caption;
  std::size_t place;  // among kDocumentFiles
};
constexpr ListedDocument kDocuments[] = {
    {"User Manual", 0}, {"Student Workbook", 1}, {"Methods Handbook", 2}, {"Brochure", 3}, {"Student Discount", 4}};

// What the maker has to say stands on pages of the Help folder.
struct Link {
  const char* caption;
  std::string_view page;
};
constexpr Link kLinks[] = {{"Download Documentation", "Download.html"},
                           {"Statistics Links", "Links.html"},
                           {"Tessara Home Page", "Home.html"},
                           {"Check for Updates", "Updates.html"}};

// An entry below a heading. It shows that it can be pressed when the pointer or the keyboard is on it.
QToolButton* MakeLabel(int index, const QString& caption, const char* icon, QWidget* parent) {
  auto* label = new QToolButton(parent);
  label->setObjectName(QString("Label1(%1)").arg(index));
  label->setText(caption);
  label->setIcon(ThemeIcon(icon));
  label->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  label->setAutoRaise(true);
  label->setFocusPolicy(Qt::StrongFocus);
  label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  return label;
}

}  // namespace

HelpPane::HelpPane(QtPlatform& platform, Session& session, QWidget* parent)
    : QDockWidget(tr("Help Window"), parent), platform_(platform), session_(session) {
  setObjectName("TaskPanel");
  setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
  auto* content = new QWidget(this);
  auto* layout = new QVBoxLayout(content);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);

  browser_ = new HelpBrowser(platform, content);
  browser_->setObjectName("WebBrowser1");
  browser_->setAccessibleName(tr("Help page"));
  browser_->setMinimumWidth(fontMetrics().averageCharWidth() * kPaneColumns);
  shown_ = new QStackedWidget(content);
  shown_->addWidget(browser_);
  buttons_ = MakeBrowserButtons(content);
  connect(buttons_.back, &QToolButton::clicked, this, &HelpPane::Back);
  connect(buttons_.forward, &QToolButton::clicked, this, &HelpPane::Forward);
  connect(buttons_.print, &QToolButton::clicked, this, &HelpPane::Print);
  connect(browser_, &QTextBrowser::historyChanged, this, &HelpPane::RefreshButtons);
  layout->addWidget(buttons_.bar);
  layout->addWidget(shown_, 1);
  AddHeading(0, tr("Documentation"), layout);
  AddHeading(1, tr("Links"), layout);

  show_at_start_ = new QCheckBox(tr("Show this window at &start"), content);
  show_at_start_->setObjectName("Check11");
  show_at_start_->setChecked(session.settings.Op4 == 1);
  connect(show_at_start_, &QCheckBox::clicked, this, &HelpPane::StoreShowAtStart);
  auto* foot = new QVBoxLayout;
  const int gap = fontMetrics().height() / 2;
  foot->setContentsMargins(gap, gap, gap, gap);
  foot->addWidget(show_at_start_);
  layout->addLayout(foot);
  setWidget(content);
  FillLabels();
}

void HelpPane::AddHeading(std::size_t index, const QString& title, QVBoxLayout* layout) {
  Heading& heading = headings_[index];
  heading.caption = new QToolButton(widget() ? widget() : this);
  heading.caption->setObjectName(QString("ShortcutCaption%1").arg(index + 1));
  heading.caption->setText(title);
  heading.caption->setCheckable(true);
  heading.caption->setAutoRaise(true);
  heading.caption->setArrowType(Qt::RightArrow);
  heading.caption->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  heading.caption->setFocusPolicy(Qt::StrongFocus);
  heading.caption->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  QFont font = heading.caption->font();
  font.setBold(true);
  heading.caption->setFont(font);
  connect(heading.caption, &QToolButton::clicked, this, [this, index](bool checked) { Expand(index, checked); });

  heading.list = new QWidget(this);
  heading.items = new QVBoxLayout(heading.list);
  heading.items->setContentsMargins(fontMetrics().height(), 0, 0, fontMetrics().height() / 2);
  heading.items->setSpacing(0);
  heading.list->hide();
  layout->addWidget(heading.caption);
  layout->addWidget(heading.list);
}

void HelpPane::Expand(std::size_t index, bool expanded) {
  for (std::size_t i = 0; i < headings_.size(); ++i) {
    const bool open = i == index && expanded;
    headings_[i].caption->setChecked(open);
    headings_[i].caption->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    headings_[i].list->setVisible(open);
  }
  FillLabels();
}

// The labels of the expanded heading; the other has none.
void HelpPane::FillLabels() {
  for (std::size_t i = 0; i < headings_.size(); ++i) {
    qDeleteAll(headings_[i].list->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    if (!headings_[i].caption->isChecked()) continue;
    const std::vector<Item> items = Items(i);
    int index = 0;
    const bool documents = i == kDocumentation;
    for (const Item& item : items) {
      QToolButton* label =
          MakeLabel(index++, item.caption, documents ? "application-pdf" : "text-html", headings_[i].list);
      connect(label, &QToolButton::clicked, this,
              [this, documents, file = item.file] { documents ? OpenDocument(file) : ShowPage(file); });
      headings_[i].items->addWidget(label);
    }
    if (items.empty()) {
      auto* none = new QLabel(tr("No documents are installed."), headings_[i].list);
      none->setObjectName("NoItems");
      none->setWordWrap(true);
      headings_[i].items->addWidget(none);
    }
  }
}

std::vector<HelpPane::Item> HelpPane::Items(std::size_t heading) const {
  std::vector<Item> items;
  if (heading == kDocumentation) {
    for (const ListedDocument& document : kDocuments) {
      if (!session_.documentation_found[document.place]) continue;
      items.push_back({QString::fromLatin1(document.caption), kDocumentFiles[document.place]});
    }
  } else {
    for (const Link& link : kLinks) items.push_back({QString::fromLatin1(link.caption), link.page});
  }
  return items;
}

void HelpPane::OpenDocument(std::string_view file) {
  if (platform_.OpenDocument(PathToUtf8(platform_.ProgramFolder() / file))) return;
  platform_.ShowMessage({"Error!", "Tessara was unable to open the " + std::string(file) +
                                       " file.  The most likely reason is because you don't have Adobe Acrobat Reader "
                                       "version 4.0 or later installed on your computer."});
}

void HelpPane::StoreShowAtStart(bool checked) {
  session_.settings.Op4 = checked ? 1 : 0;
  WriteSetting(session_.settings_store, platform_, "Op4", std::to_string(session_.settings.Op4));
}

void HelpPane::ShowPage(std::string_view page) {
  browser_->ShowPage(ToQt(page));
  ShowBrowser(browser_);
}

bool HelpPane::ShowDocument(const QString& file) {
  if (!document_) {  // made for the first document: the start has no time for it
    document_ = new DocumentView(shown_);
    document_->setObjectName("DocumentView");
    shown_->addWidget(document_);
  }
  if (!document_->Open(file)) return false;
  ShowBrowser(document_);
  return true;
}

void HelpPane::ShowBrowser(QWidget* shown) {
  shown_->setCurrentWidget(shown);
  RefreshButtons();
}

// A document stands behind the page that was shown last: back leads to that page, and forward from it to the document
// again, unless the page has others ahead of it.
void HelpPane::Back() {
  if (ShowsDocument()) return ShowBrowser(browser_);
  browser_->backward();
}

void HelpPane::Forward() {
  if (browser_->isForwardAvailable()) return browser_->forward();
  if (HasDocument()) ShowBrowser(document_);
}

bool HelpPane::ShowsDocument() const { return document_ && shown_->currentWidget() == document_; }

bool HelpPane::HasDocument() const { return document_ && document_->has_document(); }

void HelpPane::RefreshButtons() {
  buttons_.back->setEnabled(ShowsDocument() || browser_->isBackwardAvailable());
  buttons_.forward->setEnabled(!ShowsDocument() && (browser_->isForwardAvailable() || HasDocument()));
}

void HelpPane::Print() {
  if (ShowsDocument()) return document_->Print(platform_);
  browser_->PrintPage();
}

bool HelpPane::Shows(std::string_view page) const {
  return shown_->currentWidget() == browser_ && browser_->source().toString().endsWith(ToQt(page));
}

void HelpPane::RefreshLists() { FillLabels(); }

void HelpPane::closeEvent(QCloseEvent* event) {
  QDockWidget::closeEvent(event);
  emit Closed();
}

}  // namespace tessara
