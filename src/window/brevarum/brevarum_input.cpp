#include "window/brevarum/brevarum_input.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "window/brevarum/normal_curve.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kCharactersOfABox = 8;  // at the least; a box grows to twice that
constexpr std::size_t kCountsSide = 5;
constexpr Qt::KeyboardModifiers kCommand = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
constexpr int kKeyThatEdits = 'E';  // without typing: Delete, Cut, Undo, Redo

QString Name(std::string_view name) { return QString::fromLatin1(name.data(), static_cast<int>(name.size())); }

// As high as the page that it shows, not as the highest of all.
class PageStack : public QStackedWidget {
 public:
  using QStackedWidget::QStackedWidget;

  QSize sizeHint() const override { return currentWidget()->sizeHint(); }
  QSize minimumSizeHint() const override { return currentWidget()->minimumSizeHint(); }
};

}  // namespace

BrevarumInput::BrevarumInput(Platform& platform, BrevarumPanel& panel, QWidget* parent)
    : QGroupBox(parent), platform_(platform), panel_(panel), frames_(new PageStack(this)) {
  setObjectName("InputFrame");
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);  // its boxes are not squeezed: the page scrolls
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    if (row.frame != "F1") frames_->addWidget(own_frames_[Name(row.frame)] = BuildOwnFrame(row));
  }
  BuildSharedFrame();
  frames_->addWidget(shared_);
  FollowFont(shared_, [this] {
    laid_out_ = -1;
    if (CurrentRow(panel_).frame == "F1") LayOutShared(CurrentRow(panel_));
  });
  auto* inside = new QVBoxLayout(this);
  inside->addWidget(frames_);
  note_ = new QLabel(this);
  note_->setObjectName("Label28");
  note_->setWordWrap(true);
  // Its line stays free while there is nothing to note, so that a calculation does not move the boxes.
  QSizePolicy stays = note_->sizePolicy();
  stays.setRetainSizeWhenHidden(true);
  note_->setSizePolicy(stays);
  FollowFont(note_, [this] { note_->setMinimumHeight(note_->fontMetrics().height()); });
  inside->addWidget(note_);
}

QWidget* BrevarumInput::MakeBox(const BrevarumBox& box, QWidget* parent) {
  const QString name = Name(box.name);
  QWidget* made = nullptr;
  if (box.kind == BrevarumBoxKind::kChoice) {
    auto* choice = new QComboBox(parent);
    for (const std::string_view text : box.choices) choice->addItem(ToQt(text));
    choice->installEventFilter(this);
    choices_[name] = choice;
    made = choice;
  } else {
    auto* edit = new QLineEdit(parent);
    FollowFont(edit, [edit] {
      const int width = edit->fontMetrics().averageCharWidth() * kCharactersOfABox;
      edit->setMinimumWidth(width);
      edit->setMaximumWidth(width * 2);
    });
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
QWidget* BrevarumInput::BuildOwnFrame(const BrevarumPanelRow& row) {
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
    for (int column = 0; column <= static_cast<int>(kCountsSide); ++column) grid->setColumnStretch(column, 2);
    grid->setColumnStretch(static_cast<int>(kCountsSide) + 1, 1);
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
void BrevarumInput::BuildSharedFrame() {
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

void BrevarumInput::LayOutShared(const BrevarumPanelRow& row) {
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

void BrevarumInput::LayOutRows(const BrevarumPanelRow& row) {
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
void BrevarumInput::LayOutAccuracy() {
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

void BrevarumInput::LayOutPower() {
  auto* grid = static_cast<QGridLayout*>(shared_->layout());
  const auto choice = [&](std::size_t label, const char* name, int line) {
    choices_[name]->setAccessibleName(ToQt(CurrentRow(panel_).labels[label - 1]));
    grid->addWidget(Label(label), line, 0);
    grid->addWidget(choices_[name], line, 1);
  };
  const auto box = [&](std::size_t label, const char* name, int line, int column) {
    boxes_[name]->setAccessibleName(ToQt(CurrentRow(panel_).labels[label - 1]));
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

void BrevarumInput::ShowPanel() {
  ShowFrame();
  ShowBoxes();
  note_->setText(ToQt(panel_.Label28).simplified());
  note_->setVisible(CurrentRow(panel_).panel == kCountsPanel && !note_->text().isEmpty());
}

void BrevarumInput::ShowFrame() {
  const BrevarumPanelRow& row = CurrentRow(panel_);
  setTitle(ToQt(panel_.frame_caption).trimmed());
  const QString name = Name(row.frame);
  if (own_frames_.contains(name)) {
    frames_->setCurrentWidget(own_frames_[name]);
  } else {
    LayOutShared(row);
    frames_->setCurrentWidget(shared_);
  }
  frames_->updateGeometry();
}

void BrevarumInput::ShowBoxes() {
  for (auto box = boxes_.begin(); box != boxes_.end(); ++box) {
    const QString text = ToQt(panel_.Box(box.key().toStdString()));
    if (box.value()->text() != text) box.value()->setText(text);
  }
  for (auto choice = choices_.begin(); choice != choices_.end(); ++choice) {
    choice.value()->setCurrentText(ToQt(panel_.Box(choice.key().toStdString())));
  }
  const bool accuracy = CurrentRow(panel_).panel == kAccuracyPanel;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    // The heads of the fourfold table's columns have labels of their own.
    const QString text = ToQt(panel_.labels[i]);
    labels_[i]->setText(accuracy && i == 1 ? text.section("  ", 0, 0) : text.trimmed());
  }
  const bool scored = CurrentRow(panel_).panel == kScorePanel && CanCopyResult(panel_);
  curve_->ShowScore(scored ? std::optional(panel_.marker) : std::nullopt, ToQt(panel_.labels[4]));
}

void BrevarumInput::StoreWidgets() {
  for (const BrevarumBox& box : CurrentRow(panel_).boxes) {
    const QString name = Name(box.name);
    if (QLineEdit* edit = boxes_.value(name)) SetBox(panel_, box.name, FromQt(edit->text()));
    if (QComboBox* choice = choices_.value(name)) SetBox(panel_, box.name, FromQt(choice->currentText()));
  }
}

void BrevarumInput::FocusFirst() {
  for (const BrevarumBox& box : CurrentRow(panel_).boxes) {
    if (box.kind == BrevarumBoxKind::kNumber) return FocusBox(box.name);
  }
}

void BrevarumInput::FocusBox(std::string_view name) {
  const QString box = Name(name);
  if (QComboBox* choice = choices_.value(box)) choice->setFocus(Qt::TabFocusReason);
  if (QLineEdit* edit = boxes_.value(box)) {
    edit->setFocus(Qt::TabFocusReason);
    edit->selectAll();
  }
}

bool BrevarumInput::HoldsFocus() const {
  const QWidget* focused = focusWidget();
  return focused && focused->hasFocus() &&
         (boxes_.contains(focused->objectName()) || choices_.contains(focused->objectName()));
}

// The release of a key that has changed a box is the panel's to judge, in the box in which the key was pressed: that of
// a fast typist's last key may come when the next box has the focus. Enter counts where it was pressed and released:
// the one that closes a message is none of a box. Keys that only move or that give a command change nothing.
bool BrevarumInput::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::KeyPress;
  if (!press && event->type() != QEvent::KeyRelease) return QGroupBox::eventFilter(watched, event);
  auto* box = qobject_cast<QWidget*>(watched);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (!box) return false;
  if (press) emit Typed(box);
  if (press && !key->modifiers().testAnyFlags(kCommand | Qt::ShiftModifier) && qobject_cast<QLineEdit*>(box)) {
    if (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down) {
      return GoUpOrDown(box, key->key() == Qt::Key_Up ? -1 : 1);
    }
  }
  if (key->isAutoRepeat()) return false;
  // By its place on the keyboard: what a key is called changes with Shift, which may be let go first.
  const quint32 id = key->nativeScanCode() != 0 ? key->nativeScanCode() : static_cast<quint32>(key->key());
  if (press) {
    pressed_[id] = {box, CodeOf(*key)};
  } else if (const Press pressed = pressed_.take(id); pressed.code == kKeyEnter) {
    if (pressed.box == box) KeyReleased(box, kKeyEnter);
  } else if (pressed.code != 0) {
    KeyReleased(pressed.box, pressed.code);
  }
  return false;
}

// What the panel is told of a key: 0 for one that changes no text.
int BrevarumInput::CodeOf(const QKeyEvent& key) {
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return kKeyEnter;
  if (key.matches(QKeySequence::Paste)) return 'V';
  for (const auto edit : {QKeySequence::Delete, QKeySequence::Cut, QKeySequence::Undo, QKeySequence::Redo}) {
    if (key.matches(edit)) return kKeyThatEdits;
  }
  // AltGr, which types on many keyboards, comes as both.
  const Qt::KeyboardModifiers held = key.modifiers() & kCommand;
  if (held != Qt::NoModifier && held != (Qt::ControlModifier | Qt::AltModifier)) return 0;
  if (key.key() == Qt::Key_Backspace) return kKeyBackspace;
  const QString text = key.text();
  if (text.isEmpty() || !text.at(0).isPrint()) return 0;
  const char code = text.at(0).toLatin1();
  return code != 0 ? code : '?';
}

void BrevarumInput::KeyReleased(QWidget* box, int key) {
  const std::string name = box->objectName().toStdString();
  auto* edit = qobject_cast<QLineEdit*>(box);
  if (edit && key == kKeyThatEdits && edit->text().isEmpty()) return;  // like Backspace
  if (edit) SetBox(panel_, name, FromQt(edit->text()));
  const std::string_view next = BoxKeyReleased(panel_, platform_, name, key);
  if (edit && edit->text() != ToQt(panel_.Box(name))) edit->setText(ToQt(panel_.Box(name)));
  if (next == kCalculateNext) {
    emit EndReached();
  } else if (!next.empty()) {
    FocusBox(next);
  }
}

bool BrevarumInput::GoUpOrDown(QWidget* box, int lines) {
  const auto* grid = qobject_cast<QGridLayout*>(box->parentWidget()->layout());
  if (!grid) return false;
  int row = 0;
  int column = 0;
  int rows = 0;
  int columns = 0;
  grid->getItemPosition(grid->indexOf(box), &row, &column, &rows, &columns);
  for (row += lines; row >= 0 && row < grid->rowCount(); row += lines) {
    const QLayoutItem* item = grid->itemAtPosition(row, column);
    const auto* edit = item ? qobject_cast<QLineEdit*>(item->widget()) : nullptr;
    if (!edit) continue;
    FocusBox(edit->objectName().toStdString());
    return true;
  }
  return false;
}

}  // namespace tessara
