#include "window/grid/grid_model.h"

#include <QFont>
#include <algorithm>

#include "data/value_labels.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr std::size_t kMostShownOfAText = 2000;  // no column is wide enough for more

// The matrix row of a grid row, which counts from 0.
std::size_t MatrixRow(int row) { return static_cast<std::size_t>(row) + kFirstRecordRow; }

// What a stretch of places numbered from `origin` has in common with the `shown` first ones; both from 0 in the grid.
struct Shown {
  Shown(std::size_t first_place, std::size_t count, std::size_t origin, int shown) {
    const std::size_t from = first_place < origin ? 0 : first_place - origin;
    const std::size_t to = first_place + count < origin ? 0 : first_place + count - origin;
    first = static_cast<int>(std::min(from, static_cast<std::size_t>(shown)));
    end = static_cast<int>(std::min(to, static_cast<std::size_t>(shown)));
  }
  bool empty() const { return first >= end; }

  int first = 0;
  int end = 0;
};

QString ShownText(const TaggedView& cell) {
  return cell.is_text() ? ToQt(cell.text().substr(0, kMostShownOfAText)) : ToQt(TextOf(cell));
}

}  // namespace

GridModel::GridModel(const DataSet& data, QObject* parent, const GridMarks* marks)
    : QAbstractTableModel(parent),
      data_(data),
      marks_(marks),
      records_(static_cast<int>(data.GridRecords())),
      variables_(static_cast<int>(data.GridVariables())),
      changes_(data) {}

GridModel::Outcome GridModel::Refresh() {
  const int records = static_cast<int>(data_.GridRecords());
  const int variables = static_cast<int>(data_.GridVariables());
  if (records == records_ && variables == variables_ && changes_.IsUpToDate()) return Outcome::kNothing;
  if (!changes_.TakeUp()) {
    beginResetModel();
    records_ = records;
    variables_ = variables;
    endResetModel();
    return Outcome::kEverything;
  }
  while (!changes_.empty()) Tell(changes_.Next());
  // What comes into the part that the grid shows from behind it, or leaves it.
  if (variables > variables_) InsertColumns(variables_, variables - variables_);
  if (variables < variables_) RemoveColumns(variables, variables_ - variables);
  if (records > records_) InsertRows(records_, records - records_);
  if (records < records_) RemoveRows(records, records_ - records);
  return Outcome::kChanges;
}

void GridModel::Tell(const ChangeNote& note) {
  const ChangeExtent& extent = note.extent;
  const Shown columns(extent.first_column, extent.column_count, 1, variables_);
  const Shown rows(extent.first_row, extent.row_count, kFirstRecordRow, records_);
  switch (note.kind) {
    case ChangeKind::kColumnsAdded: {
      const std::size_t most = std::max(data_.GridVariables(), static_cast<std::size_t>(variables_));
      const std::size_t place = extent.first_column - 1;
      if (place > static_cast<std::size_t>(variables_) || place >= most) break;  // behind what is shown
      InsertColumns(static_cast<int>(place), static_cast<int>(std::min(extent.column_count, most - place)));
      return;
    }
    case ChangeKind::kRowsAdded: {
      const std::size_t most = std::max(data_.GridRecords(), static_cast<std::size_t>(records_));
      const std::size_t place = extent.first_row - kFirstRecordRow;
      if (place > static_cast<std::size_t>(records_) || place >= most) break;
      InsertRows(static_cast<int>(place), static_cast<int>(std::min(extent.row_count, most - place)));
      return;
    }
    case ChangeKind::kColumnsRemoved:
      if (columns.empty()) break;
      RemoveColumns(columns.first, columns.end - columns.first);
      return;
    case ChangeKind::kRowsRemoved:
      if (rows.empty()) break;
      RemoveRows(rows.first, rows.end - rows.first);
      return;
    case ChangeKind::kCells:
    case ChangeKind::kDictionary:
    case ChangeKind::kColumnsReplaced:
      changes_.Tell();
      TellCells(extent);
      return;
    case ChangeKind::kWholeData:
      break;
  }
  changes_.Tell();
}

void GridModel::TellCells(const ChangeExtent& extent) {
  const Shown columns(extent.first_column, extent.column_count, 1, variables_);
  const Shown rows(extent.first_row, extent.row_count, kFirstRecordRow, records_);
  if (columns.empty()) return;
  if (!rows.empty()) emit dataChanged(index(rows.first, columns.first), index(rows.end - 1, columns.end - 1));
  if (extent.first_row < kFirstRecordRow) emit headerDataChanged(Qt::Horizontal, columns.first, columns.end - 1);
}

// A change of shape is told between the two calls: ahead of the second one the places become those behind it.

void GridModel::InsertColumns(int first, int count) {
  beginInsertColumns({}, first, first + count - 1);
  if (!changes_.empty()) changes_.Tell();
  variables_ += count;
  endInsertColumns();
}

void GridModel::RemoveColumns(int first, int count) {
  beginRemoveColumns({}, first, first + count - 1);
  if (!changes_.empty()) changes_.Tell();
  variables_ -= count;
  endRemoveColumns();
}

void GridModel::InsertRows(int first, int count) {
  beginInsertRows({}, first, first + count - 1);
  if (!changes_.empty()) changes_.Tell();
  records_ += count;
  endInsertRows();
}

void GridModel::RemoveRows(int first, int count) {
  beginRemoveRows({}, first, first + count - 1);
  if (!changes_.empty()) changes_.Tell();
  records_ -= count;
  endRemoveRows();
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : records_; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : variables_; }

TaggedView GridModel::CellAt(int row, int column) const {
  const auto matrix_row = changes_.Row(MatrixRow(row));
  if (!matrix_row) return {};
  const TaggedView cell = data_.matrix.Cell(*matrix_row, MatrixColumn(column));
  // A quotient with a zero in it is the number 0 and shows the decimals of the others.
  const bool quotient = marks_ && cell.is_number() && cell.number() == 0 && marks_->ShowsDecimals(MatrixColumn(column));
  return quotient ? TaggedView("0.00000") : cell;
}

// Means and deviations of samples have their decimals below each other.
QString GridModel::ShownCell(int row, int column) const {
  const TaggedView cell = CellAt(row, column);
  if (cell.is_number() && data_.matrix.ColumnAt(MatrixColumn(column)).ShowsFiveDecimals()) {
    return ToQt(MaskedNumber(cell.number(), "0.00000"));
  }
  return ShownText(cell);
}

std::size_t GridModel::CellLength(int row, int column) const {
  const TaggedView cell = CellAt(row, column);
  return cell.is_text() ? cell.text().size() : static_cast<std::size_t>(ShownCell(row, column).size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ShownCell(index.row(), index.column());
    case Qt::TextAlignmentRole: {
      const bool number = IsNumeric(CellAt(index.row(), index.column()));
      return QVariant::fromValue(Qt::Alignment(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft)));
    }
    case Qt::ToolTipRole:
      return ValueLabelTip(index);
    case Qt::FontRole:
      return FontOf(index);
    case Qt::AccessibleTextRole:
      return SpokenCell(index);
    case Qt::AccessibleDescriptionRole:
      return SpokenPlace(index);
    default:
      return {};
  }
}

// "1 = Yes" where a value has a label.
QString GridModel::SpokenCell(const QModelIndex& index) const {
  const QVariant labelled = ValueLabelTip(index);
  if (labelled.isValid()) return labelled.toString();
  const QString text = ShownCell(index.row(), index.column());
  return text.isEmpty() ? tr("blank") : text;
}

QString GridModel::SpokenPlace(const QModelIndex& index) const {
  return headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString() +
         tr(", record %1").arg(index.row() + 1);
}

// Matches of a search are bold.
QVariant GridModel::FontOf(const QModelIndex& index) const {
  const auto row = changes_.Row(MatrixRow(index.row()));
  if (!marks_ || !row || !marks_->IsBold(*row, MatrixColumn(index.column()))) return {};
  QFont bold;
  bold.setResolveMask(0);
  bold.setBold(true);
  return bold;
}

QVariant GridModel::ValueLabelTip(const QModelIndex& index) const {
  const TaggedView cell = CellAt(index.row(), index.column());
  const ValueLabels labels = LoadValueLabels(data_.matrix, MatrixColumn(index.column()));
  if (labels.NoValueLabels || cell.is_blank()) return {};
  const std::string value = TextOf(cell);
  const std::string label = labels.Apply(cell);
  if (label.empty() || label == value) return {};
  return ToQt(value + " = " + label);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    return role == Qt::DisplayRole ? QVariant(QString::number(section + 1)) : QVariant();
  }
  if (section < 0 || section >= variables_) return {};
  if (role == Qt::DisplayRole) return ShownText(data_.matrix.Cell(kVariableNameRow, MatrixColumn(section)));
  if (role == Qt::ToolTipRole) return ShownText(data_.matrix.Cell(kVariableLabelRow, MatrixColumn(section)));
  return {};
}

}  // namespace tessara
