#include <charconv>
#include <optional>
#include <string>
#include <string_view>

#include "batch/commands/commands.h"
#include "batch/words/script_line.h"
#include "batch/words/variable_lists.h"
#include "data/edit/cell_entry.h"
#include "data/edit/rows_and_columns.h"

// The commands of the grid: what a user does there by hand, with the same rules.

namespace tessara {
namespace {

// A record's number as a word has it; 0 stands for the heading.
std::optional<std::size_t> RecordNumber(std::string_view word) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

std::string NoRecord(std::string_view word) { return "there is no record " + Quoted(word); }

CommandResult RunCell(Batch& batch, const CommandWords& words) {
  if (words.words.size() < 3) return NotUnderstood(words.words.size() == 1 ? "VAR is missing" : "TEXT is missing");
  DataSet& data = batch.session.data;
  const auto record = RecordNumber(words.words[0]);
  if (!record || *record > data.RecordCount) return NotUnderstood(NoRecord(words.words[0]));
  const auto column = FindVariable(data, words.words[1]);
  if (!column) return NotUnderstood(UnknownVariable(words.words[1]));
  MoveCursor(data, {*record, *column});
  CellEntry entry;
  if (!StartEntry(entry, data, batch.platform)) return Done();
  entry.text = WithoutCommas(HeldText(words.words[2]), batch.platform);
  CommitByKey(entry, data, EntryKey::kDown);
  return Done();
}

CommandResult RunAddRows(Batch& batch, const CommandWords&) {
  AddRowsByHand(batch.session.data, batch.platform);
  return Done();
}

CommandResult RunAddColumn(Batch& batch, const CommandWords&) {
  AddColumnByHand(batch.session.data, batch.platform);
  return Done();
}

CommandResult RunDeleteRows(Batch& batch, const CommandWords& words) {
  DataSet& data = batch.session.data;
  const auto first = RecordNumber(words.words.front());
  const auto last = RecordNumber(words.words.back());
  if (!first) return NotUnderstood(NoRecord(words.words.front()));
  if (!last) return NotUnderstood(NoRecord(words.words.back()));
  const GridBlock block = BlockBetween({*first, 0}, {*last, data.GridVariables()});
  if (block.first_row > data.RecordCount) return NotUnderstood(NoRecord(std::to_string(block.first_row)));
  MoveCursor(data, {*first, 0});
  DeleteRowsByHand(data, block, batch.platform);
  return Done();
}

CommandResult RunDeleteColumns(Batch& batch, const CommandWords& words) {
  DataSet& data = batch.session.data;
  const auto first = FindVariable(data, words.words.front());
  if (!first) return NotUnderstood(UnknownVariable(words.words.front()));
  const auto last = FindVariable(data, words.words.back());
  if (!last) return NotUnderstood(UnknownVariable(words.words.back()));
  MoveCursor(data, {0, *first});
  DeleteColumnsByHand(data, BlockBetween({0, *first}, {data.GridRecords(), *last}), batch.platform);
  return Done();
}

}  // namespace

constinit const CommandRow kCellCommand{
    .name = "cell",
    .synopsis = "RECORD VAR TEXT",
    .summary = "type a text into a cell",
    .details =
        "Types TEXT into the cell of the variable VAR in the record RECORD, counted from 1; in\n"
        "record 0 it becomes the variable's name. Commas are prohibited and left out. Where one\n"
        "more variable would bring the data to the edit limit of 200,000 cells, no cell can be\n"
        "typed into.\n",
    .example = "cell 12 AGE 34",
    .most_words = 3,
    .needed_word = "RECORD",
    .run = RunCell,
};

constinit const CommandRow kAddRowsCommand{
    .name = "add-rows",
    .summary = "add ten records",
    .details =
        "Adds ten empty records behind the last one. Refused when the data have reached the edit\n"
        "limit of 200,000 cells.\n",
    .example = "add-rows",
    .run = RunAddRows,
};

constinit const CommandRow kAddColumnCommand{
    .name = "add-column",
    .summary = "add a variable",
    .details =
        "Adds an empty variable behind the last one, named V and its number. Refused when the\n"
        "data have reached the edit limit of 200,000 cells.\n",
    .example = "add-column",
    .run = RunAddColumn,
};

constinit const CommandRow kDeleteRowsCommand{
    .name = "delete-rows",
    .synopsis = "FIRST [LAST]",
    .summary = "delete records",
    .details =
        "Deletes the record FIRST, or the records from FIRST to LAST, which may go beyond the\n"
        "last one. The only record of the data cannot be deleted.\n",
    .example = "delete-rows 101 120",
    .most_words = 2,
    .needed_word = "FIRST",
    .run = RunDeleteRows,
};

constinit const CommandRow kDeleteColumnsCommand{
    .name = "delete-columns",
    .synopsis = "VAR [VAR]",
    .summary = "delete variables",
    .details =
        "Deletes a variable, or those from the first VAR to the second one. The only variable\n"
        "of the data cannot be deleted.\n",
    .example = "delete-columns V18 V20",
    .most_words = 2,
    .needed_word = "VAR",
    .run = RunDeleteColumns,
};

}  // namespace tessara
