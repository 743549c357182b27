#include "window/grid/variable_table.h"

#include <QFont>
#include <QLocale>
#include <array>

#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr std::size_t kMostShownOfAText = 2000;

struct SectionWords {
  const char* caption;
  const char* tip;
};
constexpr std::array<SectionWords, VariableTable::kSections> kSectionWords = {{
    {"Name", "The heading of the column in the grid"},
    {"Label", "What the variable stands for"},
    {"Missing Values", "Values that procedures leave out"},
    {"Value Labels", "What values stand for"},
    {"Blank", "Cells with nothing in them"},
    {"Missing", "Cells with a value that is declared as missing"},
    {"Not Numeric", "Cells with a text that is no number and is not declared as missing"},
}};

QString Grouped(std::size_t count) { return QLocale(QLocale::English, QLocale::UnitedStates).toString(count); }

}  // namespace

VariableTable::VariableTable(const DataSet& data, QObject* parent)
    : QAbstractTableModel(parent),
      data_(data),
      summarized_(data),
      rows_(static_cast<int>(data.VariableCount)),
      changes_(data) {
  summarized_.Follow();
}

void VariableTable::Refresh() {
  const int rows = static_cast<int>(data_.VariableCount);
  if (rows == rows_ && changes_.IsUpToDate()) return;
  const bool known = changes_.TakeUp();
  summarized_.Follow();
  if (known) {
    while (!changes_.empty()) Tell(changes_.Next());
  }
  if (!known || rows_ != rows) {
    beginResetModel();
    rows_ = rows;
    endResetModel();
  }
  if (rows_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, kSections - 1));
}

void VariableTable::Tell(const ChangeNote& note) {
  const int first = static_cast<int>(note.extent.first_column) - 1;
  const int count = static_cast<int>(note.extent.column_count);
  if (note.kind == ChangeKind::kColumnsAdded && count > 0) {
    beginInsertRows({}, first, first + count - 1);
    changes_.Tell();
    rows_ += count;
    endInsertRows();
  } else if (note.kind == ChangeKind::kColumnsRemoved && count > 0) {
    beginRemoveRows({}, first, first + count - 1);
    changes_.Tell();
    rows_ -= count;
    endRemoveRows();
  } else {
    changes_.Tell();
  }
}

bool VariableTable::CountNext(int first_row) {
  const auto column = summarized_.NextToCount(static_cast<std::size_t>(first_row) + 1);
  if (!column) return false;
  summarized_.Count(*column);
  const int row = static_cast<int>(*column) - 1;
  emit dataChanged(index(row, kBlank), index(row, kNotNumeric));
  return true;
}

int VariableTable::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int VariableTable::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kSections; }

QString VariableTable::TextOfDictionary(std::size_t column, int section) const {
  switch (section) {
    case kName:
      return ToQt(data_.VariableName(column).substr(0, kMostShownOfAText));
    case kLabel:
      return ToQt(data_.VariableLabel(column).substr(0, kMostShownOfAText));
    case kMissingValues:
      return ToQt(MissingValuesInWords(data_, column));
    default:
      return ToQt(ValueLabelsInWords(data_, column));
  }
}

// Empty until the variable has been counted.
QString VariableTable::TextOfShare(std::size_t column, int section, int role) const {
  const CellCounts* counts = summarized_.Find(column);
  if (!counts) return {};
  const std::size_t part = section == kBlank     ? counts->blank
                           : section == kMissing ? counts->missing
                                                 : counts->not_numeric;
  if (role == Qt::ToolTipRole) return Grouped(part) + " of " + Grouped(counts->records) + " cells";
  return ToQt(ShareInWords(part, counts->records));
}

QVariant VariableTable::data(const QModelIndex& index, int role) const {
  const auto column = index.isValid() ? changes_.Column(static_cast<std::size_t>(index.row()) + 1) : std::nullopt;
  if (!column) return {};
  const bool is_share = index.column() >= kBlank;
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return is_share ? TextOfShare(*column, index.column(), role) : TextOfDictionary(*column, index.column());
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::Alignment(Qt::AlignVCenter | (is_share ? Qt::AlignRight : Qt::AlignLeft)));
    default:
      return {};
  }
}

QVariant VariableTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
  if (section < 0 || section >= kSections) return {};
  if (role == Qt::DisplayRole) return QString(kSectionWords[static_cast<std::size_t>(section)].caption);
  if (role == Qt::ToolTipRole) return QString(kSectionWords[static_cast<std::size_t>(section)].tip);
  return {};
}

}  // namespace tessara
