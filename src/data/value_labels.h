#pragma once

#include <array>
#include <string>
#include <string_view>

#include "data/data_matrix.h"

// Value labels of a variable: eight dictionary cells, each empty or "value=label", split at the first equals sign. A
// cell shorter than 3 characters counts as empty; one without an equals sign is a value with an empty label.

namespace tessara {

struct ValueLabels {
  struct Entry {
    std::string value;
    std::string label;
  };
  std::array<Entry, kValueLabelSlots> table;
  bool NoValueLabels = true;  // no slot was usable

  // The label of a value, or the value itself when no entry has it. The first match counts; a number meets an entry by
  // its general text.
  std::string Apply(const TaggedView& label_lookup) const;
  // The same without a copy of a long text: what it yields lives as long as the labels and the text do.
  std::string_view LabelOf(std::string_view text) const;
};

ValueLabels LoadValueLabels(const DataMatrix& matrix, std::size_t column);

}  // namespace tessara
