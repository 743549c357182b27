#include "data/data_set.h"

#include <limits>

#include "data/change_door.h"
#include "numerics/number_text.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::uint64_t kBytesPerCell = 16;        // of a cell that is owned
constexpr std::uint64_t kBytesPerVariable = 1024;  // of a column and its place in the lists
constexpr std::uint64_t kShareForVariables = 8;    // no more than this part of the memory for columns alone

}  // namespace

std::string DataSet::VariableName(std::size_t column) const { return TextOf(matrix.Cell(kVariableNameRow, column)); }
std::string DataSet::VariableLabel(std::size_t column) const { return TextOf(matrix.Cell(kVariableLabelRow, column)); }

std::size_t CellsOf(std::size_t record_count, std::size_t variable_count) {
  if (record_count != 0 && variable_count > std::numeric_limits<std::size_t>::max() / record_count) {
    return std::numeric_limits<std::size_t>::max();
  }
  return record_count * variable_count;
}

bool ShapeCanBeHeld(std::size_t record_count, std::size_t variable_count) {
  const std::uint64_t memory = MachineMemory();
  if (variable_count > memory / kShareForVariables / kBytesPerVariable) return false;
  const std::uint64_t cells = memory / kBytesPerCell;
  return variable_count == 0 ? record_count <= cells
                             : record_count <= cells && record_count + kFirstRecordRow <= cells / variable_count;
}

DataContents EmptyContents() {
  // One row more than records and dictionary need: a new data set has a spare one.
  DataContents contents{.matrix = DataMatrix(kFirstRecordRow + kNewRecordCount + 1, kNewVariableCount),
                        .RecordCount = kNewRecordCount,
                        .VariableCount = kNewVariableCount,
                        .GridTitle = std::string(kUntitledGrid)};
  for (std::size_t column = 1; column <= kNewVariableCount; ++column) {
    contents.matrix.SetText(kVariableNameRow, column, "V" + std::to_string(column));
  }
  return contents;
}

void MakeEmptyDataSet(DataSet& data) { BeginData(data, EmptyContents()); }

void RebuildVariableLists(DataSet& data) {
  data.VarList.assign(1, {"None", 0});
  data.VarList.reserve(data.VariableCount + 1);
  for (std::size_t column = 1; column <= data.VariableCount; ++column) {
    data.VarList.push_back({data.VariableName(column), column});
  }
}

}  // namespace tessara
