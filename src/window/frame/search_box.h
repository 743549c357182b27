#pragma once

#include <QLineEdit>

namespace tessara {

// A box for a text to search for. While there is none it shows a text that says so, which nobody has to delete:
// whatever is done to it takes its place, and it is never searched for.
class SearchBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit SearchBox(QWidget* parent);

  // What has been typed; nothing while the box only says what it is for.
  QString Text() const;
  void ShowText(const QString& typed);

 signals:
  void Typed(const QString& typed);
  // Enter behind a text.
  void SearchAsked();
  // Escape: all that was searched for may show again.
  void ResetAsked();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // Ahead of whatever may change the text.
  void SelectHint();
};

}  // namespace tessara
