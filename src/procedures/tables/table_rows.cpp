#include "procedures/tables/table_rows.h"

namespace tessara {

std::string TagPart(std::string_view text) { return std::to_string(text.size()) + ":" + std::string(text); }

TableRowKind KindOfRow(const TableGrid& grid, std::size_t row) {
  static const std::string group = TagPart({}) + std::string(kGroupRow);  // no category, and the heading
  const std::string_view tag = grid.RowTag(row);
  if (tag == kCategoricalBlock || tag == kContinuousBlock) return TableRowKind::kHeading;
  return tag.ends_with(group) ? TableRowKind::kGroup : TableRowKind::kPlain;
}

}  // namespace tessara
