#include "window/output/rpt_options.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFocusEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>

#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kCharactersOfALine = 64;
constexpr int kLongestLine = 400;
constexpr const char* kPrompt =
    "This option allows you to format a header and footer for the summary report output. If you do not wish to have a "
    "header and/or footer, click 'Clear' to remove all entries. If you want to use the default header and footer, "
    "click 'Default'.";

Qt::Alignment QtAlignment(TableAlignment alignment) {
  switch (alignment) {
    case TableAlignment::kLeft:
      return Qt::AlignLeft;
    case TableAlignment::kRight:
      return Qt::AlignRight;
    case TableAlignment::kCentre:
      break;
  }
  return Qt::AlignHCenter;
}

}  // namespace

RptOptions::RptOptions(ReportPage& page, QWidget* parent) : QDialog(parent), page_(page) {
  setObjectName("RptOptions");
  setWindowTitle(tr("Format Header/Footers"));
  auto* prompt = new QLabel(kPrompt, this);
  prompt->setObjectName("Label1");
  prompt->setWordWrap(true);
  FollowFont(prompt,
             [prompt] { prompt->setMinimumWidth(prompt->fontMetrics().averageCharWidth() * kCharactersOfALine); });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(prompt);
  layout->addWidget(MakeKeys());
  layout->addWidget(MakeBoxes());
  layout->addStretch(1);
  layout->addWidget(MakeButtons());
  ShowPage(page_);
  header_->setFocus();
}

QAction* RptOptions::AddKey(QToolBar* keys, const char* name, const char* icon, const QString& tip) {
  QAction* key = keys->addAction(ThemeIcon(icon), tip);
  key->setObjectName(name);
  return key;
}

// The keys work on the box that had the focus last.
QWidget* RptOptions::MakeKeys() {
  auto* keys = new QToolBar(this);
  keys->setObjectName("Toolbar1");
  left_ = AddKey(keys, "left", "format-justify-left", tr("Align Left (Ctrl+L)"));
  centre_ = AddKey(keys, "center", "format-justify-center", tr("Center (Ctrl+E)"));
  right_ = AddKey(keys, "right", "format-justify-right", tr("Align Right (Ctrl+R)"));
  left_->setShortcut(Qt::CTRL | Qt::Key_L);
  centre_->setShortcut(Qt::CTRL | Qt::Key_E);
  right_->setShortcut(Qt::CTRL | Qt::Key_R);
  keys->addSeparator();
  QAction* number = AddKey(keys, "page", "format-list-ordered", tr("Page Number"));
  QAction* date = AddKey(keys, "date", "view-calendar-day", tr("Date"));
  number->setText(tr("Page &Number"));
  date->setText(tr("Da&te"));
  keys->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  for (QAction* key : {left_, centre_, right_}) {
    key->setCheckable(true);
    key->setPriority(QAction::LowPriority);  // the picture tells enough
  }
  auto* group = new QActionGroup(this);
  for (QAction* key : {left_, centre_, right_}) group->addAction(key);
  connect(left_, &QAction::triggered, this, [this] { Align(TableAlignment::kLeft); });
  connect(centre_, &QAction::triggered, this, [this] { Align(TableAlignment::kCentre); });
  connect(right_, &QAction::triggered, this, [this] { Align(TableAlignment::kRight); });
  connect(number, &QAction::triggered, this, [this] { Append(kPageToken); });
  connect(date, &QAction::triggered, this, [this] { Append(kDateToken); });
  return keys;
}

QWidget* RptOptions::MakeBoxes() {
  auto* boxes = new QWidget(this);
  auto* form = new QFormLayout(boxes);
  form->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](const char* name, const QString& caption) {
    auto* box = new QLineEdit(boxes);
    box->setObjectName(name);
    box->setMaxLength(kLongestLine);
    box->installEventFilter(this);
    form->addRow(caption, box);
    return box;
  };
  header_ = add("Text1", tr("&Header"));
  header_rule_ = new QCheckBox("Put a line under the header", boxes);
  header_rule_->setObjectName("Check1");
  form->addRow(QString(), header_rule_);
  footer_ = add("Text2", tr("&Footer"));
  footer_rule_ = new QCheckBox("Put a line over the footer", boxes);
  footer_rule_->setObjectName("Check2");
  form->addRow(QString(), footer_rule_);
  in_focus_ = header_;
  return boxes;
}

QWidget* RptOptions::MakeButtons() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Help, this);
  const auto add = [&](const char* name, const QString& caption, QDialogButtonBox::ButtonRole role) {
    QPushButton* button = buttons->addButton(caption, role);
    button->setObjectName(name);
    return button;
  };
  QPushButton* usual = add("Command3", tr("&Default"), QDialogButtonBox::ResetRole);
  QPushButton* clear = add("Command4", tr("C&lear"), QDialogButtonBox::ResetRole);
  QPushButton* apply = add("Command1", tr("&Apply"), QDialogButtonBox::ActionRole);
  QPushButton* close = add("Command2", tr("&Close"), QDialogButtonBox::RejectRole);
  for (QPushButton* button : {usual, clear, close}) button->setAutoDefault(false);
  apply->setDefault(true);
  connect(usual, &QPushButton::clicked, this, [this] {
    header_->setText(kUsualReportHeader);
    footer_->setText(kUsualReportFooter);
  });
  connect(clear, &QPushButton::clicked, this, [this] {
    header_->clear();
    footer_->clear();
  });
  connect(apply, &QPushButton::clicked, this, &RptOptions::Apply);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  const auto ask_help = [this] { emit HelpAsked("UserManual5.html#pages"); };
  connect(buttons, &QDialogButtonBox::helpRequested, this, ask_help);
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this, ask_help);
  return buttons;
}

bool RptOptions::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn && (watched == header_ || watched == footer_)) {
    in_focus_ = static_cast<QLineEdit*>(watched);
    ShowAlignment();
  }
  return QDialog::eventFilter(watched, event);
}

TableAlignment& RptOptions::AlignmentInFocus() {
  return in_focus_ == footer_ ? shown_.ReportFooterAlign : shown_.ReportHeaderAlign;
}

void RptOptions::ShowPage(const ReportPage& page) {
  shown_ = page;
  header_->setText(ToQt(page.ReportHeader));
  footer_->setText(ToQt(page.ReportFooter));
  header_rule_->setChecked(page.ReportHeaderRule);
  footer_rule_->setChecked(page.ReportFooterRule);
  ShowAlignment();
}

// Each box is aligned as its line will be; the keys tell of the one in focus.
void RptOptions::ShowAlignment() {
  header_->setAlignment(QtAlignment(shown_.ReportHeaderAlign) | Qt::AlignVCenter);
  footer_->setAlignment(QtAlignment(shown_.ReportFooterAlign) | Qt::AlignVCenter);
  left_->setChecked(AlignmentInFocus() == TableAlignment::kLeft);
  centre_->setChecked(AlignmentInFocus() == TableAlignment::kCentre);
  right_->setChecked(AlignmentInFocus() == TableAlignment::kRight);
}

void RptOptions::Align(TableAlignment alignment) {
  AlignmentInFocus() = alignment;
  ShowAlignment();
  in_focus_->setFocus();
}

void RptOptions::Append(std::string_view token) {
  in_focus_->setText(in_focus_->text() + ToQt(token));
  in_focus_->setFocus();
}

void RptOptions::Apply() {
  shown_.ReportHeader = FromQt(header_->text());
  shown_.ReportFooter = FromQt(footer_->text());
  shown_.ReportHeaderRule = header_rule_->isChecked();
  shown_.ReportFooterRule = footer_rule_->isChecked();
  page_ = shown_;
  emit Applied();
}

}  // namespace tessara
