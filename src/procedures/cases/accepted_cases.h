#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "data/data_set.h"
#include "procedures/cases/case_source.h"

// The cases that a procedure of two or more variables may use: deletion is listwise over the variables of the run, and
// each variable is tested against its own missing values.

namespace tessara {

// A flag for each record, 1 while nothing has dropped its case.
using CaseFlags = std::vector<std::uint8_t>;

// A categorical variable, read once: equal cells have one code, and what depends on the cell alone is decided for the
// code. Refers to the matrix, which must not change while it lives.
struct CodedColumn {
  std::vector<std::uint32_t> codes;  // of each record
  std::vector<TaggedView> cells;     // of each code, in the order in which they are met
  CaseFlags missing;                 // of each code: the value is missing, or the test has failed
};
CodedColumn ReadCodedColumn(const CaseSource& source, std::size_t column);

// The records that pass the control; all of them without one.
CaseFlags PassingRecords(const CaseSource& source);
// Drops the records whose cell is missing or not a number.
void DropUnlessNumber(const CaseSource& source, std::size_t column, CaseFlags& records);
// Drops the records whose cell is missing.
void DropMissing(const CodedColumn& column, CaseFlags& records);

std::size_t CountCases(const CaseFlags& records);

// Numbers of the accepted cases, in grid order, one vector for each of the variables asked for.
struct NumberCases {
  std::vector<std::vector<double>> variables;
  CaseFlags accepted;       // of each record
  std::size_t n = 0;        // cases
  std::size_t missing = 0;  // records that were not accepted
};
NumberCases GatherNumberCases(const CaseSource& source, std::span<const std::size_t> columns);

// A category of a categorical variable.
struct Category {
  TaggedView value;
  std::string label;  // its value label, else the value itself
};

// The categories of a variable among the accepted cases, ascending by stored value (numbers ahead of texts, texts by
// byte, never by label), and the category of each code.
struct Categories {
  static constexpr std::uint32_t kNone = ~std::uint32_t{0};

  std::vector<Category> list;
  std::vector<std::uint32_t> of_code;  // kNone for a code that no accepted case has
};
Categories MakeCategories(const DataSet& data, std::size_t column, const CodedColumn& coded, const CaseFlags& records);

// "Y by X", the names of two variables in an error head.
std::string NamesOfPair(const DataSet& data, std::size_t first, std::size_t second);

}  // namespace tessara
