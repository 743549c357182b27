#include "window/reference/help_pane.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/files.h"
#include "window/reference/help_browser.h"
#include "window/system/qt_platform.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr std::size_t kDocumentation = 0;
constexpr int kPaneColumns = 34;

struct Document {
  const char* caption;
  std::size_t place;  // among kDocumentFiles
};
constexpr Document kDocuments[] = {
    {"User Manual", 0}, {"Student Workbook", 1}, {"Methods Handbook", 2}, {"Brochure", 3}, {"Student Discount", 4}};

// An entry below a heading. It shows that it can be pressed when the pointer or the keyboard is on it.
QToolButton* MakeLabel(int index, const QString& caption, QWidget* parent) {
  auto* label = new QToolButton(parent);
  label->setObjectName(QString("Label1(%1)").arg(index));
  label->setText(caption);
  label->setIcon(ThemeIcon("application-pdf"));
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
  layout->addWidget(MakeBrowserButtons(browser_, content));
  layout->addWidget(browser_, 1);
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
    for (const Item& item : items) {
      QToolButton* label = MakeLabel(index++, item.caption, headings_[i].list);
      connect(label, &QToolButton::clicked, this, [this, file = item.file] { OpenItem(file); });
      headings_[i].items->addWidget(label);
    }
    if (items.empty()) {
      auto* none = new QLabel(
          i == kDocumentation ? tr("No documents are installed.") : tr("There are no links in this installation."),
          headings_[i].list);
      none->setObjectName("NoItems");
      none->setWordWrap(true);
      headings_[i].items->addWidget(none);
    }
  }
}

std::vector<HelpPane::Item> HelpPane::Items(std::size_t heading) const {
  std::vector<Item> items;
  if (heading != kDocumentation) return items;
  for (const Document& document : kDocuments) {
    if (!session_.documentation_found[document.place]) continue;
    items.push_back(
        {QString::fromLatin1(document.caption), platform_.ProgramFolder() / kDocumentFiles[document.place]});
  }
  return items;
}

void HelpPane::OpenItem(const Path& file) {
  if (platform_.OpenDocument(PathToUtf8(file))) return;
  platform_.ShowMessage({"Error!",
                         "Tessara was unable to open the Workbook.pdf file.  The most likely reason is because you "
                         "don't have Adobe Acrobat Reader version 4.0 or later installed on your computer."});
}

void HelpPane::StoreShowAtStart(bool checked) {
  session_.settings.Op4 = checked ? 1 : 0;
  WriteSetting(session_.settings_store, platform_, "Op4", std::to_string(session_.settings.Op4));
}

void HelpPane::ShowPage(std::string_view page) { browser_->ShowPage(ToQt(page)); }

bool HelpPane::Shows(std::string_view page) const { return browser_->source().toString().endsWith(ToQt(page)); }

void HelpPane::RefreshLists() { FillLabels(); }

void HelpPane::closeEvent(QCloseEvent* event) {
  QDockWidget::closeEvent(event);
  emit Closed();
}

}  // namespace tessara
