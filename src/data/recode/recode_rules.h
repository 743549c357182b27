#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "data/recode/recode_panel.h"
#include "data/recode/source_variable.h"
#include "numerics/checked.h"

// What each mode of the panel makes of a record: the new cell, or nothing, which leaves the cell as it is. A rule is
// asked for the records in their order, from index 0. The view that it yields lives until it is asked again.
//
// A comparison that fails, because a cell is no number, enters its branch; an assignment that fails leaves the cell.

namespace tessara {

using NewCell = std::optional<TaggedView>;

class RecodeByNumber {  // strictly less or greater
 public:
  RecodeByNumber(const RecodePanel& panel, const DataSet& data, SourceVariable::Reading reading);
  NewCell operator()(std::size_t record) const;

 private:
  std::unique_ptr<const SourceVariable> source_;
  bool less_;
  Checked old_value_;
  std::string new_value_;
};

class RecodeByText {  // equal as trimmed text
 public:
  RecodeByText(const RecodePanel& panel, const DataSet& data);
  NewCell operator()(std::size_t record) const;

 private:
  std::unique_ptr<const SourceVariable> source_;
  std::string old_value_;
  std::string new_value_;
};

class RecodeByDate {
 public:
  RecodeByDate(const RecodePanel& panel, const DataSet& data);
  NewCell operator()(std::size_t record);

 private:
  std::unique_ptr<const SourceVariable> source_;
  RecodeOption option_;
  Number old_date_;
  Number cell_date_;  // a cell that is no date leaves that of the one before it
  std::string new_value_;
};

class ComputeByConstant {
 public:
  ComputeByConstant(const RecodePanel& panel, const DataSet& data, SourceVariable::Reading reading);
  NewCell operator()(std::size_t record) const;

 private:
  std::unique_ptr<const SourceVariable> source_;
  ComputeOption option_;
  Checked constant_;
};

class ComputeLog {  // without a test for missing values
 public:
  ComputeLog(const RecodePanel& panel, const DataSet& data, SourceVariable::Reading reading);
  NewCell operator()(std::size_t record) const;

 private:
  std::unique_ptr<const SourceVariable> source_;
};

class ComputeDuplicate {
 public:
  ComputeDuplicate(const RecodePanel& panel, const DataSet& data);
  NewCell operator()(std::size_t record) const;

 private:
  std::unique_ptr<const SourceVariable> source_;
};

class CombineVariables {
 public:
  CombineVariables(const RecodePanel& panel, const DataSet& data, SourceVariable::Reading reading);
  NewCell operator()(std::size_t record);

 private:
  NewCell WithDecimals(Checked value);

  std::unique_ptr<const SourceVariable> first_;
  std::unique_ptr<const SourceVariable> second_;
  CombineOption option_;
  std::string text_;
};

class CompareDates {
 public:
  CompareDates(const RecodePanel& panel, const DataSet& data);
  NewCell operator()(std::size_t record) const;

 private:
  std::unique_ptr<const SourceVariable> first_;
  std::unique_ptr<const SourceVariable> second_;
};

class TrimValues {
 public:
  TrimValues(const RecodePanel& panel, const DataSet& data, SourceVariable::Reading reading);
  NewCell operator()(std::size_t record) const;

 private:
  std::unique_ptr<const SourceVariable> source_;
  Checked lower_;
  Checked upper_;
};

class ReplaceText {
 public:
  ReplaceText(const RecodePanel& panel, const DataSet& data);
  NewCell operator()(std::size_t record);

 private:
  void ReserveFor(std::string_view text, std::size_t at);

  std::unique_ptr<const SourceVariable> source_;
  std::string find_;
  std::string replacement_;
  std::string text_;
  NumberBuffer buffer_;
};

using RecodeRule = std::variant<RecodeByNumber, RecodeByText, RecodeByDate, ComputeByConstant, ComputeLog,
                                ComputeDuplicate, CombineVariables, CompareDates, TrimValues, ReplaceText>;

// The rule of the panel as it stands; nothing in a mode that writes no cell. The data must not change while it lives.
std::optional<RecodeRule> MakeRecodeRule(const RecodePanel& panel, const DataSet& data,
                                         SourceVariable::Reading reading);

}  // namespace tessara
