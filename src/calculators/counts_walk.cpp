#include "calculators/counts_walk.h"

#include <algorithm>
#include <array>
#include <string>

namespace tessara {
namespace {

constexpr int kSide = 5;
constexpr int kLeast = 2;  // a table has two columns and two rows
using Labels = std::array<std::string_view, kSide>;
constexpr Labels kColumnLabels = {"Text1", "Text2", "Text3", "Text4", "Text5"};
constexpr Labels kRowLabels = {"Text6", "Text7", "Text8", "Text9", "Text10"};

std::string CountName(int column, int row) { return "C" + std::to_string(column) + "R" + std::to_string(row); }

// What is in use of the rows or of the columns, by their numbers from 1.
struct Lines {
  std::array<bool, kSide + 1> used{};
  bool labels_tell = false;  // how many there will be

  int UsedCount() const { return static_cast<int>(std::ranges::count(used, true)); }
  bool AnyFrom(int line) const {
    return std::any_of(used.begin() + line, used.end(), [](bool is) { return is; });
  }
  int FirstUsed() const {
    return UsedCount() < kLeast ? 1 : static_cast<int>(std::ranges::find(used, true) - used.begin());
  }
  // The next line in use; else the one behind, where it is offered; 0 for the end.
  int Behind(int line, bool offered) const {
    for (int next = line + 1; next <= kSide; ++next) {
      if (used[static_cast<std::size_t>(next)]) return next;
    }
    return line < kSide && (offered || UsedCount() < kLeast) ? line + 1 : 0;
  }
};

struct UsedLines {
  Lines columns;
  Lines rows;
};

Lines Labelled(const BrevarumPanel& panel, const Labels& labels) {
  Lines lines;
  for (std::size_t i = 0; i < labels.size(); ++i) lines.used[i + 1] = !panel.Box(labels[i]).empty();
  lines.labels_tell = lines.UsedCount() >= kLeast;
  return lines;
}

UsedLines LinesInUse(const BrevarumPanel& panel) {
  UsedLines lines{Labelled(panel, kColumnLabels), Labelled(panel, kRowLabels)};
  for (int row = 1; row <= kSide; ++row) {
    for (int column = 1; column <= kSide; ++column) {
      if (panel.Box(CountName(column, row)).empty()) continue;
      lines.columns.used[static_cast<std::size_t>(column)] = true;
      lines.rows.used[static_cast<std::size_t>(row)] = true;
    }
  }
  return lines;
}

// The box as the panel's row names it, whose text outlives this call.
std::string_view CountBox(const BrevarumPanel& panel, int column, int row) {
  return FindBrevarumBox(CurrentRow(panel), CountName(column, row))->name;
}

std::string_view BehindCount(const BrevarumPanel& panel, int column, int row) {
  const auto [columns, rows] = LinesInUse(panel);
  if (row > kLeast && !rows.AnyFrom(row)) return kCalculateNext;
  const bool filled = !panel.Box(CountName(column, row)).empty();
  const bool offered = row == 1 && filled && !columns.labels_tell;
  if (const int next = columns.Behind(column, offered)) return CountBox(panel, next, row);
  const int next_row = rows.Behind(row, !rows.labels_tell);
  return next_row == 0 ? kCalculateNext : CountBox(panel, columns.FirstUsed(), next_row);
}

}  // namespace

std::string_view BoxBehindInCounts(const BrevarumPanel& panel, std::string_view box) {
  const int first_column = LinesInUse(panel).columns.FirstUsed();
  if (const auto label = std::ranges::find(kRowLabels, box); label != kRowLabels.end()) {
    return CountBox(panel, first_column, static_cast<int>(label - kRowLabels.begin()) + 1);
  }
  if (const auto label = std::ranges::find(kColumnLabels, box); label != kColumnLabels.end()) {
    // From label to label; an empty one ends them.
    const bool more = label + 1 != kColumnLabels.end() && !panel.Box(box).empty();
    return more ? label[1] : CountBox(panel, first_column, 1);
  }
  return BehindCount(panel, box[1] - '0', box[3] - '0');
}

}  // namespace tessara
