#include "window/output/table_model.h"

#include <QFont>
#include <algorithm>
#include <string_view>

#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr std::size_t kMostShownOfAText = 2000;  // no column is wide enough for more

QString ShownText(const std::string& text) { return ToQt(std::string_view(text).substr(0, kMostShownOfAText)); }

Qt::Alignment AlignmentOf(TableAlignment alignment) {
  switch (alignment) {
    case TableAlignment::kLeft:
      return Qt::AlignVCenter | Qt::AlignLeft;
    case TableAlignment::kCentre:
      return Qt::AlignVCenter | Qt::AlignHCenter;
    case TableAlignment::kRight:
      return Qt::AlignVCenter | Qt::AlignRight;
  }
  return Qt::AlignVCenter;
}

}  // namespace

TableModel::TableModel(const TableGrid& grid, QObject* parent)
    : QAbstractTableModel(parent),
      grid_(grid),
      rows_(static_cast<int>(ShownTableRows(grid))),
      columns_(static_cast<int>(ShownTableColumns(grid))),
      revision_(grid.revision()) {}

bool TableModel::Refresh() {
  if (revision_ == grid_.revision()) return false;
  revision_ = grid_.revision();
  FitRows(static_cast<int>(ShownTableRows(grid_)));
  FitColumns(static_cast<int>(ShownTableColumns(grid_)));
  emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
  return true;
}

// Whatever came or went inside: the views learn of the number at the end, and that the cells have other texts.
void TableModel::FitRows(int rows) {
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
}

void TableModel::FitColumns(int columns) {
  if (columns > columns_) {
    beginInsertColumns({}, columns_, columns - 1);
    columns_ = columns;
    endInsertColumns();
  } else if (columns < columns_) {
    beginRemoveColumns({}, columns, columns_ - 1);
    columns_ = columns;
    endRemoveColumns();
  }
}

int TableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int TableModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant TableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto column = static_cast<std::size_t>(index.column()) + 1;
  const TableCell& cell = grid_.Cell(static_cast<std::size_t>(index.row()) + 1, column);
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(cell.text);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(AlignmentOf(cell.alignment));
    case Qt::FontRole: {
      if (RowKind(index.row()) == TableRowKind::kPlain) return {};
      QFont bold;
      bold.setResolveMask(0);
      bold.setBold(true);
      return bold;
    }
    case Qt::ToolTipRole:
      return TipOf(cell, column);
    default:
      return {};
  }
}

// A text that its column cuts.
QVariant TableModel::TipOf(const TableCell& cell, std::size_t column) const {
  const bool cut = static_cast<double>(cell.text.size()) * kCharacterWidth > grid_.Width(column);
  return cut ? QVariant(ShownText(cell.text)) : QVariant();
}

// The edges of the sheet show no words; these are for those who have the table read to them.
QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
  return (orientation == Qt::Horizontal ? tr("Column %1") : tr("Row %1")).arg(section + 1);
}

}  // namespace tessara
