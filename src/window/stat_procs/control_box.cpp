#include "window/stat_procs/control_box.h"

#include <QApplication>
#include <QButtonGroup>
#include <QDropEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QTimer>
#include <algorithm>

#include "window/stat_procs/variable_lists.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

struct Relation {
  ControlRelation relation;
  const char* option;
  const char* caption;
  const char* tooltip;
  const char* value;  // nullptr for none
  bool number = false;
};

constexpr std::array<Relation, 6> kRelationTable = {{
    {ControlRelation::kGreaterThan, "Option8", "greater than", "Select cases greater than the value indicated", "Text1",
     true},
    {ControlRelation::kLessThan, "Option9", "less than", "Select cases less than the value indicated", "Text2", true},
    {ControlRelation::kEqualTo, "Option10", "equal to", "Select cases equal to value or string", "Text3"},
    {ControlRelation::kNotEqualTo, "Option11", "not equal to", "Select cases not equal to the value indicated",
     "Text4"},
    {ControlRelation::kAllMissing, "Option13", "All Missing", "analyze missing cases", nullptr},
    {ControlRelation::kNoMissing, "Option14", "No Missing", "exclude missing cases", nullptr},
}};

constexpr int kCharactersOfAValue = 6;

}  // namespace

ControlField::ControlField(QWidget* parent) : QLineEdit(parent) {
  setObjectName("Text18");
  setReadOnly(true);
  setAcceptDrops(true);
  setPlaceholderText("all cases");
  setAccessibleName("Control");
}

void ControlField::dragEnterEvent(QDragEnterEvent* event) {
  if (SourceOfDrag(event, this)) event->acceptProposedAction();
}

void ControlField::dragMoveEvent(QDragMoveEvent* event) {
  if (SourceOfDrag(event, this)) event->acceptProposedAction();
}

void ControlField::dropEvent(QDropEvent* event) {
  VariableListView* source = SourceOfDrag(event, this);
  if (!source) return;
  event->acceptProposedAction();
  emit DroppedFrom(source);
}

void ControlField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
    emit DeletePressed();
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

ControlBox::ControlBox(Platform& platform, QWidget* parent)
    : QWidget(parent), platform_(platform), group_(new QButtonGroup(this)) {
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setVerticalSpacing(layout->verticalSpacing() / 2);
  for (std::size_t place = 0; place < kRelations; ++place) AddRelation(place, layout);
  layout->setColumnStretch(1, 1);
  layout->setColumnStretch(3, 1);
  EnableFields();
}

// Two columns, read from top to bottom: the numbers' relations left, the texts' right, the missing values below.
void ControlBox::AddRelation(std::size_t place, QGridLayout* layout) {
  const Relation& relation = kRelationTable[place];
  const bool missing = relation.value == nullptr;
  const int row = missing ? 2 : static_cast<int>(place % 2);
  const int column = missing ? static_cast<int>(place % 2) * 2 : static_cast<int>(place / 2) * 2;

  auto* option = new QRadioButton(relation.caption, this);
  option->setObjectName(relation.option);
  option->setToolTip(relation.tooltip);
  group_->addButton(option);
  options_[place] = option;
  layout->addWidget(option, row, column, 1, missing ? 2 : 1);
  // A selected option that is pressed once more is let go: none of them is a valid choice.
  connect(option, &QRadioButton::pressed, this, [this, option] { selected_at_press_ = option->isChecked(); });
  connect(option, &QRadioButton::clicked, this, [this, place] { Clicked(place); });
  if (missing) return;

  auto* value = new QLineEdit(this);
  value->setObjectName(relation.value);
  value->setToolTip(relation.tooltip);
  value->setAccessibleName(QString(relation.caption) + " value");
  FollowFont(value, [value] { value->setMinimumWidth(value->fontMetrics().averageCharWidth() * kCharactersOfAValue); });
  values_[place] = value;
  layout->addWidget(value, row, column + 1);
  if (relation.number) value->installEventFilter(this);
  connect(value, &QLineEdit::textEdited, this, &ControlBox::Changed);
}

std::size_t ControlBox::Selected() const {
  for (std::size_t place = 0; place < kRelations; ++place) {
    if (options_[place]->isChecked()) return place;
  }
  return kRelations;
}

void ControlBox::Clicked(std::size_t place) {
  if (selected_at_press_) {
    group_->setExclusive(false);
    options_[place]->setChecked(false);
    group_->setExclusive(true);
  }
  EnableFields();
  if (values_[place] && options_[place]->isChecked()) {
    values_[place]->setFocus();
    values_[place]->selectAll();
  }
  emit Changed();
}

void ControlBox::EnableFields() {
  for (std::size_t place = 0; place < kRelations; ++place) {
    if (values_[place]) values_[place]->setEnabled(options_[place]->isChecked());
  }
}

// A number's field that is left is looked at, but not where a run follows at once, which refuses by itself: Enter stays
// in the field, and a press of the mouse may be one on Run.
bool ControlBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    const bool leaves = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                        reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason;
    const auto place = static_cast<std::size_t>(std::ranges::find(values_, watched) - values_.begin());
    if (leaves && place < kRelations) CheckLater(place);
  }
  return QWidget::eventFilter(watched, event);
}

void ControlBox::CheckLater(std::size_t place) {
  constexpr int kButtonDown = 50;  // milliseconds
  const bool down = QApplication::mouseButtons() != Qt::NoButton;
  QTimer::singleShot(down ? kButtonDown : 0, this, [this, place] {
    if (QApplication::mouseButtons() != Qt::NoButton) return CheckLater(place);
    CheckNumber(place);
  });
}

void ControlBox::CheckNumber(std::size_t place) {
  QLineEdit* value = values_[place];
  const bool left = value->isVisible() && value->isEnabled() && !value->hasFocus();
  if (left && !AcceptControlNumber(platform_, FromQt(value->text()))) FocusValue();
}

void ControlBox::FocusValue() {
  const std::size_t place = Selected();
  if (place == kRelations || !values_[place]) return;
  values_[place]->setFocus();
  values_[place]->selectAll();
}

void ControlBox::Show(const ControlChoice& choice) {
  if (choice.relation == known_.relation && choice.value == known_.value) return;
  Fill(choice);
}

void ControlBox::Clear() { Fill({}); }

void ControlBox::Fill(const ControlChoice& choice) {
  known_ = choice;
  group_->setExclusive(false);
  for (std::size_t place = 0; place < kRelations; ++place) {
    const bool selected = kRelationTable[place].relation == choice.relation;
    options_[place]->setChecked(selected);
    if (values_[place]) values_[place]->setText(selected ? ToQt(choice.value) : QString());
  }
  group_->setExclusive(true);
  EnableFields();
}

ControlChoice ControlBox::Choice() {
  const std::size_t place = Selected();
  known_ = {};
  if (place == kRelations) return known_;
  known_.relation = kRelationTable[place].relation;
  if (values_[place]) known_.value = FromQt(values_[place]->text());
  return known_;
}

QString ControlBox::Words() const {
  const std::size_t place = Selected();
  if (place == kRelations) return {};
  const QString caption = kRelationTable[place].caption;
  return values_[place] ? caption + " " + values_[place]->text() : caption;
}

}  // namespace tessara
