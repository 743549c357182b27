#pragma once

#include <QTableView>

namespace tessara {

// A sheet of cells in which typing begins an entry: it tells what was typed and edits nothing itself.
class TypingView : public QTableView {
  Q_OBJECT

 public:
  using QTableView::QTableView;

  // Typed characters never make the cursor jump to a cell that begins so.
  void keyboardSearch(const QString& search) override;
  // Takes a text as if it had been typed.
  void TypeText(const QString& text) { emit Typed(text); }

 signals:
  // A character that begins an entry; an empty text begins an empty one.
  void Typed(const QString& text);

 protected:
  // Characters that are composed of several keys.
  void inputMethodEvent(QInputMethodEvent* event) override;
  // Takes a key as typing, or leaves it to others.
  void TypeKey(QKeyEvent& event);
};

}  // namespace tessara
