#pragma once

#include <QLineEdit>

#include "data/edit/cell_entry.h"

namespace tessara {

// The overlay box: one line, laid over the current cell while it is typed into.
class GridText1 : public QLineEdit {
  Q_OBJECT

 public:
  // A longer text is not edited here.
  static constexpr int kMostCharacters = 100'000;

  explicit GridText1(QWidget* parent = nullptr);

  // Lays the box over a cell with a text in it, the insertion point at its end.
  void Open(QWidget* ground, const QRect& place, const QString& text);

 signals:
  void Ended(EntryKey key);
  void Tabbed(bool forward);
  void Escaped();
  void CommaTyped();
  // The keyboard has gone to another widget.
  void Left();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessara
