#pragma once

#include <QAbstractTableModel>
#include <cstdint>

#include "data/data_set.h"

// The Data Grid's face of the data matrix: records from row 16 on as rows, variables as columns, the names as column
// headings and the record numbers as row headings. Nothing is copied; a cell is read when it is painted.

namespace tessara {

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GridModel(const DataSet& data, QObject* parent = nullptr);

  // Looks at the data set again; does nothing when neither shape nor revision has changed. True when it has looked.
  bool Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

  // The text of a cell as the system's bytes; rows and columns from 0.
  std::string CellText(int row, int column) const;

 private:
  QVariant ValueLabelTip(const QModelIndex& index) const;

  const DataSet& data_;
  // The shape that the views have been told of: the data set may already have another one.
  int records_ = 0;
  int variables_ = 0;
  std::uint64_t revision_ = 0;
};

}  // namespace tessara
