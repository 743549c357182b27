#include "window/grid/typing_view.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

#include "window/grid/grid_keys.h"

namespace tessara {

void TypingView::keyboardSearch(const QString& search) { Q_UNUSED(search); }

void TypingView::inputMethodEvent(QInputMethodEvent* event) {
  if (!event->commitString().isEmpty()) emit Typed(event->commitString());
  event->accept();
}

void TypingView::TypeKey(QKeyEvent& event) {
  const QString text = TypedText(event);
  if (text.isNull()) {
    event.ignore();
  } else {
    emit Typed(text);
  }
}

}  // namespace tessara
