#pragma once

#include "window/widgets/cell_box.h"

namespace tessara {

// The overlay box of the Data Grid, which refuses commas.
class GridText1 : public CellBox {
  Q_OBJECT

 public:
  explicit GridText1(QWidget* parent = nullptr) : CellBox("GridText1", parent) {}

 signals:
  void CommaTyped();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
};

}  // namespace tessara
