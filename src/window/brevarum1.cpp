#include "window/brevarum1.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include "shell/command_table.h"
#include "window/help_browser.h"
#include "window/normal_curve.h"
#include "window/segment_button.h"
#include "window/text.h"
#include "window/theme.h"

namespace tessara {
namespace {

constexpr int kNew = 101;
constexpr int kRunCommand = 308;
constexpr int kCopyOutput = 212;
constexpr int kCharactersOfABox = 8;       // at the least; a box grows to twice that
constexpr int kColumnsOfCompactText = 24;  // at the least; it scrolls
constexpr int kLinesOfCompactText = 10;    // at the least
constexpr int kWidthBeside = 100;          // characters: with less the results stand below the input
constexpr std::size_t kCountsSide = 5;
constexpr int kCountsPanel = 3;
constexpr int kScorePanel = 6;
constexpr int kAccuracyPanel = 7;
constexpr int kPowerPanel = 8;

enum Tab { kInstructions, kHelp, kModule };

QString Name(std::string_view name) { return QString::fromLatin1(name.data(), static_cast<int>(name.size())); }

QFont ReportFont(const QFont& base) {
  QFont font("Courier New");
  font.setFamilies({"Courier New", "Liberation Mono"});
  font.setStyleHint(QFont::Monospace);
  font.setPointSizeF(base.pointSizeF());
  return font;
}

// Keeps the place that the reader has scrolled to while the text stays the same.
void ShowText(QPlainTextEdit* edit, const QString& text) {
  if (edit->toPlainText() != text) edit->setPlainText(text);
}

}  // namespace

Brevarum1::Brevarum1(QtPlatform& platform, Session& the_session, QWidget* parent)
    : ViewForm(the_session, View::ViewBrevarum, parent), platform_(platform) {
  setObjectName("Brevarum1");
  auto* layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetNoConstraint);
  layout->addWidget(BuildButtons());
  columns_ = new QSplitter(Qt::Horizontal, this);
  columns_->addWidget(BuildInput());
  columns_->addWidget(BuildResults());
  columns_->setChildrenCollapsible(false);
  columns_->setStretchFactor(0, 3);
  columns_->setStretchFactor(1, 2);
  layout->addWidget(columns_, 1);
  Brevarum1::ShowSession();
}

BrevarumPanel& Brevarum1::panel() const { return session().brevarum; }

// What to calculate, and of how many samples.
QWidget* Brevarum1::BuildButtons() {
  auto* bar = new QWidget(this);
  auto* layout = new QVBoxLayout(bar);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* kinds = new QHBoxLayout;
  kinds->setSpacing(0);
  kinds_ = new QButtonGroup(this);
  int known = -1;
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    if (row.option <= known) continue;  // the samples of one share the button of the two
    known = row.option;
    auto* button = new SegmentButton(bar);
    button->setObjectName(QString("Option1(%1)").arg(row.option));
    button->setText(ToQt(row.button));
    button->setCheckable(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setToolTip(ToQt(row.frame_caption).trimmed());
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    kinds_->addButton(button, row.option);
    kinds->addWidget(button);
  }
  kinds->addStretch();
  layout->addLayout(kinds);
  connect(kinds_, &QButtonGroup::idClicked, this,
          [this](int option) { ChangePanel([option](BrevarumPanel& changed) { SelectPanel(changed, option); }); });

  auto* samples = new QHBoxLayout;
  samples_ = new QButtonGroup(this);
  for (const auto& [id, caption] : {std::pair{0, kTwoSample}, std::pair{1, kOneSample}}) {
    auto* button = new QRadioButton(ToQt(caption), bar);
    button->setObjectName(QString("Option2(%1)").arg(id));
    button->setFocusPolicy(Qt::TabFocus);
    samples_->addButton(button, id);
    samples->addWidget(button);
  }
  samples->addStretch();
  samples->addLayout(BuildTabs(bar));
  layout->addLayout(samples);
  connect(samples_, &QButtonGroup::idClicked, this,
          [this](int id) { ChangePanel([id](BrevarumPanel& changed) { SelectSamples(changed, id == 1); }); });
  return bar;
}

// Which of the two panes stands beside the input, if any.
QLayout* Brevarum1::BuildTabs(QWidget* bar) {
  auto* tabs = new QHBoxLayout;
  tabs->setSpacing(0);
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
  return tabs;
}

QWidget* Brevarum1::BuildInput() {
  auto* input = new QWidget;
  auto* layout = new QVBoxLayout(input);
  layout->setContentsMargins(0, 0, 0, 0);

  frame_ = new QGroupBox(input);
  frame_->setObjectName("InputFrame");
  frames_ = new QStackedWidget(frame_);
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    if (row.frame != "F1") frames_->addWidget(own_frames_[Name(row.frame)] = BuildOwnFrame(row));
  }
  BuildSharedFrame();
  frames_->addWidget(shared_);
  auto* inside = new QVBoxLayout(frame_);
  inside->addWidget(frames_);
  note_ = new QLabel(frame_);
  note_->setObjectName("Label28");
  note_->setWordWrap(true);
  inside->addWidget(note_);
  layout->addWidget(frame_);

  auto* buttons = new QHBoxLayout;
  const auto add = [&](std::size_t place, const char* name, const char* icon, const QString& text, const QString& tip,
                       int command) {
    auto* button = new QPushButton(ThemeIcon(icon), text, input);
    button->setObjectName(name);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this, [this, command] { emit CommandRequested(command); });
    actions_[place] = button;
    buttons->addWidget(button);
  };
  add(0, "CalculateButton", "media-playback-start", tr("Calculate"), tr("Calculate the statistics (F5)"), kRunCommand);
  add(1, "ClearButton", "edit-clear", tr("Clear"), tr("Empty the boxes and results of this calculator (Ctrl+N)"), kNew);
  QFont bold = actions_[0]->font();
  bold.setBold(true);
  actions_[0]->setFont(bold);
  buttons->addStretch();
  layout->addLayout(buttons);

  compact_ = new QPlainTextEdit(input);
  compact_->setObjectName("T5");
  compact_->setAccessibleName(tr("Compact results"));
  compact_->setReadOnly(true);
  compact_->setTabChangesFocus(true);
  compact_->setLineWrapMode(QPlainTextEdit::NoWrap);
  compact_->setFont(ReportFont(font()));
  const QFontMetrics type(compact_->font());
  compact_->setMinimumHeight(type.height() * kLinesOfCompactText);
  compact_->setMinimumWidth(type.averageCharWidth() * kColumnsOfCompactText);
  layout->addWidget(compact_, 1);

  auto* scroll = new QScrollArea(this);
  scroll->setWidget(input);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  return scroll;
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
  copy_ = new QPushButton(ThemeIcon("edit-copy"), tr("Click to Copy"), words);
  copy_->setObjectName("Label44");
  copy_->setToolTip(tr("Copy text output"));
  copy_->setFlat(true);
  connect(copy_, &QPushButton::clicked, this, [this] { emit CommandRequested(kCopyOutput); });
  head->addWidget(results_title_, 1);
  head->addWidget(copy_);
  inside->addLayout(head);
  narrative_ = new QPlainTextEdit(words);
  narrative_->setObjectName("Text25");
  narrative_->setAccessibleName(tr("Instructions and results"));
  narrative_->setReadOnly(true);
  narrative_->setTabChangesFocus(true);
  inside->addWidget(narrative_, 1);
  pane_->addWidget(words);
  browser_ = new HelpBrowser(platform_, pane_);
  browser_->setObjectName("WebBrowser1");
  pane_->addWidget(browser_);
  layout->addWidget(pane_, 1);
  return side;
}

QWidget* Brevarum1::MakeBox(const BrevarumBox& box, QWidget* parent) {
  const QString name = Name(box.name);
  QWidget* made = nullptr;
  if (box.kind == BrevarumBoxKind::kChoice) {
    auto* choice = new QComboBox(parent);
    for (const std::string_view text : box.choices) choice->addItem(ToQt(text));
    choices_[name] = choice;
    made = choice;
  } else {
    auto* edit = new QLineEdit(parent);
    edit->setMinimumWidth(fontMetrics().averageCharWidth() * kCharactersOfABox);
    edit->setMaximumWidth(fontMetrics().averageCharWidth() * kCharactersOfABox * 2);
    if (box.kind == BrevarumBoxKind::kNumber) edit->setAlignment(Qt::AlignRight);
    if (box.kind == BrevarumBoxKind::kLabel) edit->setPlaceholderText(tr("Label"));
    edit->installEventFilter(this);
    boxes_[name] = edit;
    made = edit;
  }
  made->setObjectName(name);
  made->setToolTip(ToQt(box.tooltip));
  return made;
}

// Captions to the left, boxes in rows: the one frame for a table of counts has labels on both sides.
QWidget* Brevarum1::BuildOwnFrame(const BrevarumPanelRow& row) {
  auto* page = new QWidget(frames_);
  page->setObjectName(Name(row.frame));
  page->setToolTip(ToQt(row.frame_tooltip));
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  if (row.panel == kCountsPanel) {
    auto* columns = new QLabel(ToQt(row.captions[1]), page);
    columns->setAlignment(Qt::AlignHCenter);
    grid->addWidget(new QLabel(ToQt(row.captions[0]), page), 0, 0);
    grid->addWidget(columns, 0, 1, 1, kCountsSide);
    int place = 1;  // the corner stays free
    for (const BrevarumBox& box : row.boxes) {
      QWidget* made = MakeBox(box, page);
      if (made->toolTip().isEmpty())
        made->setToolTip(tr("Count of column %1, row %2").arg(box.name[1]).arg(box.name[3]));
      made->setAccessibleName(made->toolTip());
      grid->addWidget(made, 1 + place / (static_cast<int>(kCountsSide) + 1),
                      place % (static_cast<int>(kCountsSide) + 1));
      ++place;
    }
    return page;
  }
  const auto rows = row.captions.size();
  const auto columns = row.boxes.size() / rows;
  for (std::size_t r = 0; r < rows; ++r) {
    const QString caption = ToQt(row.captions[r]);
    grid->addWidget(new QLabel(caption, page), static_cast<int>(r), 0);
    for (std::size_t c = 0; c < columns; ++c) {
      QWidget* made = MakeBox(row.boxes[r * columns + c], page);
      made->setAccessibleName(columns == 1 ? caption : caption + ' ' + QString::number(c + 1));
      grid->addWidget(made, static_cast<int>(r), static_cast<int>(c) + 1);
    }
  }
  for (std::size_t c = 1; c <= columns; ++c) grid->setColumnStretch(static_cast<int>(c), 2);
  grid->setColumnStretch(static_cast<int>(columns) + 1, 1);
  grid->setRowStretch(static_cast<int>(rows), 1);
  return page;
}

// F1: its boxes and labels serve five panels, which lay them out in their own way.
void Brevarum1::BuildSharedFrame() {
  shared_ = new QWidget(frames_);
  shared_->setObjectName("F1");
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    labels_[i] = new QLabel(shared_);
    labels_[i]->setObjectName(QString("L%1").arg(i + 1));
  }
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    for (const BrevarumBox& box : row.boxes) {
      const QString name = Name(box.name);
      if (row.frame == "F1" && !boxes_.contains(name) && !choices_.contains(name)) MakeBox(box, shared_);
    }
  }
  curve_ = new NormalCurve(shared_);
}

void Brevarum1::LayOutShared(const BrevarumPanelRow& row) {
  if (laid_out_ == row.panel) return;
  laid_out_ = row.panel;
  qDeleteAll(headings_);
  headings_.clear();
  delete shared_->layout();
  for (QWidget* child : shared_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) child->hide();
  for (QLabel* label : labels_) {
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setMinimumSize(0, 0);
  }
  auto* grid = new QGridLayout(shared_);
  grid->setContentsMargins(0, 0, 0, 0);
  if (row.panel == kAccuracyPanel) {
    LayOutAccuracy();
  } else if (row.panel == kPowerPanel) {
    LayOutPower();
  } else {
    LayOutRows(row);
  }
  for (int i = 0; i < grid->count(); ++i) {
    if (QWidget* shown = grid->itemAt(i)->widget()) shown->show();
  }
  // Tab goes through the boxes as the eye does.
  QWidget* before = nullptr;
  for (const BrevarumBox& box : row.boxes) {
    QWidget* made = shared_->findChild<QWidget*>(Name(box.name));
    if (before) setTabOrder(before, made);
    before = made;
  }
}

void Brevarum1::LayOutRows(const BrevarumPanelRow& row) {
  auto* grid = static_cast<QGridLayout*>(shared_->layout());
  int line = 0;
  for (const BrevarumBox& box : row.boxes) {
    QLineEdit* edit = boxes_[Name(box.name)];
    QLabel* label = Label(static_cast<std::size_t>(line) + 1);
    edit->setAccessibleName(ToQt(row.labels[static_cast<std::size_t>(line)]));
    grid->addWidget(label, line, 0);
    grid->addWidget(edit, line, 1);
    ++line;
  }
  if (row.panel == kScorePanel) {
    grid->addWidget(Label(4), line, 0);
    grid->addWidget(Label(5), line, 1);
    Label(5)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label(5)->setMinimumHeight(boxes_["T1"]->sizeHint().height());
    grid->addWidget(curve_, ++line, 0, 1, 3);
  } else {
    ++line;
  }
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(line, 1);
}

// The fourfold table: known status above, test results beside, totals behind.
void Brevarum1::LayOutAccuracy() {
  auto* grid = static_cast<QGridLayout*>(shared_->layout());
  const auto heading = [&](const QString& text, int line, int column) {
    auto* label = new QLabel(text, shared_);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    headings_.push_back(label);
    grid->addWidget(label, line, column);
  };
  grid->addWidget(Label(1), 0, 1, 1, 2, Qt::AlignHCenter);
  grid->addWidget(Label(2), 1, 0);
  heading("D-", 1, 1);
  heading("D+", 1, 2);
  heading(tr("Total"), 1, 3);
  const std::array<std::array<const char*, 2>, 2> cells = {{{"T1", "T2"}, {"T3", "T4"}}};
  for (int test = 0; test < 2; ++test) {
    grid->addWidget(Label(static_cast<std::size_t>(test) + 3), test + 2, 0);
    for (int disease = 0; disease < 2; ++disease) {
      QLineEdit* edit = boxes_[cells[static_cast<std::size_t>(test)][static_cast<std::size_t>(disease)]];
      edit->setAccessibleName(QString("T%1, D%2").arg(test == 0 ? '-' : '+').arg(disease == 0 ? '-' : '+'));
      grid->addWidget(edit, test + 2, disease + 1);
    }
  }
  grid->addWidget(Label(5), 4, 0);
  const std::array<std::array<int, 2>, 5> places = {{{2, 3}, {3, 3}, {4, 1}, {4, 2}, {4, 3}}};  // L6 to L10
  for (std::size_t i = 0; i < places.size(); ++i) {
    QLabel* total = Label(i + 6);
    total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    total->setMinimumWidth(fontMetrics().averageCharWidth() * kCharactersOfABox);
    grid->addWidget(total, places[i][0], places[i][1]);
  }
  grid->setColumnStretch(4, 1);
  grid->setRowStretch(5, 1);
}

void Brevarum1::LayOutPower() {
  auto* grid = static_cast<QGridLayout*>(shared_->layout());
  const auto choice = [&](std::size_t label, const char* name, int line) {
    choices_[name]->setAccessibleName(ToQt(CurrentRow(panel()).labels[label - 1]));
    grid->addWidget(Label(label), line, 0);
    grid->addWidget(choices_[name], line, 1);
  };
  const auto box = [&](std::size_t label, const char* name, int line, int column) {
    boxes_[name]->setAccessibleName(ToQt(CurrentRow(panel()).labels[label - 1]));
    grid->addWidget(Label(label), line, column);
    grid->addWidget(boxes_[name], line, column + 1);
  };
  choice(1, "Alpha", 0);
  choice(2, "Beta", 1);
  grid->addWidget(Label(3), 2, 0, 1, 2);
  box(4, "T1", 3, 0);
  box(5, "T2", 4, 0);
  grid->addWidget(Label(6), 5, 0, 1, 2);
  box(7, "T3", 6, 0);
  box(8, "T4", 7, 0);
  grid->setRowMinimumHeight(2, fontMetrics().height() * 2);
  grid->setRowMinimumHeight(5, fontMetrics().height() * 2);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(8, 1);
}

void Brevarum1::ShowSession() {
  ShowInput();
  ShowBoxes();
  ShowResults();
  ShowRightPane();
}

void Brevarum1::ShowInput() {
  const BrevarumPanelRow& row = CurrentRow(panel());
  kinds_->button(panel().Option1)->setChecked(true);
  samples_->button(panel().one_sample ? 1 : 0)->setChecked(true);
  frame_->setTitle(ToQt(panel().frame_caption).trimmed());
  const QString name = Name(row.frame);
  if (own_frames_.contains(name)) {
    frames_->setCurrentWidget(own_frames_[name]);
  } else {
    LayOutShared(row);
    frames_->setCurrentWidget(shared_);
  }
  // The stack is as high as the panel that it shows.
  for (int i = 0; i < frames_->count(); ++i) {
    const bool shown = frames_->widget(i) == frames_->currentWidget();
    frames_->widget(i)->setSizePolicy(QSizePolicy::Preferred, shown ? QSizePolicy::Preferred : QSizePolicy::Ignored);
  }
  frames_->adjustSize();
  compact_->setVisible(row.panel != kScorePanel);  // which has no compact result, but a curve to give the place to
}

void Brevarum1::ShowBoxes() {
  for (auto box = boxes_.begin(); box != boxes_.end(); ++box) {
    const QString text = ToQt(panel().Box(box.key().toStdString()));
    if (box.value()->text() != text) box.value()->setText(text);
  }
  for (auto choice = choices_.begin(); choice != choices_.end(); ++choice) {
    choice.value()->setCurrentText(ToQt(panel().Box(choice.key().toStdString())));
  }
  const bool accuracy = CurrentRow(panel()).panel == kAccuracyPanel;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    // The heads of the fourfold table's columns have labels of their own.
    const QString text = ToQt(panel().labels[i]);
    labels_[i]->setText(accuracy && i == 1 ? text.section("  ", 0, 0) : text.trimmed());
  }
  curve_->SetMarker(panel().marker);
  curve_->SetScore(CurrentRow(panel()).panel == kScorePanel ? ToQt(panel().labels[4]) : QString());
}

void Brevarum1::ShowResults() {
  const bool counts = CurrentRow(panel()).panel == kCountsPanel;
  note_->setText(ToQt(panel().Label28).simplified());
  note_->setVisible(counts && !note_->text().isEmpty());
  results_title_->setText(ToQt(panel().Label43).trimmed());
  ShowText(compact_, ToQtLines(panel().T5));
  ShowText(narrative_, ToQtLines(panel().Text25));
  copy_->setEnabled(CanCopyResult(panel()));
}

void Brevarum1::ShowRightPane() {
  const bool help = panel().HelpTab;
  const bool words = panel().InstructionsTab;
  tabs_->button(help ? kHelp : words ? kInstructions : kModule)->setChecked(true);
  pane_->parentWidget()->setVisible(help || words);
  pane_->setCurrentIndex(help ? 1 : 0);
  if (help) browser_->ShowPage(ToQt(CurrentRow(panel()).help_page));
}

void Brevarum1::ChangePanel(const std::function<void(BrevarumPanel&)>& change) {
  StoreWidgets();
  change(panel());
  ShowSession();
  emit SessionChanged();
  // The boxes are ready for typing at once, unless the arrow keys are on their way through the buttons.
  const bool by_keyboard = qobject_cast<QAbstractButton*>(focusWidget()) != nullptr && focusWidget()->hasFocus();
  if (!by_keyboard) FocusFirst();
}

void Brevarum1::ShowTab(int tab) {
  panel().InstructionsTab = tab == kInstructions;
  panel().HelpTab = tab == kHelp;
  ShowRightPane();
}

void Brevarum1::StoreWidgets() {
  for (const BrevarumBox& box : CurrentRow(panel()).boxes) {
    const QString name = Name(box.name);
    if (QLineEdit* edit = boxes_.value(name)) SetBox(panel(), box.name, FromQt(edit->text()));
    if (QComboBox* choice = choices_.value(name)) SetBox(panel(), box.name, FromQt(choice->currentText()));
  }
}

void Brevarum1::FocusFirst() {
  for (const BrevarumBox& box : CurrentRow(panel()).boxes) {
    if (box.kind == BrevarumBoxKind::kNumber) return FocusBox(box.name);
  }
}

void Brevarum1::FocusBox(std::string_view name) {
  const QString box = Name(name);
  if (QComboBox* choice = choices_.value(box)) choice->setFocus(Qt::TabFocusReason);
  if (QLineEdit* edit = boxes_.value(box)) {
    edit->setFocus(Qt::TabFocusReason);
    edit->selectAll();
  }
}

// The release of a key that has changed the box, or of Enter, is the panel's to judge. Keys that only move, among them
// the Tab that has just come from the box before, change nothing.
bool Brevarum1::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyRelease) return ViewForm::eventFilter(watched, event);
  auto* edit = qobject_cast<QLineEdit*>(watched);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (!edit || key->isAutoRepeat()) return false;
  const bool pasted = key->matches(QKeySequence::Paste);
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
    KeyReleased(edit, kKeyEnter);
  } else if (pasted || (!key->text().isEmpty() && key->text().at(0).isPrint())) {
    KeyReleased(edit, pasted ? 'V' : key->text().at(0).toLatin1());
  }
  return false;
}

void Brevarum1::KeyReleased(QLineEdit* box, int key) {
  const std::string name = box->objectName().toStdString();
  SetBox(panel(), name, FromQt(box->text()));
  const std::string_view next = BoxKeyReleased(panel(), session().platform, name, key);
  box->setText(ToQt(panel().Box(name)));
  if (!next.empty()) FocusBox(next);
}

void Brevarum1::resizeEvent(QResizeEvent* event) {
  ViewForm::resizeEvent(event);
  const bool beside = width() >= fontMetrics().averageCharWidth() * kWidthBeside;
  const auto wanted = beside ? Qt::Horizontal : Qt::Vertical;
  if (columns_->orientation() != wanted) columns_->setOrientation(wanted);
}

QSize Brevarum1::minimumSizeHint() const { return {0, 0}; }
QSize Brevarum1::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kWidthBeside, fontMetrics().height() * 34};
}

}  // namespace tessara
