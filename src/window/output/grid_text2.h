#pragma once

#include "window/widgets/cell_box.h"

namespace tessara {

// The floating editor of the summary table. A text that is typed anew ends with any arrow key; in one that is edited
// the arrows to the left and to the right move the insertion point.
class GridText2 : public CellBox {
  Q_OBJECT

 public:
  explicit GridText2(QWidget* parent) : CellBox("GridText2", parent) {}

  void LetArrowsMoveInText(bool inside) { arrows_inside_ = inside; }

 protected:
  std::optional<EntryKey> EndingKey(const QKeyEvent& event) const override;

 private:
  bool arrows_inside_ = false;
};

}  // namespace tessara
