#include "procedures/samples/create_subset.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "data/cell_key.h"
#include "data/change_door.h"
#include "data/progress.h"
#include "data/record_choice.h"
#include "numerics/number_text.h"
#include "procedures/samples/grid_room.h"
#include "procedures/samples/say_afterwards.h"

namespace tessara {
namespace {

bool ComparesWithValue(ControlRelation relation) {
  return relation == ControlRelation::kGreaterThan || relation == ControlRelation::kLessThan ||
         relation == ControlRelation::kEqualTo || relation == ControlRelation::kNotEqualTo;
}

bool IsEqual(const TaggedView& cell, std::string_view value) {
  const Checked number = ToNumber(value);
  const Checked of_cell = ToNumber(cell);
  if (!number.failed() && !of_cell.failed()) return of_cell.value() == number.value();
  NumberBuffer buffer;
  return TextOf(cell, buffer) == value;
}

bool Passes(const TaggedView& cell, const MissingValues& missing_values, const ControlChoice& control) {
  Condition missing = missing_values.IsMissing(cell);
  if (control.relation == ControlRelation::kAllMissing) missing = !missing;
  if (missing) return false;  // also when the test has failed
  switch (control.relation) {
    case ControlRelation::kGreaterThan:
      return static_cast<bool>(ToNumber(cell) > ToNumber(control.value));
    case ControlRelation::kLessThan:
      return static_cast<bool>(ToNumber(cell) < ToNumber(control.value));
    case ControlRelation::kEqualTo:
      return IsEqual(cell, control.value);
    case ControlRelation::kNotEqualTo:
      return !IsEqual(cell, control.value);
    default:
      return true;
  }
}

SubsetOutcome RefuseSubset(Messages& messages) {
  messages.ShowMessage(
      {"Procedure Aborted", "An expected control value was not found or the results failed to produce any records."});
  return SubsetOutcome::kRefused;
}

RecordOrder IndexesOf(const std::vector<std::uint8_t>& passing) {
  RecordOrder records;
  records.reserve(static_cast<std::size_t>(std::ranges::count(passing, 1)));
  for (std::size_t record = 0; record < passing.size(); ++record) {
    if (passing[record] != 0) records.push_back(static_cast<std::uint32_t>(record));
  }
  return records;
}

}  // namespace

std::vector<std::uint8_t> SubsetRecords(const DataSet& data, std::size_t control_column, const ControlChoice& control) {
  const MissingValues missing = LoadMissingSet(data.matrix, control_column);
  std::vector<std::uint8_t> passing(data.RecordCount);
  CellMemo<std::uint8_t> memo;  // equal cells are decided once
  const auto decide = [&](const TaggedView& cell) {
    return static_cast<std::uint8_t>(Passes(cell, missing, control) ? 1 : 0);
  };
  data.matrix.ForEachRecord(control_column, data.RecordCount, [&](std::size_t record, const TaggedView& cell) {
    passing[record] = memo.Get(cell, decide);
  });
  return passing;
}

SubsetOutcome CreateSubset(DataSet& data, std::size_t control_column, const ControlChoice& control,
                           Platform& platform) {
  const Answer answer = platform.ShowMessage(
      {"Replace current data?", "Creating a subset will replace the current data. Click NO to abort this procedure.",
       Buttons::kYesNo, Tone::kQuestion});
  if (answer != Answer::kYes) return SubsetOutcome::kDeclined;
  if (ComparesWithValue(control.relation) && control.value.empty()) return RefuseSubset(platform);
  if (data.RecordCount > kMostRecordsOfAChoice) throw std::length_error("records");

  Progress progress(platform);
  const auto most = static_cast<double>(data.RecordCount);
  progress.ProgressOpen(0, most - 1, "Selecting cases by control value ...", 0);
  RecordOrder records = IndexesOf(SubsetRecords(data, control_column, control));
  progress.ProgressStep(most);
  if (records.empty()) return RefuseSubset(platform);
  progress.ProgressOpen(0, static_cast<double>(records.size()), "Updating data grid ...", 0);
  ApplyChange(data, ChooseRecords(data, std::move(records), "Create Subset"));
  progress.ProgressHide(true);

  SayAfterwards([&] {
    platform.SetStatusPane(1, GridRoomText(data));
    platform.ShowMessage({"Subgroup Procedure Completed!",
                          "A subset of the original data file has been created.  To keep this data file, please save "
                          "using a different name than the original data file.",
                          Buttons::kOk, Tone::kInformation});
  });
  return SubsetOutcome::kMade;
}

}  // namespace tessara
