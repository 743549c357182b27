#include "window/grid/grid_text1.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <optional>

namespace tessara {
namespace {

constexpr QChar kComma = u',';

// The key that ends the entry; nothing for one that edits its text.
std::optional<EntryKey> EndingKey(const QKeyEvent& event) {
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

}  // namespace

GridText1::GridText1(QWidget* parent) : QLineEdit(parent) {
  setObjectName("GridText1");
  setAccessibleName(tr("Cell"));
  setFrame(false);
  setMaxLength(kMostCharacters);
  hide();
}

void GridText1::Open(QWidget* ground, const QRect& place, const QString& text) {
  if (parentWidget() != ground) setParent(ground);
  setGeometry(place);
  setText(text);
  end(false);
  show();
  raise();
  setFocus();
  end(false);  // what takes the keyboard may select its text
}

// Tab would go to the next widget ahead of any key handler.
bool GridText1::event(QEvent* event) {
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

void GridText1::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    emit Escaped();
  } else if (const auto key = EndingKey(*event)) {
    emit Ended(*key);
  } else if (event->text() == kComma) {
    emit CommaTyped();
  } else {
    QLineEdit::keyPressEvent(event);
  }
  event->accept();  // no key of an entry reaches the grid beneath
}

// Characters that are composed of several keys: each comma is refused like a typed one.
void GridText1::inputMethodEvent(QInputMethodEvent* event) {
  QString composed = event->commitString();
  const auto commas = composed.count(kComma);
  composed.remove(kComma);
  event->setCommitString(composed, event->replacementStart(), event->replacementLength());
  QLineEdit::inputMethodEvent(event);
  for (qsizetype i = 0; i < commas; ++i) emit CommaTyped();
}

// A menu or another window has the keyboard for a while only.
void GridText1::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason) {
    return;
  }
  emit Left();
}

// The box has its own menu, of the text; that of the grid stays away.
void GridText1::contextMenuEvent(QContextMenuEvent* event) {
  QLineEdit::contextMenuEvent(event);
  event->accept();
}

void GridText1::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace tessara
