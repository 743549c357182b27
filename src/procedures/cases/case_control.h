#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "data/data_set.h"
#include "data/missing_values.h"

// The case control: every procedure can be limited to part of the cases by a control variable with an optional relation
// and value. Nothing is stored; the filter is applied while a procedure reads the data.

namespace tessara {

enum class ControlRelation {
  kNone,
  kGreaterThan,  // Option8, Text1
  kLessThan,     // Option9, Text2
  kEqualTo,      // Option10, Text3
  kNotEqualTo,   // Option11, Text4
  kAllMissing,   // Option13
  kNoMissing,    // Option14
};

// The variable of the case control, shown in Text18.
struct ControlVariable {
  std::size_t column = 0;  // 0 for none
  std::string name;        // as it was when the variable was set
};

struct ControlChoice {
  ControlRelation relation = ControlRelation::kNone;
  std::string value;  // the text of the relation's field; an empty one makes it no relation
};

// How "not equal to" compares. The reports compare texts; the pass that saves z-scores compares numbers, so that the
// scores can disagree with the reported statistics for a text value.
enum class NotEqualReading { kAsText, kAsNumber };

// The filter of one run: the control variable with its missing values, relation and value, read from the data set and
// the panel when the run begins.
class CaseControl {
 public:
  // Column 0, and one that the data do not have, count as no control variable.
  CaseControl(const DataSet& data, std::size_t column, const ControlChoice& choice);

  // Whether there is a control variable at all.
  bool active() const { return column_ != 0; }
  std::size_t column() const { return column_; }

  // Whether one case may be used, decided on the cell of the control variable alone.
  bool CasePasses(const TaggedView& control_cell, NotEqualReading reading = NotEqualReading::kAsText) const;

  // The whole filter at once: a flag for each of the first record_count records; empty when there is no control
  // variable and every case passes. One pass over the control column; equal cells are decided once.
  std::vector<std::uint8_t> PassingCases(std::size_t record_count,
                                         NotEqualReading reading = NotEqualReading::kAsText) const;

  // "Controlling for NAME > 3" and two line ends, the start of a report; nothing without a control variable.
  std::string ControlCaption() const;
  // The same words without the line ends, the footnote of the run's charts.
  std::string ChartFootnote() const;
  // "Control: NAME > 3", the form of the tables.
  std::string ControlLabel() const;

 private:
  const DataSet& data_;
  std::size_t column_ = 0;
  ControlChoice choice_;
  MissingValues missing_;
  std::string words_;  // name, operator and value
};

}  // namespace tessara
