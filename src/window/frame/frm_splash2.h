#pragma once

#include <QWidget>

// The splash window: product, version and mark, on top of everything while the program starts.

namespace tessara {

class FrmSplash2 : public QWidget {
  Q_OBJECT

 public:
  FrmSplash2();

  // Shows itself in the middle of a screen and paints at once.
  void ShowNow();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessara
