#include "data/missing_values.h"

#include <string>

#include "numerics/number_text.h"

namespace tessara {
namespace {

constexpr std::size_t kShortestSpec = 7;  // six bars and one character

}  // namespace

bool MissingValues::HasSingleValues() const {
  for (std::size_t i = 0; i < kSingleMissingEntries; ++i) {
    if (!entries[i].view().is_blank()) return true;
  }
  return false;
}

bool MissingValues::HasBounds() const {
  return !entries[kLowerBoundEntry].view().is_blank() || !entries[kUpperBoundEntry].view().is_blank();
}

Condition MissingValues::IsMissing(const TaggedView& value) const {
  if (value.is_blank()) return true;
  NumberBuffer buffer;
  const std::string_view text = TextOf(value, buffer);
  Condition missing = false;
  for (std::size_t i = 0; i < kSingleMissingEntries; ++i) {
    if (entries[i].view().text() == text) missing = true;
  }
  // A bound is tested even when a single value has matched: a text among the single values still fails the conversion.
  if (const TaggedView lower = entries[kLowerBoundEntry]; !lower.is_blank()) {
    const Condition below = ToNumber(value) < ToNumber(lower);
    if (below.failed()) return below;
    if (below) missing = true;
  }
  if (const TaggedView upper = entries[kUpperBoundEntry]; !upper.is_blank()) {
    const Condition above = ToNumber(value) > ToNumber(upper);
    if (above.failed()) return above;
    if (above) missing = true;
  }
  return missing;
}

MissingValues UnpackMissingSpec(std::string_view missing_spec) {
  MissingValues missing;
  if (missing_spec.size() < kShortestSpec) return missing;
  for (TaggedValue& entry : missing.entries) {
    const std::size_t bar = missing_spec.find('|');
    if (bar == std::string_view::npos) break;
    entry = std::string(missing_spec.substr(0, bar));
    missing_spec.remove_prefix(bar + 1);
  }
  return missing;
}

MissingValues LoadMissingSet(const DataMatrix& matrix, std::size_t column) {
  return UnpackMissingSpec(TextOf(matrix.Cell(kMissingSpecRow, column)));
}

}  // namespace tessara
