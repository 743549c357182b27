#include "window/grid/grid_model.h"

#include "data/value_labels.h"
#include "numerics/number_text.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

// The matrix place of a grid place; both of the grid's count from 0.
std::size_t MatrixRow(int row) { return static_cast<std::size_t>(row) + kFirstRecordRow; }
std::size_t MatrixColumn(int column) { return static_cast<std::size_t>(column) + 1; }

}  // namespace

GridModel::GridModel(const DataSet& data, QObject* parent)
    : QAbstractTableModel(parent),
      data_(data),
      records_(static_cast<int>(data.GridRecords())),
      variables_(static_cast<int>(data.GridVariables())),
      revision_(data.Revision()) {}

bool GridModel::Refresh() {
  const int records = static_cast<int>(data_.GridRecords());
  const int variables = static_cast<int>(data_.GridVariables());
  if (records == records_ && variables == variables_ && revision_ == data_.Revision()) return false;
  beginResetModel();
  records_ = records;
  variables_ = variables;
  revision_ = data_.Revision();
  endResetModel();
  return true;
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : records_; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : variables_; }

std::string GridModel::CellText(int row, int column) const {
  return TextOf(data_.matrix.Cell(MatrixRow(row), MatrixColumn(column)));
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(CellText(index.row(), index.column()));
    case Qt::TextAlignmentRole: {
      const bool number = IsNumeric(data_.matrix.Cell(MatrixRow(index.row()), MatrixColumn(index.column())));
      return QVariant::fromValue(Qt::Alignment(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft)));
    }
    case Qt::ToolTipRole:
      return ValueLabelTip(index);
    default:
      return {};
  }
}

QVariant GridModel::ValueLabelTip(const QModelIndex& index) const {
  const TaggedView cell = data_.matrix.Cell(MatrixRow(index.row()), MatrixColumn(index.column()));
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
  if (role == Qt::DisplayRole) return ToQt(data_.VariableName(MatrixColumn(section)));
  if (role == Qt::ToolTipRole) return ToQt(data_.VariableLabel(MatrixColumn(section)));
  return {};
}

}  // namespace tessara
