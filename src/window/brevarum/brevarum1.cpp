#include "window/brevarum/brevarum1.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include "shell/command_table.h"
#include "window/brevarum/brevarum_input.h"
#include "window/reference/help_browser.h"
#include "window/system/page_painter.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/flow_layout.h"
#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/scrolled.h"
#include "window/widgets/segment_button.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kColumnsOfCompactText = 24;  // at the least; it scrolls
constexpr int kLinesOfCompactText = 7;     // at the least
constexpr int kColumnsOfResults = 24;      // the same
constexpr int kLinesOfResults = 6;
constexpr int kWidthBeside = 100;  // characters: with less the results stand below the input

enum Tab { kInstructions, kHelp, kModule };

// Keeps the place that the reader has scrolled to while the text stays the same.
void ShowText(QPlainTextEdit* edit, const QString& text) {
  if (edit->toPlainText() != text) edit->setPlainText(text);
}

// At the least so much of a text is in sight.
void SetLeastText(QWidget* text, int columns, int lines) {
  text->setMinimumSize(text->fontMetrics().averageCharWidth() * columns, text->fontMetrics().height() * lines);
}

}  // namespace

// The input and beside or below it the results. It asks for no more height than it needs: the page around it scrolls.
class ColumnSplitter : public QSplitter {
 public:
  using QSplitter::QSplitter;
  QSize sizeHint() const override { return minimumSizeHint(); }
};

Brevarum1::Brevarum1(QtPlatform& platform, Session& the_session, QWidget* parent)
    : ViewForm(the_session, View::ViewBrevarum, parent), platform_(platform) {
  setObjectName("Brevarum1");
  auto* page = new QWidget(this);
  auto* inside = new QVBoxLayout(page);
  inside->addWidget(BuildKinds());
  auto* second = new QWidget(page);
  auto* bar = new FlowLayout(second, fontMetrics().height() / 3);
  bar->SetLastAtRight();
  bar->addWidget(BuildSamples());
  bar->addWidget(BuildTabs());
  inside->addWidget(second);
  columns_ = new ColumnSplitter(Qt::Horizontal, page);
  columns_->addWidget(BuildInput());
  columns_->addWidget(BuildResults());
  columns_->setChildrenCollapsible(false);
  columns_->setStretchFactor(0, 7);
  columns_->setStretchFactor(1, 3);
  columns_->setSizes({700, 300});  // the same share at the start
  inside->addWidget(columns_, 1);

  scroll_ = new Scrolled(page, this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->setSizeConstraint(QLayout::SetNoConstraint);
  layout->addWidget(scroll_, 1);
  layout->addWidget(BuildFooter());
  // Tab goes from the last box to the buttons, and from there to the results.
  QWidget* before = actions_.back();
  for (QWidget* result : {static_cast<QWidget*>(compact_), static_cast<QWidget*>(copy_),
                          static_cast<QWidget*>(narrative_), static_cast<QWidget*>(browser_)}) {
    setTabOrder(before, result);
    before = result;
  }
  FollowFont(this, [this] { PlaceResults(); });
  Brevarum1::ShowSession();
}

BrevarumPanel& Brevarum1::panel() const { return session().brevarum; }

// What to calculate.
QWidget* Brevarum1::BuildKinds() {
  auto* bar = new QWidget(this);
  auto* kinds = new FlowLayout(bar, 0);
  kinds_ = new QButtonGroup(this);
  int known = -1;
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    if (row.option <= known) continue;  // the samples of one share the button of the two
    known = row.option;
    auto* button = new SegmentButton(bar);
    button->setObjectName(QString("Option1(%1)").arg(row.option));
    button->setText(ToQt(row.button));
    button->setCheckable(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->installEventFilter(this);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setToolTip(ToQt(row.frame_caption).trimmed());
    kinds_->addButton(button, row.option);
    kinds->addWidget(button);
  }
  connect(kinds_, &QButtonGroup::idClicked, this,
          [this](int option) { ChangePanel([option](BrevarumPanel& changed) { SelectPanel(changed, option); }); });
  return bar;
}

// Of how many samples.
QWidget* Brevarum1::BuildSamples() {
  auto* bar = new QWidget(this);
  auto* samples = new QHBoxLayout(bar);
  samples->setContentsMargins(0, 0, 0, 0);
  samples_ = new QButtonGroup(this);
  for (const auto& [id, caption] : {std::pair{0, kTwoSample}, std::pair{1, kOneSample}}) {
    auto* button = new QRadioButton(ToQt(caption), bar);
    button->setObjectName(QString("Option2(%1)").arg(id));
    button->installEventFilter(this);
    samples_->addButton(button, id);
    samples->addWidget(button);
  }
  connect(samples_, &QButtonGroup::idClicked, this,
          [this](int id) { ChangePanel([id](BrevarumPanel& changed) { SelectSamples(changed, id == 1); }); });
  return bar;
}

// Which of the two panes stands beside the input, if any.
QWidget* Brevarum1::BuildTabs() {
  auto* bar = new QWidget(this);
  auto* tabs = new FlowLayout(bar, 0);
  tabs_ = new QButtonGroup(this);
  struct TabRow {
    Tab tab;
    const char* icon;
    const char* caption;
    std::string_view tooltip;
  };
  for (const TabRow& row : {TabRow{kInstructions, "view-list-text", "Results", kViewInstructions},
                            TabRow{kHelp, "help-contents", "Help", kViewHelpWindow},
                            TabRow{kModule, "view-form", "Input only", kViewModule}}) {
    auto* button = new SegmentButton(bar);
    button->setObjectName(QString("Viewbar1(%1)").arg(row.tab));
    button->setIcon(ThemeIcon(row.icon));
    button->setText(row.caption);
    button->setToolTip(ToQt(row.tooltip));
    button->setAccessibleName(ToQt(row.tooltip));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setCheckable(true);
    tabs_->addButton(button, row.tab);
    tabs->addWidget(button);
  }
  connect(tabs_, &QButtonGroup::idClicked, this, &Brevarum1::ShowTab);
  return bar;
}

QWidget* Brevarum1::BuildInput() {
  auto* input = new QWidget(this);
  auto* layout = new QVBoxLayout(input);
  layout->setContentsMargins(0, 0, 0, 0);
  input_ = new BrevarumInput(session().platform, panel(), input);
  layout->addWidget(input_);
  connect(input_, &BrevarumInput::Typed, this, [this](QWidget* box) { scroll_->BringIntoSight(box); });
  connect(input_, &BrevarumInput::EndReached, this, [this] { actions_[0]->setFocus(Qt::TabFocusReason); });

  compact_ = new QPlainTextEdit(input);
  compact_->setObjectName("T5");
  FocusOutline::AskFor(compact_);
  compact_->setAccessibleName(tr("Compact results"));
  compact_->setReadOnly(true);
  compact_->setTabChangesFocus(true);
  compact_->setLineWrapMode(QPlainTextEdit::NoWrap);
  compact_->setFont(FixedPitchFont());
  FollowFont(compact_, [this] { SetLeastText(compact_, kColumnsOfCompactText, kLinesOfCompactText); });
  layout->addWidget(compact_, 1);
  return input;
}

// The buttons, which stay in sight.
QWidget* Brevarum1::BuildFooter() {
  auto* footer = new QWidget(this);
  auto* buttons = new QHBoxLayout(footer);
  const auto add = [&](std::size_t place, const char* name, const char* icon, const QString& text, const QString& tip,
                       int command) {
    auto* button = new QPushButton(ThemeIcon(icon), text, footer);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(true);  // so that Enter presses it
    connect(button, &QPushButton::clicked, this, [this, command] { emit CommandRequested(command); });
    actions_[place] = button;
    buttons->addWidget(button);
  };
  add(0, "CalculateButton", "media-playback-start", tr("Calculate"), tr("Calculate the statistics (F5)"), kRunCommand);
  add(1, "ClearButton", "edit-clear", tr("Clear"), tr("Empty the boxes and results of this calculator (Ctrl+N)"),
      kNewCommand);
  QFont bold = actions_[0]->font();
  bold.setBold(true);
  actions_[0]->setFont(bold);
  message_ = new ElidedLabel(footer);
  message_->setObjectName("CalculatorMessage");
  buttons->addWidget(message_, 1);
  return footer;
}

QWidget* Brevarum1::BuildResults() {
  auto* side = new QWidget(this);
  auto* layout = new QVBoxLayout(side);
  layout->setContentsMargins(0, 0, 0, 0);

  pane_ = new QStackedWidget(side);
  auto* words = new QWidget(pane_);
  auto* inside = new QVBoxLayout(words);
  inside->setContentsMargins(0, 0, 0, 0);
  auto* head = new QHBoxLayout;
  results_title_ = new QLabel(words);
  results_title_->setObjectName("Label43");
  QFont bold = results_title_->font();
  bold.setBold(true);
  results_title_->setFont(bold);
  results_title_->setWordWrap(true);
  // Room for its longest title of one word, so that a calculation does not move the splitter.
  FollowFont(results_title_, [this] {
    results_title_->setMinimumWidth(results_title_->fontMetrics().horizontalAdvance(tr("Instructions")));
  });
  copy_ = new QPushButton(ThemeIcon("edit-copy"), tr("Click to Copy"), words);
  copy_->setObjectName("Label44");
  copy_->setToolTip(tr("Copy text output"));
  connect(copy_, &QPushButton::clicked, this, [this] { emit CommandRequested(kCopyOutputCommand); });
  head->addWidget(results_title_, 1);
  head->addWidget(copy_);
  inside->addLayout(head);
  narrative_ = new QPlainTextEdit(words);
  narrative_->setObjectName("Text25");
  FocusOutline::AskFor(narrative_);
  narrative_->setAccessibleName(tr("Instructions and results"));
  narrative_->setReadOnly(true);
  narrative_->setTabChangesFocus(true);
  FollowFont(narrative_, [this] { SetLeastText(narrative_, kColumnsOfResults, kLinesOfResults); });
  inside->addWidget(narrative_, 1);
  pane_->addWidget(words);
  browser_ = new HelpBrowser(platform_, pane_);
  browser_->setObjectName("WebBrowser1");
  FollowFont(browser_, [this] { SetLeastText(browser_, kColumnsOfResults, kLinesOfResults); });
  pane_->addWidget(browser_);
  layout->addWidget(pane_, 1);
  return side;
}

void Brevarum1::ShowSession() {
  kinds_->button(panel().Option1)->setChecked(true);
  samples_->button(panel().one_sample ? 1 : 0)->setChecked(true);
  input_->ShowPanel();
  ShowResults();
  ShowRightPane();
}

void Brevarum1::StoreWidgets() { input_->StoreWidgets(); }
void Brevarum1::FocusFirst() { input_->FocusFirst(); }
void Brevarum1::FocusInput() {
  if (!input_->HoldsFocus()) input_->FocusFirst();
  // In a small window the page goes to what has come out.
  QWidget* result = compact_->isHidden() ? static_cast<QWidget*>(input_) : compact_;
  scroll_->BringIntoSight(result);
}

void Brevarum1::ShowResults() {
  results_title_->setText(ToQt(panel().Label43).trimmed());
  ShowText(compact_, ToQtLines(panel().T5));
  compact_->setVisible(CurrentRow(panel()).panel != kScorePanel);  // which has a curve in its place
  ShowText(narrative_, ToQtLines(panel().Text25));
  copy_->setEnabled(CanCopyResult(panel()));
}

void Brevarum1::ShowRightPane() {
  const bool help = panel().HelpTab;
  const bool words = panel().InstructionsTab;
  tabs_->button(help ? kHelp : words ? kInstructions : kModule)->setChecked(true);
  pane_->parentWidget()->setVisible(help || words);
  pane_->setCurrentIndex(help ? 1 : 0);
  // What a calculation has refused stands in the title of the results, also while these are out of sight.
  const bool out_of_sight = help || !words;
  message_->setText(panel().ShowsRefusal() && out_of_sight ? results_title_->text() : QString());
  if (help) browser_->ShowPage(ToQt(CurrentRow(panel()).help_page));
}

void Brevarum1::ChangePanel(const std::function<void(BrevarumPanel&)>& change) {
  StoreWidgets();
  change(panel());
  ShowSession();
  emit SessionChanged();
}

// A calculator that is chosen with the mouse is ready for typing at once; the arrow keys stay on the buttons.
bool Brevarum1::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonRelease) {
    QMetaObject::invokeMethod(
        this, [this] { FocusFirst(); }, Qt::QueuedConnection);
  }
  return ViewForm::eventFilter(watched, event);
}

void Brevarum1::ShowTab(int tab) {
  panel().InstructionsTab = tab == kInstructions;
  panel().HelpTab = tab == kHelp;
  ShowRightPane();
}

// The help on the calculator in front has its key here: the frame's own help is that on the whole view.
bool Brevarum1::event(QEvent* event) {
  const bool key = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
  if (!key || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1) return ViewForm::event(event);
  event->accept();
  if (event->type() == QEvent::KeyPress) emit HelpAsked();
  return true;
}

void Brevarum1::resizeEvent(QResizeEvent* event) {
  ViewForm::resizeEvent(event);
  PlaceResults();
}

void Brevarum1::PlaceResults() {
  const bool beside = width() >= fontMetrics().averageCharWidth() * kWidthBeside;
  const auto wanted = beside ? Qt::Horizontal : Qt::Vertical;
  if (columns_->orientation() != wanted) columns_->setOrientation(wanted);
}

QSize Brevarum1::minimumSizeHint() const { return {0, 0}; }
QSize Brevarum1::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kWidthBeside, fontMetrics().height() * 34};
}

}  // namespace tessara
