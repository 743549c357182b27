#include "window/output/grid_text2.h"

#include <QKeyEvent>

namespace tessara {

std::optional<EntryKey> GridText2::EndingKey(const QKeyEvent& event) const {
  const bool sideways = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
  return sideways && arrows_inside_ ? std::nullopt : CellBox::EndingKey(event);
}

}  // namespace tessara
