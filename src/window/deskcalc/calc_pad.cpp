#include "window/deskcalc/calc_pad.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "shell/calculator_operations.h"
#include "window/deskcalc/calc_key_button.h"
#include "window/deskcalc/tape_model.h"
#include "window/deskcalc/text_transfer.h"
#include "window/system/page_painter.h"
#include "window/system/qt_platform.h"
#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr qreal kDisplaySize = 1.7;  // of type, against that of the pad
constexpr qreal kKeySize = 1.15;
constexpr int kTapeCharacters = 27;
constexpr int kFirstMemoryImage = static_cast<int>(CalcKey::kClear) + 1;
constexpr int kImagesOfMemory = 3;
constexpr std::size_t kLongestShown = 32767;  // of a box of one line

struct KeyPlace {
  CalcKey key;
  CalcKeyFace face;
  const char* name;  // for those who cannot see the face
  int row, column;
  int rows = 1, columns = 1;
};

constexpr auto kFunction = CalcKeyKind::kFunction;
constexpr auto kOperator = CalcKeyKind::kOperator;

// In the order of the Tab key: digits, operators, then the rest.
constexpr KeyPlace kPlaces[] = {
    {CalcKey::k7, {"7"}, "7", 0, 2},
    {CalcKey::k8, {"8"}, "8", 0, 3},
    {CalcKey::k9, {"9"}, "9", 0, 4},
    {CalcKey::k4, {"4"}, "4", 1, 2},
    {CalcKey::k5, {"5"}, "5", 1, 3},
    {CalcKey::k6, {"6"}, "6", 1, 4},
    {CalcKey::k1, {"1"}, "1", 2, 2},
    {CalcKey::k2, {"2"}, "2", 2, 3},
    {CalcKey::k3, {"3"}, "3", 2, 4},
    {CalcKey::k0, {"0"}, "0", 3, 2, 1, 2},
    {CalcKey::kPoint, {"."}, "Decimal point", 3, 4},
    {CalcKey::kDivide, {"\u00F7", "", kOperator}, "Divide", 0, 5},
    {CalcKey::kMultiply, {"\u00D7", "", kOperator}, "Multiply", 1, 5},
    {CalcKey::kSubtract, {"\u2212", "", kOperator}, "Subtract", 2, 5},
    {CalcKey::kAdd, {"+", "", kOperator}, "Add", 3, 5},
    {CalcKey::kBackspace, {"\u232B", "", kFunction}, "Backspace", 0, 6},
    {CalcKey::kClear, {"C", "", kFunction}, "Clear", 1, 6},
    {CalcKey::kEqual, {"=", "", CalcKeyKind::kEqual}, "Equal", 2, 6, 2, 1},
    {CalcKey::kSquareRoot, {"\u221Ax", "", kFunction}, "Square root", 0, 0},
    {CalcKey::kSquare, {"x", "2", kFunction}, "Square", 0, 1},
    {CalcKey::kReciprocal, {"1/x", "", kFunction}, "Reciprocal", 1, 0},
    {CalcKey::kFactorial, {"n!", "", kFunction}, "Factorial", 1, 1},
    {CalcKey::kNaturalLog, {"ln", "", kFunction}, "Natural logarithm", 2, 0},
    {CalcKey::kLog, {"log", "", kFunction}, "Logarithm to base 10", 2, 1},
    {CalcKey::kAntilog, {"e", "x", kFunction}, "Antilogarithm", 3, 0},
    {CalcKey::kInteger, {"Int", "", kFunction}, "Integer part", 3, 1},
};

QFont Scaled(QFont font, qreal factor) {
  if (font.pointSizeF() > 0) font.setPointSizeF(font.pointSizeF() * factor);
  return font;
}

}  // namespace

CalcPad::CalcPad(QtPlatform& platform, Session& session, QWidget* frame)
    : QWidget(frame, Qt::Tool | Qt::WindowStaysOnTopHint),
      platform_(platform),
      session_(session),
      calculator_(session.calculator),
      frame_(frame),
      pad_(new QWidget(this)) {
  setObjectName("CalcPad");
  setWindowTitle("  Calculator");
  BuildHead();
  BuildDisplay();
  BuildTape();
  LayOut();
  for (QWidget* part : findChildren<QWidget*>()) part->installEventFilter(this);
  FollowFont(this, [this] { Measure(); });
  ShowCalculator();
  ShowTape();
}

void CalcPad::BuildHead() {
  viewbar_ = new QToolButton(pad_);
  viewbar_->setObjectName("Viewbar1");
  viewbar_->setAutoRaise(true);
  viewbar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  viewbar_->setIcon(ThemeIcon("view-list-text"));
  viewbar_->setFocusPolicy(Qt::TabFocus);
  connect(viewbar_, &QToolButton::clicked, this, &CalcPad::ToggleTape);
  menu_button_ = new QToolButton(pad_);
  menu_button_->setObjectName("TapeMenuButton");
  menu_button_->setAutoRaise(true);
  menu_button_->setIcon(ThemeIcon("application-menu"));
  menu_button_->setToolTip(tr("Copy, print or reset the calculations"));
  menu_button_->setAccessibleName(menu_button_->toolTip());
  menu_button_->setFocusPolicy(Qt::TabFocus);
  connect(menu_button_, &QToolButton::clicked, this,
          [this] { ShowTapeMenu(menu_button_->mapToGlobal(menu_button_->rect().bottomLeft())); });
}

void CalcPad::BuildDisplay() {
  display_ = new QLineEdit(pad_);
  display_->setObjectName("CalcText1");
  display_->setReadOnly(true);
  display_->setAlignment(Qt::AlignRight);
  display_->setAccessibleName(tr("Display"));
  display_->setContextMenuPolicy(Qt::CustomContextMenu);
  FocusOutline::AskFor(display_);
  connect(display_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& place) { ShowDisplayMenu(display_->mapToGlobal(place)); });
}

CalcKeyButton* CalcPad::AddKey(int image, const CalcKeyFace& face, const QString& name, const QString& tip,
                               QWidget* parent) {
  auto* key = new CalcKeyButton(face, parent);
  key->setObjectName(QString("Image1(%1)").arg(image));
  key->setAccessibleName(name);
  key->setToolTip(tip);
  return key;
}

QWidget* CalcPad::BuildMemory(const Memory& memory) {
  auto* row = new QWidget(pad_);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* caption = new QLabel(memory.caption, row);
  layout->addWidget(caption);
  auto* label = new QLabel(row);
  label->setObjectName(memory.label);
  label->setTextFormat(Qt::PlainText);
  label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  label->setToolTip("Memory contents");
  label->setAccessibleName(tr("Contents of %1").arg(memory.name));
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  memories_[memory.cell] = label;
  const CalcMemory cell = memory.cell;
  const auto add = [&](int place, const char* face, const QString& name, const QString& tip, auto operation) {
    CalcKeyButton* key = AddKey(memory.first_image + place, {face, "", CalcKeyKind::kMemory}, name, tip, row);
    key->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(key, &QAbstractButton::clicked, this, [this, operation] { Do(operation); });
    layout->addWidget(key);
  };
  const QString name = tr(memory.name);
  add(0, "MS", tr("Store in %1").arg(name), tr("Store the display"),
      [this, cell] { StoreCalculatorMemory(session_, cell); });
  add(1, "MR", tr("Recall %1").arg(name), "Memory contents", [this, cell] { RecallMemory(calculator_, cell); });
  add(2, "MC", tr("Clear %1").arg(name), tr("Clear the memory"), [this, cell] { ClearMemory(calculator_, cell); });
  layout->insertWidget(1, label, 1);
  return row;
}

QWidget* CalcPad::BuildKeys() {
  auto* keys = new QWidget(pad_);
  auto* layout = new QGridLayout(keys);
  layout->setContentsMargins(0, 0, 0, 0);
  for (const KeyPlace& place : kPlaces) {
    CalcKeyButton* key =
        AddKey(static_cast<int>(place.key), place.face, tr(place.name), ToQt(RowOf(place.key).tool_tip), keys);
    layout->addWidget(key, place.row, place.column, place.rows, place.columns);
    keys_[place.key] = key;
    connect(key, &QAbstractButton::clicked, this, [this, pressed = place.key] { Press(pressed); });
  }
  for (int column = 0; column < layout->columnCount(); ++column) layout->setColumnStretch(column, 1);
  return keys;
}

void CalcPad::BuildTape() {
  tape_model_ = new TapeModel(calculator_.List1, this);
  tape_ = new QListView(this);
  tape_->setObjectName("List1");
  tape_->setAccessibleName(tr("Calculations"));
  tape_->setUniformItemSizes(true);
  tape_->setTextElideMode(Qt::ElideNone);
  tape_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  tape_->setModel(tape_model_);
  tape_->setContextMenuPolicy(Qt::CustomContextMenu);
  FocusOutline::AskFor(tape_);
  connect(tape_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& place) { ShowTapeMenu(tape_->viewport()->mapToGlobal(place)); });
  connect(tape_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& now) { calculator_.selected = now.row(); });
}

void CalcPad::LayOut() {
  auto* head = new QHBoxLayout;
  head->addWidget(viewbar_);
  head->addStretch(1);
  head->addWidget(menu_button_);
  auto* left = new QVBoxLayout(pad_);
  left->setContentsMargins(0, 0, 0, 0);
  left->addLayout(head);
  left->addWidget(display_);
  left->addWidget(BuildMemory({CalcMemory::kFirst, "Label1", "M1", "memory 1", kFirstMemoryImage}));
  left->addWidget(BuildMemory({CalcMemory::kSecond, "Label2", "M2", "memory 2", kFirstMemoryImage + kImagesOfMemory}));
  left->addSpacing(left->spacing());
  left->addWidget(BuildKeys(), 1);
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(pad_, 1);
  layout->addWidget(tape_, 1);
  QWidget* last = menu_button_;
  for (QWidget* next : {static_cast<QWidget*>(display_), pad_->findChild<QWidget*>("Image1(7)")}) {
    setTabOrder(last, next);
    last = next;
  }
}

// What is measured by the type.
void CalcPad::Measure() {
  QFont large = Scaled(font(), kDisplaySize);
  if (display_->font() != large) display_->setFont(large);
  const QFont key_type = Scaled(font(), kKeySize);
  for (const auto& [key, button] : keys_) button->setFont(key_type);
  QFont fixed = FixedPitchFont();
  if (font().pointSizeF() > 0) fixed.setPointSizeF(font().pointSizeF());
  tape_->setFont(fixed);
  const QFontMetrics metrics(fixed);
  const int bar = tape_->verticalScrollBar()->sizeHint().width();
  tape_->setMinimumWidth(metrics.horizontalAdvance('0') * kTapeCharacters + bar + 2 * tape_->frameWidth());
  const int icon = fontMetrics().height();
  for (QToolButton* button : {viewbar_, menu_button_}) button->setIconSize({icon, icon});
  if (isVisible()) adjustSize();
}

void CalcPad::Open() {
  const bool placed = testAttribute(Qt::WA_WState_ExplicitShowHide);
  if (!placed) {
    adjustSize();
    QRect place(QPoint(), size());
    place.moveTopRight(frame_->geometry().topRight() - QPoint(fontMetrics().height(), -4 * fontMetrics().height()));
    const QRect screen = frame_->screen()->availableGeometry();
    place.moveLeft(std::clamp(place.left(), screen.left(), std::max(screen.left(), screen.right() - width())));
    place.moveTop(std::clamp(place.top(), screen.top(), std::max(screen.top(), screen.bottom() - height())));
    move(place.topLeft());
  }
  ShowCalculator();
  show();
  raise();
  activateWindow();
  display_->setFocus();
}

// The pad stays with its tape; the keyboard goes back to where the user was in the frame.
void CalcPad::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  frame_->activateWindow();
}

// Operations.

void CalcPad::Do(const std::function<void()>& operation) {
  platform_.WithinMemory(operation);
  ShowCalculator();
}

void CalcPad::Press(CalcKey key) {
  Do([this, key] { PressKey(calculator_, key); });
}

void CalcPad::ShowCalculator() {
  display_->setText(ToQt(std::string_view(calculator_.CalcText1).substr(0, kLongestShown)));
  memories_[CalcMemory::kFirst]->setText(ToQt(calculator_.memory_label1));
  memories_[CalcMemory::kSecond]->setText(ToQt(calculator_.memory_label2));
  const int selected = calculator_.selected;  // the list moves it when it is reset
  const bool grown = tape_model_->Refresh();
  calculator_.selected = selected;
  if (tape_->currentIndex().row() != selected) {
    const QModelIndex chosen = tape_model_->index(selected, 0);
    tape_->setCurrentIndex(chosen);
    if (!chosen.isValid()) tape_->clearSelection();
  }
  if (grown) tape_->scrollToBottom();
}

// A box that asks stands in front of everything: the pad gives way to it and comes back.
bool CalcPad::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked && isVisible()) {
    gave_way_ = true;
    hide();
  } else if (event->type() == QEvent::WindowUnblocked && std::exchange(gave_way_, false)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    show();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
  }
  return QWidget::event(event);
}

void CalcPad::ToggleTape() {
  calculator_.tape_is_shown = !calculator_.tape_is_shown;
  const int pad_width = pad_->width();
  ShowTape();
  layout()->activate();
  const int room = calculator_.tape_is_shown ? tape_->minimumWidth() + layout()->spacing() : 0;
  const QMargins margins = layout()->contentsMargins();
  resize(margins.left() + pad_width + room + margins.right(), height());
}

void CalcPad::ShowTape() {
  tape_->setVisible(calculator_.tape_is_shown);
  viewbar_->setText(calculator_.tape_is_shown ? "Hide calculations" : "View calculations");
  viewbar_->setAccessibleName(viewbar_->text());
}

void CalcPad::Copy() {
  if (tape_->hasFocus() && calculator_.selected >= 0) return Do([this] { CopyChosenTapeLine(session_); });
  Do([this] { CopyDisplay(session_); });
}

void CalcPad::Paste() {
  bool pasted = false;
  Do([&] { pasted = PasteNumber(session_); });
  if (!pasted) platform_.SetStatusPane(kMessagePane, "The clipboard holds no number");
}

// To where the user was in the frame, or in a form over it.
void CalcPad::Transfer(const std::string& number) {
  QWidget* form = QApplication::activeModalWidget();
  if (number.empty()) return platform_.SetStatusPane(kMessagePane, "There is no number to transfer");
  if (TransferText(form ? form : frame_, ToQt(number))) return;
  platform_.SetStatusPane(kMessagePane, "Click the box or cell that is to take the number, then transfer it");
}

}  // namespace tessara
