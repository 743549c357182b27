#pragma once

#include <QAbstractTableModel>

#include "data/dictionary/variable_summary.h"
#include "window/widgets/pending_changes.h"

namespace tessara {

// All variables as rows: what their dictionary says, and which share of their cells is no valid number. The shares are
// counted one variable at a time, when the table has been told which rows are in sight.
class VariableTable : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit VariableTable(const DataSet& data, QObject* parent = nullptr);

  enum Section { kName, kLabel, kMissingValues, kValueLabels, kBlank, kMissing, kNotNumeric, kSections };

  // Looks at the data set again when it has changed.
  void Refresh();
  // Counts the next variable, from the row that is the first in sight on. False when all have been counted.
  bool CountNext(int first_row);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  QString TextOfDictionary(std::size_t column, int section) const;
  QString TextOfShare(std::size_t column, int section, int role) const;
  void Tell(const ChangeNote& note);

  const DataSet& data_;
  SummarizedVariables summarized_;
  int rows_ = 0;
  PendingChanges changes_;
};

}  // namespace tessara
