#include "window/frame/search_box.h"

#include <QKeyEvent>

namespace tessara {
namespace {

constexpr int kMostTyped = 3000;  // as long as a note's text

QString Hint() { return QStringLiteral("Enter Search String..."); }

}  // namespace

SearchBox::SearchBox(QWidget* parent) : QLineEdit(parent) {
  setMaxLength(kMostTyped);
  ShowText({});
  connect(this, &QLineEdit::textEdited, this, [this] { emit Typed(Text()); });
  connect(this, &QLineEdit::returnPressed, this, [this] {
    if (!Text().isEmpty()) emit SearchAsked();
  });
}

QString SearchBox::Text() const { return text() == Hint() ? QString() : text(); }

void SearchBox::ShowText(const QString& typed) {
  setText(typed.isEmpty() ? Hint() : typed);
  setCursorPosition(0);
}

void SearchBox::SelectHint() {
  if (text() == Hint()) selectAll();
}

void SearchBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return emit ResetAsked();
  SelectHint();
  QLineEdit::keyPressEvent(event);
}

void SearchBox::inputMethodEvent(QInputMethodEvent* event) {
  SelectHint();
  QLineEdit::inputMethodEvent(event);
}

void SearchBox::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  SelectHint();
}

void SearchBox::dropEvent(QDropEvent* event) {
  if (text() == Hint()) clear();
  QLineEdit::dropEvent(event);
}

void SearchBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason) selectAll();
}

void SearchBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (text().isEmpty()) ShowText({});
}

}  // namespace tessara
