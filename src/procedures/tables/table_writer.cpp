#include "procedures/tables/table_writer.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>
#include <utility>

#include "numerics/number_text.h"
#include "procedures/tables/table_rows.h"

namespace tessara {
namespace {

// Labels of a row stand at the right, towards their figures; what heads a group of them, and the control, at the left.
constexpr TableAlignment kLabelAlignment = TableAlignment::kRight;
constexpr TableAlignment kGroupAlignment = TableAlignment::kLeft;
// Of the cells that hold labels, by their column; one that the user has emptied is not written again.
constexpr std::string_view kGroupTag = "group";
constexpr std::string_view kLabelTag = "label";
constexpr std::size_t kMostLabelText = 4096;  // what a table has room for, and far beyond

// What stands behind the first part of a list; `part` is that part's text.
std::string_view BehindPart(std::string_view list, std::string_view& part) {
  std::size_t size = 0;
  const auto read = std::from_chars(list.data(), list.data() + list.size(), size);
  const auto start = static_cast<std::size_t>(read.ptr - list.data()) + 1;
  part = list.substr(std::min(start, list.size()), size);
  return list.substr(std::min(start + part.size(), list.size()));
}

std::string RowTag(const std::string& variable_tag, const WantedRow& row) {
  return variable_tag + TagPart(row.category) + std::string(row.what);
}

}  // namespace

std::string VariableKey(const DataSet& data, std::size_t column) {
  const std::string name = data.VariableName(column);
  std::size_t ordinal = 1;
  for (std::size_t before = 1; before < column; ++before) ordinal += data.VariableName(before) == name ? 1 : 0;
  return TagPart(std::to_string(ordinal)) + TagPart(name);
}

std::string CategoryKey(const TaggedView& value, std::string_view label) {
  if (value.is_number()) return "number " + TagPart(label) + GeneralText(value.number());
  return "text " + TagPart(label) + std::string(value.text());
}

std::string ColumnKey(std::string_view variable_key, std::string_view category_key) {
  return std::string(variable_key) + TagPart(category_key);
}

TableWriter::TableWriter(SummaryTable& table, TableData kind, std::string control_label)
    : table_(table),
      grid_(table.grid),
      block_tag_(kind == TableData::kCategorical ? kCategoricalBlock : kContinuousBlock),
      control_label_(std::move(control_label)),
      opens_(table.grid.empty()) {
  FreeLabelColumns();
}

const SummaryTable::Column* TableWriter::ColumnOf(const std::string& tag) const {
  std::size_t place = 0;
  const auto read = std::from_chars(tag.data(), tag.data() + tag.size(), place);
  const bool is_place = read.ec == std::errc() && read.ptr == tag.data() + tag.size() && place < table_.columns.size();
  return is_place ? &table_.columns[place] : nullptr;
}

// Figures never stand in the columns of the labels, also when the user has deleted one of those.
void TableWriter::FreeLabelColumns() {
  std::size_t missing = 0;
  bool has_groups = false;
  for (std::size_t row = 1; row <= grid_.RowCount(); ++row) {
    has_groups |= grid_.Cell(row, 1).tag == kGroupTag;
    for (std::size_t column = 1; column <= kLabelColumns; ++column) {
      if (ColumnOf(grid_.Cell(row, column).tag)) missing = std::max(missing, kLabelColumns + 1 - column);
    }
  }
  if (missing > 0) grid_.InsertColumns(has_groups ? kLabelColumns : 1, missing);
}

TableWriter::Survey TableWriter::FindRows(const std::string& variable_tag, std::span<const WantedRow> wanted) const {
  std::unordered_map<std::string, std::size_t> place_of_tag;
  for (std::size_t i = 0; i < wanted.size(); ++i) place_of_tag.emplace(RowTag(variable_tag, wanted[i]), i);
  Survey survey;
  survey.found.resize(wanted.size());
  for (std::size_t row = 1; row <= grid_.RowCount(); ++row) {
    const std::string& tag = grid_.RowTag(row);
    if (!tag.starts_with(block_tag_)) continue;
    if (survey.first == 0) survey.first = row;
    survey.last = row;
    if (tag.size() == block_tag_.size()) survey.heading = row;
    if (!tag.starts_with(variable_tag)) continue;
    survey.last_of_variable = row;
    if (const auto place = place_of_tag.find(tag); place != place_of_tag.end()) {
      survey.found[place->second] = row;
      continue;
    }
    std::string_view category;
    const std::string_view what = BehindPart(std::string_view(tag).substr(variable_tag.size()), category);
    if (!category.empty()) survey.others.push_back({row, std::string(what)});
  }
  return survey;
}

std::vector<std::size_t> TableWriter::FindColumns(const Survey& survey, std::span<const WantedColumn> wanted) const {
  std::vector<std::size_t> columns(wanted.size());
  if (survey.heading == 0) return columns;
  std::unordered_map<std::string_view, std::size_t> column_of_key;
  for (std::size_t column = 1; column <= grid_.ColumnCount(); ++column) {
    const SummaryTable::Column* known = ColumnOf(grid_.Cell(survey.heading, column).tag);
    if (known) column_of_key.emplace(known->key, column);
  }
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const auto found = column_of_key.find(block_tag_ + wanted[i].key);
    if (found != column_of_key.end()) columns[i] = found->second;
  }
  return columns;
}

// Of the rows of the block and whatever the user has written between them.
std::size_t TableWriter::LastUsedColumn(const Survey& survey) const {
  std::size_t last = kLabelColumns;
  for (std::size_t row = std::max<std::size_t>(survey.first, 1); row <= survey.last; ++row) {
    for (std::size_t column = grid_.ColumnCount(); column > last; --column) {
      const TableCell& cell = grid_.Cell(row, column);
      if (!cell.text.empty() || !cell.tag.empty()) last = column;
    }
  }
  return last;
}

std::optional<TablePlaces> TableWriter::Place(const std::string& variable_key, std::span<const WantedRow> rows,
                                              std::span<const WantedColumn> columns) {
  const std::string variable_tag = block_tag_ + variable_key;
  Survey survey = FindRows(variable_tag, rows);
  TablePlaces places;
  places.columns = FindColumns(survey, columns);
  const auto missing = [](const std::vector<std::size_t>& found) {
    return static_cast<std::size_t>(std::ranges::count(found, std::size_t{0}));
  };
  const std::size_t rows_then = grid_.RowCount() + missing(survey.found) + (survey.heading == 0 ? 1 : 0);
  const std::size_t columns_then = std::max(grid_.ColumnCount(), LastUsedColumn(survey) + missing(places.columns));
  if (rows_then > kMostGridCells / columns_then) return std::nullopt;

  if (survey.heading == 0) {
    AddHeading(survey);
    survey = FindRows(variable_tag, rows);
    places.columns = FindColumns(survey, columns);
  }
  AddColumns(survey, columns, places.columns);
  AddRows(variable_tag, rows, survey);
  for (std::size_t i = 0; i < rows.size(); ++i) WriteLabels(variable_tag, rows[i], survey.found[i]);
  places.heading = survey.heading;
  places.rows = std::move(survey.found);
  places.others = std::move(survey.others);
  return places;
}

// A new block stands below all that there is. A heading that the user has deleted comes back with its columns.
void TableWriter::AddHeading(const Survey& survey) {
  const std::size_t heading = survey.first == 0 ? grid_.RowCount() + 1 : survey.first;
  if (heading <= grid_.RowCount()) grid_.InsertRows(heading, 1);
  grid_.SetRowTag(heading, block_tag_);
  if (std::exchange(opens_, false)) WriteLabel(heading, 1, control_label_, kGroupAlignment);
  if (survey.first == 0) return;
  for (std::size_t row = survey.first + 1; row <= survey.last + 1; ++row) {
    if (!grid_.RowTag(row).starts_with(block_tag_)) continue;
    for (std::size_t column = 1; column <= grid_.ColumnCount(); ++column) {
      const std::string& tag = grid_.Cell(row, column).tag;
      const SummaryTable::Column* known = ColumnOf(tag);
      if (!known || !grid_.Cell(heading, column).tag.empty()) continue;
      TableCell& cell = grid_.Edit(heading, column);
      cell.tag = grid_.Cell(row, column).tag;
      cell.text = known->heading;
    }
  }
}

void TableWriter::AddColumns(const Survey& survey, std::span<const WantedColumn> wanted,
                             std::vector<std::size_t>& columns) {
  std::unordered_map<std::string, std::size_t> places;
  for (std::size_t place = 0; place < table_.columns.size(); ++place) places.emplace(table_.columns[place].key, place);
  std::size_t next = LastUsedColumn(survey) + 1;
  const auto missing = static_cast<std::size_t>(std::ranges::count(columns, std::size_t{0}));
  if (missing > 0 && next - 1 + missing > grid_.ColumnCount()) {
    grid_.InsertColumns(grid_.ColumnCount() + 1, next - 1 + missing - grid_.ColumnCount());
  }
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (columns[i] != 0) continue;
    columns[i] = next++;
    const std::string heading = wanted[i].heading.substr(0, kMostLabelText);
    const auto [known, is_new] = places.emplace(block_tag_ + wanted[i].key, table_.columns.size());
    if (is_new) table_.columns.push_back({known->first, heading});
    TableCell& cell = grid_.Edit(survey.heading, columns[i]);
    cell.text = heading;
    cell.tag = std::to_string(known->second);
  }
}

// Behind the rows of the variable; the first ones of a variable behind those of the block.
void TableWriter::AddRows(const std::string& variable_tag, std::span<const WantedRow> wanted, Survey& survey) {
  const auto missing = static_cast<std::size_t>(std::ranges::count(survey.found, std::size_t{0}));
  if (missing == 0) return;
  std::size_t next = (survey.last_of_variable == 0 ? survey.last : survey.last_of_variable) + 1;
  grid_.InsertRows(next, missing);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (survey.found[i] != 0) continue;
    survey.found[i] = next;
    grid_.SetRowTag(next++, RowTag(variable_tag, wanted[i]));
  }
}

void TableWriter::WriteLabels(const std::string& variable_tag, const WantedRow& wanted, std::size_t row) {
  const bool goes_on =
      !wanted.category.empty() && grid_.RowTag(row - 1).starts_with(variable_tag + TagPart(wanted.category));
  const bool heads_group = wanted.what == kGroupRow;
  if (!goes_on) WriteLabel(row, 1, wanted.group, heads_group ? kGroupAlignment : kLabelAlignment);
  WriteLabel(row, kLabelColumns, wanted.label, kLabelAlignment);
}

void TableWriter::WriteLabel(std::size_t row, std::size_t column, std::string_view text, TableAlignment alignment) {
  const TableCell& there = grid_.Cell(row, column);
  if (text.empty() || !there.text.empty() || !there.tag.empty()) return;
  TableCell& cell = grid_.Edit(row, column);
  cell = {std::string(text.substr(0, kMostLabelText)), alignment, std::string(column == 1 ? kGroupTag : kLabelTag)};
}

void TableWriter::Write(const TablePlaces& places, std::size_t row, std::size_t column, std::string text) {
  TableCell& cell = grid_.Edit(row, column);
  cell.text = std::move(text);
  cell.tag = grid_.Cell(places.heading, column).tag;
}

}  // namespace tessara
