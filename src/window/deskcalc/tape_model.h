#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

namespace tessara {

// The lines of the calculator's tape for its list; nothing is copied, a line is read when it is shown.
class TapeModel : public QAbstractListModel {
  Q_OBJECT

 public:
  TapeModel(const std::vector<std::string>& tape, QObject* parent);

  // Looks at the tape again. True when it has gained lines.
  bool Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

 private:
  const std::vector<std::string>& tape_;
  int rows_ = 0;  // that the list has been told of
};

}  // namespace tessara
