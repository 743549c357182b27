#include "data/value_labels.h"

#include "numerics/number_text.h"

namespace tessara {
namespace {

constexpr std::size_t kShortestSlot = 3;

}  // namespace

std::string ValueLabels::Apply(const TaggedView& label_lookup) const {
  NumberBuffer buffer;
  return std::string(LabelOf(TextOf(label_lookup, buffer)));
}

std::string_view ValueLabels::LabelOf(std::string_view text) const {
  for (const Entry& entry : table) {
    if (entry.value == text) return entry.label;
  }
  return text;
}

ValueLabels LoadValueLabels(const DataMatrix& matrix, std::size_t column) {
  ValueLabels labels;
  for (std::size_t i = 0; i < kValueLabelSlots; ++i) {
    const std::string slot = TextOf(matrix.Cell(kFirstValueLabelRow + i, column));
    if (slot.size() < kShortestSlot) continue;
    labels.NoValueLabels = false;
    const std::size_t equals = slot.find('=');
    labels.table[i].value = slot.substr(0, equals);
    if (equals != std::string::npos) labels.table[i].label = slot.substr(equals + 1);
  }
  return labels;
}

}  // namespace tessara
