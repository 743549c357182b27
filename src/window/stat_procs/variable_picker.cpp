#include "window/stat_procs/variable_picker.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace tessara {

VariablePicker::VariablePicker(const DataSet& data_set, QWidget* parent)
    : QWidget(parent),
      data_(data_set),
      variables_(new AllVariablesModel(data_set, this)),
      filter_(new VariableFilter(this)),
      find_(new QLineEdit(this)),
      list_(new VariableListView(this)) {
  filter_->setSourceModel(variables_);
  list_->setObjectName("List1");
  list_->setModel(filter_);
  list_->setToolTip("Select variable - click none to reset");
  list_->setAccessibleName("Variable List");

  find_->setObjectName("FindVariable");
  find_->setPlaceholderText("Find");
  find_->setAccessibleName("Find variable");
  find_->setToolTip("Type a part of a name or label; Enter adds the variable");
  find_->setClearButtonEnabled(true);
  const QIcon glass = QIcon::fromTheme("search");
  if (!glass.isNull()) find_->addAction(glass, QLineEdit::LeadingPosition);
  find_->installEventFilter(this);

  auto* heading = new QLabel("Variable List", this);
  heading->setObjectName("Label1");
  heading->setBuddy(list_);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(heading);
  layout->addWidget(find_);
  layout->addWidget(list_, 1);

  connect(find_, &QLineEdit::textChanged, this, &VariablePicker::Find);
  connect(find_, &QLineEdit::returnPressed, this, &VariablePicker::TakeFound);
  connect(list_, &QListView::doubleClicked, this, &VariablePicker::Activated);
  connect(list_, &VariableListView::EnterPressed, this, &VariablePicker::Activated);
  connect(list_, &VariableListView::Typed, this, [this](const QString& text) {
    find_->setFocus();
    find_->setText(text);
  });
  connect(list_, &VariableListView::SelectionChanged, this, [this] {
    const QModelIndex current = list_->currentIndex();
    if (list_->selectionModel()->isSelected(current)) emit Picked(current.data(kColumnRole).toULongLong());
  });
  ShowData();
}

void VariablePicker::ShowData() {
  variables_->Refresh();
  list_->SetHint(data_.VariableCount == 0 ? QString("No variables yet: open a data file")
                                          : QString("No name or label holds this text"));
}

void VariablePicker::Find(const QString& typed) {
  filter_->SetTyped(typed);
  list_->ClearSelection();
  // The first one found stands ready, so that Enter adds it.
  const QModelIndex first = filter_->index(0, 0);
  if (!typed.trimmed().isEmpty() && first.isValid()) list_->setCurrentIndex(first);
  if (first.isValid()) list_->scrollTo(first);
}

void VariablePicker::TakeFound() {
  if (find_->text().trimmed().isEmpty() || !list_->selectionModel()->hasSelection()) return;
  emit Activated();
  find_->clear();
}

bool VariablePicker::eventFilter(QObject* watched, QEvent* event) {
  if (watched != find_ || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  switch (key->key()) {
    case Qt::Key_Down:
      list_->setFocus();
      if (!list_->selectionModel()->hasSelection()) list_->setCurrentIndex(filter_->index(0, 0));
      return true;
    case Qt::Key_Escape:
      if (find_->text().isEmpty()) return false;
      find_->clear();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (find_->text().trimmed().isEmpty()) return false;
      TakeFound();  // and does not reach the Run button
      return true;
    default:
      return false;
  }
}

}  // namespace tessara
