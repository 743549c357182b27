#include "window/widgets/cell_box.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>

namespace tessara {

CellBox::CellBox(const char* name, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setAccessibleName(tr("Cell"));
  setFrame(false);
  setMaxLength(kMostCharacters);
  hide();
}

void CellBox::Open(QWidget* ground, const QRect& place, const QString& text) {
  if (parentWidget() != ground) setParent(ground);
  setGeometry(place);
  setText(text);
  end(false);
  show();
  raise();
  setFocus();
  end(false);  // what takes the keyboard may select its text
}

std::optional<EntryKey> CellBox::EndingKey(const QKeyEvent& event) const {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
      return EntryKey::kDown;
    case Qt::Key_Up:
      return EntryKey::kUp;
    case Qt::Key_Left:
      return EntryKey::kLeft;
    case Qt::Key_Right:
      return EntryKey::kRight;
    default:
      return std::nullopt;
  }
}

// Tab would go to the next widget ahead of any key handler.
bool CellBox::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool control = (key->modifiers() & Qt::ControlModifier) != 0;
    if (!control && (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)) {
      emit Tabbed(key->key() == Qt::Key_Tab);
      return true;
    }
  }
  return QLineEdit::event(event);
}

void CellBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    emit Escaped();
  } else if (const auto key = EndingKey(*event)) {
    emit Ended(*key);
  } else {
    QLineEdit::keyPressEvent(event);
  }
  event->accept();  // no key of an entry reaches the table beneath
}

// A menu or another window has the keyboard for a while only.
void CellBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason) {
    return;
  }
  emit Left();
}

// The box has its own menu, of the text; that of the table stays away.
void CellBox::contextMenuEvent(QContextMenuEvent* event) {
  QLineEdit::contextMenuEvent(event);
  event->accept();
}

void CellBox::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace tessara
