#include "data/dictionary/variable_summary.h"

#include <algorithm>
#include <utility>

#include "data/missing_test.h"
#include "data/missing_values.h"
#include "data/value_labels.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"

namespace tessara {
namespace {

constexpr std::size_t kMostOfAText = 60;  // of one value or label
constexpr std::string_view kCutOff = "...";

bool IsSingleValue(const MissingValues& missing, std::string_view text) {
  for (std::size_t i = 0; i < kSingleMissingEntries; ++i) {
    if (missing.entries[i].view().text() == text) return true;
  }
  return false;
}

std::string Shortened(std::string_view text) {
  if (text.size() <= kMostOfAText) return std::string(text);
  return std::string(text.substr(0, kMostOfAText)) + std::string(kCutOff);
}

void Append(std::string& list, const std::string& entry) {
  if (!list.empty()) list += ", ";
  list += entry;
}

}  // namespace

CellCounts CountCells(const DataSet& data, std::size_t column) {
  const Column& cells = data.matrix.ColumnAt(column);
  const bool read_before = cells.HasNumbers(data.RecordCount);
  const NumericColumn& numbers = cells.Numbers(data.RecordCount);
  const MissingValues missing = LoadMissingSet(data.matrix, column);
  const MissingTest test(data.matrix, column, missing, numbers);
  const bool has_singles = missing.HasSingleValues();

  CellCounts counts{.records = data.RecordCount};
  for (std::size_t record = 0; record < data.RecordCount; ++record) {
    switch (numbers.classes[record]) {
      case CellClass::kBlank:
        ++counts.blank;
        break;
      case CellClass::kNumber:
        if (test.Drops(record)) ++counts.missing;
        break;
      case CellClass::kText: {
        const bool single = has_singles && IsSingleValue(missing, cells.Cell(kFirstRecordRow + record).text());
        ++(single ? counts.missing : counts.not_numeric);
        break;
      }
    }
  }
  if (!read_before) cells.ForgetNumbers();  // a table of all variables does not hold all data a second time
  return counts;
}

std::string MissingValuesInWords(const DataSet& data, std::size_t column) {
  const MissingValues missing = LoadMissingSet(data.matrix, column);
  std::string words;
  for (std::size_t i = 0; i < kMissingEntries; ++i) {
    const TaggedView entry = missing.entries[i];
    if (entry.is_blank()) continue;
    const std::string_view relation = i == kLowerBoundEntry ? "< " : i == kUpperBoundEntry ? "> " : "";
    Append(words, std::string(relation) + Shortened(entry.text()));
  }
  return words;
}

std::string ValueLabelsInWords(const DataSet& data, std::size_t column) {
  const ValueLabels labels = LoadValueLabels(data.matrix, column);
  std::string words;
  for (const ValueLabels::Entry& entry : labels.table) {
    if (entry.value.empty() && entry.label.empty()) continue;
    Append(words, Shortened(entry.value) + " = " + Shortened(entry.label));
  }
  return words;
}

std::string ShareInWords(std::size_t part, std::size_t records) {
  if (part == 0) return "0";
  const double share = static_cast<double>(part) / static_cast<double>(records);
  const std::string words = MaskedNumber(share, "0.0%");
  if (words == "0.0%") return "<0.1%";
  if (words == "100.0%" && part < records) return ">99.9%";
  return words;
}

void SummarizedVariables::Follow() {
  if (followed_ && revision_ == data_.Revision()) return;
  const auto notes = data_.notes.Since(std::exchange(revision_, data_.Revision()));
  if (!std::exchange(followed_, true) || !notes) {
    counts_.assign(data_.VariableCount, std::nullopt);
    return;
  }
  for (const ChangeNote& note : *notes) Tell(note);
  counts_.resize(data_.VariableCount);
}

void SummarizedVariables::Tell(const ChangeNote& note) {
  const ChangeExtent& extent = note.extent;
  const std::size_t place = std::min(extent.first_column - 1, counts_.size());
  const auto first = counts_.begin() + static_cast<std::ptrdiff_t>(place);
  switch (note.kind) {
    case ChangeKind::kColumnsAdded:
      counts_.insert(first, extent.column_count, std::nullopt);
      break;
    case ChangeKind::kColumnsRemoved:
      counts_.erase(first, first + static_cast<std::ptrdiff_t>(std::min(extent.column_count, counts_.size() - place)));
      break;
    case ChangeKind::kCells:
    case ChangeKind::kColumnsReplaced:
      Forget(extent);
      break;
    case ChangeKind::kDictionary:
      if (extent.first_row <= kMissingSpecRow) Forget(extent);
      break;
    case ChangeKind::kRowsAdded:
    case ChangeKind::kRowsRemoved:
    case ChangeKind::kWholeData:
      counts_.assign(counts_.size(), std::nullopt);
      break;
  }
}

void SummarizedVariables::Forget(const ChangeExtent& extent) {
  const std::size_t end = std::min(extent.first_column - 1 + extent.column_count, counts_.size());
  for (std::size_t i = extent.first_column - 1; i < end; ++i) counts_[i].reset();
}

const CellCounts* SummarizedVariables::Find(std::size_t column) const {
  return column >= 1 && column <= counts_.size() && counts_[column - 1] ? &*counts_[column - 1] : nullptr;
}

void SummarizedVariables::Count(std::size_t column) {
  if (column >= 1 && column <= counts_.size()) counts_[column - 1] = CountCells(data_, column);
}

std::optional<std::size_t> SummarizedVariables::NextToCount(std::size_t first) const {
  for (std::size_t i = 0; i < counts_.size(); ++i) {
    const std::size_t column = (std::max<std::size_t>(first, 1) - 1 + i) % counts_.size() + 1;
    if (!counts_[column - 1]) return column;
  }
  return std::nullopt;
}

}  // namespace tessara
