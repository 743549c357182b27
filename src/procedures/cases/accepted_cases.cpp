#include "procedures/cases/accepted_cases.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "data/cell_key.h"
#include "data/missing_test.h"
#include "data/value_labels.h"
#include "numerics/number_text.h"

namespace tessara {
namespace {

// The values of the flagged records, moved together. Every value is written and the place goes on only behind an
// accepted one, so that no case costs a branch.
std::vector<double> Compact(const std::vector<double>& values, const CaseFlags& accepted, std::size_t n) {
  std::vector<double> kept(n + 1);  // one place more for what is written behind the last accepted value
  std::size_t place = 0;
  for (std::size_t record = 0; record < accepted.size(); ++record) {
    kept[place] = values[record];
    place += accepted[record];
  }
  kept.resize(n);
  return kept;
}

}  // namespace

CodedColumn ReadCodedColumn(const CaseSource& source, std::size_t column) {
  const DataMatrix& matrix = source.data.matrix;
  const MissingValues missing = LoadMissingSet(matrix, column);
  CodedColumn coded;
  coded.codes.resize(source.used.records);
  CellDictionary dictionary;
  matrix.ForEachRecord(column, source.used.records, [&](std::size_t record, const TaggedView& cell) {
    coded.codes[record] = static_cast<std::uint32_t>(dictionary.Find(cell));
  });
  for (std::size_t code = 0; code < dictionary.size(); ++code) {
    coded.cells.push_back(dictionary.Cell(code));
    coded.missing.push_back(static_cast<bool>(missing.IsMissing(dictionary.Cell(code))) ? 1 : 0);
  }
  return coded;
}

CaseFlags PassingRecords(const CaseSource& source) {
  CaseFlags passing = source.control.PassingCases(source.used.records);
  if (passing.empty()) passing.assign(source.used.records, 1);
  return passing;
}

void DropUnlessNumber(const CaseSource& source, std::size_t column, CaseFlags& records) {
  const DataMatrix& matrix = source.data.matrix;
  const NumericColumn& numbers = matrix.Numbers(column, source.used.records);
  const MissingValues missing = LoadMissingSet(matrix, column);
  if (!missing.HasSingleValues() && !missing.HasBounds()) {
    for (std::size_t record = 0; record < records.size(); ++record) {
      records[record] &= static_cast<std::uint8_t>(numbers.classes[record] == CellClass::kNumber);
    }
    return;
  }
  const MissingTest test(matrix, column, missing, numbers);
  for (std::size_t record = 0; record < records.size(); ++record) {
    const bool valid = numbers.classes[record] == CellClass::kNumber && !test.Drops(record);
    records[record] &= static_cast<std::uint8_t>(valid);
  }
}

void DropMissing(const CodedColumn& column, CaseFlags& records) {
  for (std::size_t record = 0; record < records.size(); ++record) {
    records[record] &= static_cast<std::uint8_t>(column.missing[column.codes[record]] == 0);
  }
}

std::size_t CountCases(const CaseFlags& records) {
  return std::accumulate(records.begin(), records.end(), std::size_t{0});
}

NumberCases GatherNumberCases(const CaseSource& source, std::span<const std::size_t> columns) {
  NumberCases cases;
  cases.accepted = PassingRecords(source);
  for (const std::size_t column : columns) DropUnlessNumber(source, column, cases.accepted);
  cases.n = CountCases(cases.accepted);
  cases.missing = source.used.records - cases.n;
  for (const std::size_t column : columns) {
    const NumericColumn& numbers = source.data.matrix.Numbers(column, source.used.records);
    cases.variables.push_back(Compact(numbers.values, cases.accepted, cases.n));
  }
  return cases;
}

Categories MakeCategories(const DataSet& data, std::size_t column, const CodedColumn& coded, const CaseFlags& records) {
  CaseFlags used(coded.cells.size());
  for (std::size_t record = 0; record < records.size(); ++record) used[coded.codes[record]] |= records[record];
  std::vector<std::uint32_t> codes;
  for (std::uint32_t code = 0; code < used.size(); ++code) {
    if (used[code] != 0) codes.push_back(code);
  }
  std::sort(codes.begin(), codes.end(),
            [&](std::uint32_t a, std::uint32_t b) { return TaggedLess(coded.cells[a], coded.cells[b]); });

  const ValueLabels labels = LoadValueLabels(data.matrix, column);
  Categories categories;
  categories.of_code.assign(coded.cells.size(), Categories::kNone);
  for (const std::uint32_t code : codes) {
    categories.of_code[code] = static_cast<std::uint32_t>(categories.list.size());
    categories.list.push_back({coded.cells[code], labels.Apply(coded.cells[code])});
  }
  return categories;
}

std::string NamesOfPair(const DataSet& data, std::size_t first, std::size_t second) {
  return data.VariableName(first) + " by " + data.VariableName(second);
}

}  // namespace tessara
