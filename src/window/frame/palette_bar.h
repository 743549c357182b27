#pragma once

#include <QToolBar>
#include <QToolButton>

class QAction;

namespace tessara {

// A button with words beside its icon where there is room for them, and the icon alone where there is not.
class YieldingButton : public QToolButton {
  Q_OBJECT

 public:
  explicit YieldingButton(QWidget* parent);

  QSize sizeHint() const override { return wide_; }
  QSize minimumSizeHint() const override { return narrow_; }

 signals:
  void Measured(int least_width);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void Measure();

  QSize wide_;
  QSize narrow_;
};

// The bar at the right end of the toolbars, in every view: it opens the command palette.
QToolBar* MakePaletteBar(QAction* command, QWidget* frame);

}  // namespace tessara
