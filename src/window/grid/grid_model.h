#pragma once

#include <QAbstractTableModel>

#include "data/data_set.h"
#include "data/recode/grid_marks.h"
#include "window/widgets/pending_changes.h"

// The Data Grid's face of the data matrix: records from row 16 on as rows, variables as columns, the names as column
// headings and the record numbers as row headings. Nothing is copied; a cell is read when it is painted.

namespace tessara {

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // Marks belong to the cells of a grid; a model without them shows the cells alone.
  explicit GridModel(const DataSet& data, QObject* parent = nullptr, const GridMarks* marks = nullptr);

  enum class Outcome {
    kNothing,     // nothing has changed
    kChanges,     // the views have been told of what has changed, and of nothing else
    kEverything,  // other data: the model has been reset
  };
  // Looks at the data set again.
  Outcome Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  // Cells can be typed into, so that characters of input methods come to the view.
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    return QAbstractTableModel::flags(index) | (index.isValid() ? Qt::ItemIsEditable : Qt::NoItemFlags);
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

  // The length of a cell's text, without a copy of it; row and column from 0.
  std::size_t CellLength(int row, int column) const;

 private:
  TaggedView CellAt(int row, int column) const;
  QString ShownCell(int row, int column) const;
  QVariant ValueLabelTip(const QModelIndex& index) const;
  // The matrix column of a grid column; 0 when it has gone.
  std::size_t MatrixColumn(int column) const {
    return changes_.Column(static_cast<std::size_t>(column) + 1).value_or(0);
  }

  void Tell(const ChangeNote& note);
  void TellCells(const ChangeExtent& extent);
  void InsertColumns(int first, int count);
  void RemoveColumns(int first, int count);
  void InsertRows(int first, int count);
  void RemoveRows(int first, int count);

  QVariant FontOf(const QModelIndex& index) const;
  // What a reader of the screen says of a cell, and of its place.
  QString SpokenCell(const QModelIndex& index) const;
  QString SpokenPlace(const QModelIndex& index) const;

  const DataSet& data_;
  const GridMarks* marks_;
  // The shape that the views have been told of: the data set may already have another one.
  int records_ = 0;
  int variables_ = 0;
  PendingChanges changes_;
};

}  // namespace tessara
