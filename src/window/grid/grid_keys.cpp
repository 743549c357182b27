#include "window/grid/grid_keys.h"

#include <algorithm>

#include "data/edit/grid_places.h"

namespace tessara {
namespace {

constexpr char16_t kFirstPrintable = 0x20;
constexpr char16_t kRubOut = 0x7F;

// Headings and record numbers are no places that a row or column of cells is left for.
GridPlace OneStep(const DataSet& data, GridPlace place, GridStep step) {
  switch (step) {
    case GridStep::kUp:
      if (place.row > 1) --place.row;
      break;
    case GridStep::kDown:
      if (place.row < data.GridRecords()) ++place.row;
      break;
    case GridStep::kLeft:
      if (place.column > 1) --place.column;
      break;
    case GridStep::kRight:
      if (place.column < data.GridVariables()) ++place.column;
      break;
  }
  return place;
}

std::optional<GridStep> StepOf(int key) {
  switch (key) {
    case Qt::Key_Up:
      return GridStep::kUp;
    case Qt::Key_Down:
      return GridStep::kDown;
    case Qt::Key_Left:
      return GridStep::kLeft;
    case Qt::Key_Right:
      return GridStep::kRight;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<GridPlace> PlaceByKey(const QKeyEvent& event, const DataSet& data, const GridPlace& from,
                                    std::size_t page) {
  const bool far = (event.modifiers() & Qt::ControlModifier) != 0;
  const std::size_t last_row = data.GridRecords();
  const std::size_t last_column = data.GridVariables();
  const std::size_t first_row = std::min<std::size_t>(1, last_row);
  const std::size_t first_column = std::min<std::size_t>(1, last_column);
  if (const auto step = StepOf(event.key())) {
    return far ? EdgeOfData(data, from, *step) : OneStep(data, from, *step);
  }
  switch (event.key()) {
    case Qt::Key_Home:
      return GridPlace{far ? first_row : from.row, first_column};
    case Qt::Key_End:
      return GridPlace{far ? last_row : from.row, last_column};
    case Qt::Key_PageUp:
      return GridPlace{from.row > page ? from.row - page : std::min(from.row, first_row), from.column};
    case Qt::Key_PageDown:
      return GridPlace{std::min(from.row + page, last_row), from.column};
    default:
      return std::nullopt;
  }
}

std::optional<GridPlace> PlaceByTab(const DataSet& data, const GridPlace& from, bool forward) {
  if (forward) {
    if (from.column < data.GridVariables()) return GridPlace{from.row, from.column + 1};
    if (from.row < data.GridRecords()) return GridPlace{from.row + 1, 1};
    return std::nullopt;
  }
  if (from.column > 1) return GridPlace{from.row, from.column - 1};
  if (from.row > 1) return GridPlace{from.row - 1, data.GridVariables()};
  return std::nullopt;
}

QString TypedText(const QKeyEvent& event) {
  const QString text = event.text();
  if (text.isEmpty() || text[0] < QChar(kFirstPrintable) || text[0] == QChar(kRubOut)) return {};
  // Both together type a character on keyboards that have an AltGr; one alone is a command.
  const bool control = (event.modifiers() & Qt::ControlModifier) != 0;
  const bool alt = (event.modifiers() & Qt::AltModifier) != 0;
  if (control != alt || (event.modifiers() & Qt::MetaModifier) != 0) return {};
  return text;
}

}  // namespace tessara
