#include "window/reference/tips.h"

#include <QButtonGroup>
#include <QFile>
#include <QHBoxLayout>
#include <QRegularExpression>
#include <QToolButton>
#include <QVBoxLayout>

#include "window/reference/help_browser.h"
#include "window/system/qt_platform.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kTipCount = 7;
constexpr qint64 kHeadLength = 4096;

QString PageName(int tip) { return QString("t%1.html").arg(tip); }

// What a page calls itself; empty when there is no such page.
QString TitleOfPage(const QString& file) {
  QFile page(file);
  if (!page.open(QIODevice::ReadOnly)) return {};
  static const QRegularExpression title(
      "<title>\\s*(.*?)\\s*</title>",
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
  return title.match(QString::fromUtf8(page.read(kHeadLength))).captured(1);
}

}  // namespace

Tips::Tips(QtPlatform& platform, Session& the_session, QWidget* parent)
    : ViewForm(the_session, View::ViewTips, parent) {
  setObjectName("Tips");
  browser_ = new HelpBrowser(platform, this);
  browser_->setAccessibleName(tr("Quick tip"));

  auto* labels = new QVBoxLayout;
  labels->addWidget(MakeBrowserButtons(browser_, this));
  labels->addSpacing(fontMetrics().height() / 2);
  auto* group = new QButtonGroup(this);
  int shown = 0;
  for (int tip = 0; tip < kTipCount; ++tip) {
    const QString title = TitleOfPage(PathToQt(platform.ProgramFolder() / "Help") + "/" + PageName(tip));
    if (title.isEmpty()) continue;
    ++shown;
    auto* label = new QToolButton(this);
    label->setObjectName(QString("Label1(%1)").arg(tip));
    label->setText(title);
    label->setIcon(ThemeIcon("help-hint"));
    label->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    label->setCheckable(true);
    label->setChecked(tip == 0);
    label->setAutoRaise(true);
    label->setFocusPolicy(Qt::StrongFocus);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    group->addButton(label);
    labels->addWidget(label);
    connect(label, &QToolButton::clicked, this, [this, tip] { browser_->ShowPage(PageName(tip)); });
  }
  labels->addStretch();

  auto* layout = new QHBoxLayout(this);
  layout->addLayout(labels);
  layout->addWidget(browser_, 1);
  if (shown < 2) {  // a single page needs no list beside it
    for (QAbstractButton* button : group->buttons()) button->hide();
  }
  browser_->ShowPage(PageName(0));
  setFocusProxy(browser_);
}

void Tips::Perform(WidgetAction action) {
  if (action == WidgetAction::kPrintPage) browser_->PrintPage();
}

}  // namespace tessara
