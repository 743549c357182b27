#pragma once

#include <string>

#include "procedures/compare/options.h"
#include "procedures/describe/options.h"
#include "procedures/relate/options.h"

// The options of all procedures, as the panel holds them.

namespace tessara {

enum class TableData { kCategorical, kContinuous };  // Option15, Option16

// What a table shows of a category, of continuous data, and how.
struct SummaryTableOptions {
  bool counts = false;
  bool percent = false;
  bool count = false;
  bool mean = false;
  bool sum = false;
  bool standard_deviation = false;
  bool standard_error = false;
  bool interval = false;  // of 95 percent
  std::string output_format = "0.0";
};

struct ProcedureOptions {
  FrequenciesOptions frequencies;
  DescriptivesOptions descriptives;
  CrosstabulationOptions crosstabulation;
  TTestOptions t_test;
  AnovaOptions anova;
  CorrelationOptions correlation;
  LeastSquaresOptions least_squares;
  LogisticOptions logistic;
  ListOptions list;
  SummaryTableOptions summary_tables;
};

}  // namespace tessara
