#pragma once

#include <cstddef>
#include <vector>

#include "procedures/cases/procedure_run.h"
#include "procedures/options.h"
#include "procedures/tables/table_writer.h"

// What a run adds to the summary table: a row variable, for all its cases and for the categories of each of the column
// variables. What cannot be added has an error report; only those go to the log.

namespace tessara {

// Counts and percents of the categories of the row variable.
void AddCategoricalVariable(ProcedureRun& run, TableWriter& writer, const SummaryTableOptions& options,
                            std::size_t rows, const std::vector<std::size_t>& columns);

// Mean, deviation and so on of the row variable.
void AddContinuousVariable(ProcedureRun& run, TableWriter& writer, const SummaryTableOptions& options, std::size_t rows,
                           const std::vector<std::size_t>& columns);

// Above the figures of a variable: its label, or its name where it has none.
std::string VariableHeading(const DataSet& data, std::size_t column);

// A pair of variables, or one of them, whose figures have no room.
inline constexpr std::string_view kTooManyCategories = "There are too many categories for a table.";
inline constexpr std::string_view kTableIsFull = "There is no room left in the table.";

}  // namespace tessara
