#include "window/stat_procs/variable_lists.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <algorithm>

#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr const char* kDraggedVariables = "application/x-tessara-variables";
constexpr int kLeastRowsShown = 2;
constexpr int kRowsWanted = 6;

QVariant VariableData(const DataSet& data, std::size_t column, int role) {
  switch (role) {
    case Qt::ToolTipRole:
    case kLabelRole:
      return column == 0 ? QString() : ToQt(data.VariableLabel(column));
    case kColumnRole:
      return QVariant::fromValue<qulonglong>(column);
    default:
      return {};
  }
}

constexpr Qt::ItemFlags kVariableFlags =
    Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;

}  // namespace

AllVariablesModel::AllVariablesModel(const DataSet& data, QObject* parent)
    : QAbstractListModel(parent), data_(data), count_(static_cast<int>(data.VarList.size())), changes_(data) {}

void AllVariablesModel::Refresh() {
  const int count = static_cast<int>(data_.VarList.size());
  if (count == count_ && changes_.IsUpToDate()) return;
  if (!changes_.TakeUp()) {
    beginResetModel();
    count_ = count;
    endResetModel();
    return;
  }
  while (!changes_.empty()) Tell(changes_.Next());
  if (count_ != count) {  // the list has been rebuilt for another reason
    beginResetModel();
    count_ = count;
    endResetModel();
  }
  if (count_ > 0) emit dataChanged(index(0), index(count_ - 1));  // a name or a label may be another one
}

// A list's row is the column's number.
void AllVariablesModel::Tell(const ChangeNote& note) {
  const int first = static_cast<int>(note.extent.first_column);
  const int count = static_cast<int>(note.extent.column_count);
  if (note.kind == ChangeKind::kColumnsAdded && count > 0) {
    beginInsertRows({}, first, first + count - 1);
    changes_.Tell();
    count_ += count;
    endInsertRows();
  } else if (note.kind == ChangeKind::kColumnsRemoved && count > 0) {
    beginRemoveRows({}, first, first + count - 1);
    changes_.Tell();
    count_ -= count;
    endRemoveRows();
  } else {
    changes_.Tell();
  }
}

int AllVariablesModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : count_; }

QVariant AllVariablesModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto row = index.row() == 0 ? 0 : changes_.Column(static_cast<std::size_t>(index.row()));
  if (!row || *row >= data_.VarList.size()) return {};
  const ListedVariable& variable = data_.VarList[*row];
  return role == Qt::DisplayRole ? QVariant(ToQt(variable.name)) : VariableData(data_, variable.column, role);
}

Qt::ItemFlags AllVariablesModel::flags(const QModelIndex& index) const {
  return index.isValid() ? kVariableFlags : Qt::ItemFlags();
}

void VariableFilter::SetTyped(const QString& typed) {
  typed_ = typed.trimmed();
  invalidateFilter();
}

bool VariableFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  if (typed_.isEmpty()) return true;
  if (row == 0) return false;
  const QModelIndex index = sourceModel()->index(row, 0, parent);
  return index.data(Qt::DisplayRole).toString().contains(typed_, Qt::CaseInsensitive) ||
         index.data(kLabelRole).toString().contains(typed_, Qt::CaseInsensitive);
}

ChosenVariablesModel::ChosenVariablesModel(const DataSet& data, const std::vector<std::size_t>& columns,
                                           QObject* parent)
    : QAbstractListModel(parent), data_(data), columns_(columns), shown_(columns), revision_(data.Revision()) {}

void ChosenVariablesModel::Refresh() {
  if (shown_ == columns_ && revision_ == data_.Revision()) return;
  revision_ = data_.Revision();
  if (shown_ == columns_) {  // the same variables; their names or labels may be others
    if (!shown_.empty()) emit dataChanged(index(0), index(static_cast<int>(shown_.size()) - 1));
    return;
  }
  beginResetModel();
  shown_ = columns_;
  endResetModel();
}

int ChosenVariablesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant ChosenVariablesModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const std::size_t column = shown_[static_cast<std::size_t>(index.row())];
  return role == Qt::DisplayRole ? QVariant(ToQt(data_.VariableName(column))) : VariableData(data_, column, role);
}

Qt::ItemFlags ChosenVariablesModel::flags(const QModelIndex& index) const {
  return index.isValid() ? kVariableFlags : Qt::ItemFlags();
}

void VariableDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const QString label = index.data(kLabelRole).toString();
  if (label.isEmpty()) return;

  const int character = option.fontMetrics.averageCharWidth();
  const QString name = index.data(Qt::DisplayRole).toString();
  // Labels line up behind names of the usual length.
  const int from = std::max(option.fontMetrics.horizontalAdvance(name) + character * 2, character * 12);
  const QRect room = option.rect.adjusted(from, 0, -character, 0);
  if (room.width() < character * 6) return;

  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const auto group = option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
  QColor colour = option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
  colour.setAlphaF(!option.state.testFlag(QStyle::State_Enabled) ? 0.35F : selected ? 0.85F : 0.6F);
  painter->save();
  painter->setPen(colour);
  painter->drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                    option.fontMetrics.elidedText(label, Qt::ElideRight, room.width()));
  painter->restore();
}

VariableListView* SourceOfDrag(const QDropEvent* event, const QObject* target) {
  if (!event->mimeData()->hasFormat(kDraggedVariables)) return nullptr;
  auto* source = qobject_cast<VariableListView*>(event->source());
  return source == target ? nullptr : source;
}

VariableListView::VariableListView(QWidget* parent) : QListView(parent) {
  setSelectionMode(ExtendedSelection);
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
  setDragEnabled(true);
  setAcceptDrops(true);
  setItemDelegate(new VariableDelegate(this));
}

void VariableListView::SetHint(const QString& hint) {
  if (hint == hint_) return;
  hint_ = hint;
  viewport()->update();
}

std::vector<std::size_t> VariableListView::SelectedPlaces() const {
  std::vector<std::size_t> places;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) places.push_back(static_cast<std::size_t>(row));
  }
  std::ranges::sort(places);
  return places;
}

std::vector<std::size_t> VariableListView::SelectedColumns() const {
  std::vector<std::size_t> columns;
  for (const std::size_t place : SelectedPlaces()) {
    columns.push_back(model()->index(static_cast<int>(place), 0).data(kColumnRole).toULongLong());
  }
  return columns;
}

void VariableListView::ClearSelection() {
  if (selectionModel()->hasSelection()) selectionModel()->clearSelection();
}

// Typed letters go to the box that finds variables.
void VariableListView::keyboardSearch(const QString& search) { emit Typed(search); }

QSize VariableListView::minimumSizeHint() const {
  const int row = fontMetrics().height() + fontMetrics().leading() + 2;
  return {fontMetrics().averageCharWidth() * 14, row * kLeastRowsShown + 2 * frameWidth() + 2};
}

QSize VariableListView::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 22, (fontMetrics().height() + 2) * kRowsWanted};
}

void VariableListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QListView::selectionChanged(selected, deselected);
  emit SelectionChanged();
}

void VariableListView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit EnterPressed();
      return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      emit DeletePressed();
      return;
    default:
      QListView::keyPressEvent(event);
  }
}

void VariableListView::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (hint_.isEmpty() || (model() && model()->rowCount() > 0)) return;
  QPainter painter(viewport());
  QColor quiet = palette().color(QPalette::Text);
  quiet.setAlphaF(isEnabled() ? 0.6F : 0.4F);
  painter.setPen(quiet);
  const int margin = fontMetrics().averageCharWidth();
  painter.drawText(viewport()->rect().adjusted(margin, 0, -margin, 0), Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

void VariableListView::dragEnterEvent(QDragEnterEvent* event) {
  if (SourceOfDrag(event, this)) event->acceptProposedAction();
}

void VariableListView::dragMoveEvent(QDragMoveEvent* event) {
  if (SourceOfDrag(event, this)) event->acceptProposedAction();
}

void VariableListView::dropEvent(QDropEvent* event) {
  VariableListView* source = SourceOfDrag(event, this);
  if (!source) return;
  event->acceptProposedAction();
  emit DroppedFrom(source);
}

// The drag only says where it comes from: the list that takes it asks this one for what is selected.
void VariableListView::startDrag(Qt::DropActions actions) {
  Q_UNUSED(actions);
  const QModelIndexList chosen = selectedIndexes();
  if (chosen.isEmpty()) return;
  QStringList names;
  constexpr qsizetype kMostNames = 100;
  for (qsizetype i = 0; i < std::min(chosen.size(), kMostNames); ++i) names += chosen[i].data().toString();
  auto* dragged = new QMimeData;
  dragged->setData(kDraggedVariables, {});
  dragged->setText(names.join(' '));
  auto* drag = new QDrag(this);
  drag->setMimeData(dragged);
  drag->exec(Qt::CopyAction);
}

}  // namespace tessara
