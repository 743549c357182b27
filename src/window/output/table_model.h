#pragma once

#include <QAbstractTableModel>

#include "presentation/table_face.h"
#include "procedures/tables/table_rows.h"

// The summary table as a model: its used area and the empty rows and columns behind it. Nothing is copied; a cell is
// read when it is painted.

namespace tessara {

class TableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit TableModel(const TableGrid& grid, QObject* parent = nullptr);

  // Looks at the table again and tells the views what has changed. False when nothing has.
  bool Refresh();

  const TableGrid& grid() const { return grid_; }
  // Rows from 0, as the views count them.
  TableRowKind RowKind(int row) const { return KindOfRow(grid_, static_cast<std::size_t>(row) + 1); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  // Cells can be typed into, so that characters of input methods come to the view.
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    return QAbstractTableModel::flags(index) | (index.isValid() ? Qt::ItemIsEditable : Qt::NoItemFlags);
  }

 private:
  void FitRows(int rows);
  void FitColumns(int columns);
  QVariant TipOf(const TableCell& cell, std::size_t column) const;

  const TableGrid& grid_;
  // What the views have been told of: the table may already be another one.
  int rows_ = 0;
  int columns_ = 0;
  std::uint64_t revision_ = 0;
};

}  // namespace tessara
