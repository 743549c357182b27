#include "window/deskcalc/tape_model.h"

#include "window/widgets/text.h"

namespace tessara {

TapeModel::TapeModel(const std::vector<std::string>& tape, QObject* parent)
    : QAbstractListModel(parent), tape_(tape), rows_(static_cast<int>(tape.size())) {}

// The tape grows at its end, or is reset.
bool TapeModel::Refresh() {
  const int rows = static_cast<int>(tape_.size());
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
    return true;
  }
  if (rows < rows_) {
    beginResetModel();
    rows_ = rows;
    endResetModel();
  }
  return false;
}

int TapeModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

QVariant TapeModel::data(const QModelIndex& index, int role) const {
  constexpr std::size_t kLongestShown = 1000;  // of a number that somebody typed without an end
  const auto row = static_cast<std::size_t>(index.row());
  if (!index.isValid() || row >= tape_.size() || role != Qt::DisplayRole) return {};
  return ToQt(std::string_view(tape_[row]).substr(0, kLongestShown));
}

}  // namespace tessara
