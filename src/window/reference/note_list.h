#pragma once

#include <QAbstractListModel>

#include "reference/glossary.h"

namespace tessara {

// The subjects of the glossary's list as rows, read where they stand.
class NoteList : public QAbstractListModel {
  Q_OBJECT

 public:
  explicit NoteList(const Glossary& glossary, QObject* parent = nullptr);

  // Looks at the list again when it has changed.
  void Refresh();
  // The row of a record; -1 when the list has none.
  int RowOf(int record) const;
  int RecordOf(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

 private:
  bool IsThere(int row) const;

  const Glossary& glossary_;
  std::uint64_t shown_ = 0;
  int rows_ = 0;
};

}  // namespace tessara
