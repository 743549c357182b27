#pragma once

#include <QLineEdit>
#include <optional>

#include "data/edit/cell_entry.h"

namespace tessara {

// A box of one line, laid over a cell of a table while it is typed into.
class CellBox : public QLineEdit {
  Q_OBJECT

 public:
  // A longer text is not edited here.
  static constexpr int kMostCharacters = 100'000;

  CellBox(const char* name, QWidget* parent);

  // Lays the box over a cell with a text in it, the insertion point at its end.
  void Open(QWidget* ground, const QRect& place, const QString& text);

 signals:
  void Ended(EntryKey key);
  void Tabbed(bool forward);
  void Escaped();
  // The keyboard has gone to another widget.
  void Left();

 protected:
  // The key that ends the entry; nothing for one that edits its text.
  virtual std::optional<EntryKey> EndingKey(const QKeyEvent& event) const;

  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessara
