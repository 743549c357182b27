#include "window/deskcalc/text_transfer.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

#include "window/grid/typing_view.h"

namespace tessara {
namespace {

bool InsertInto(QWidget* place, const QString& text) {
  if (auto* line = qobject_cast<QLineEdit*>(place); line && !line->isReadOnly()) {
    line->insert(text);
    return true;
  }
  if (auto* combo = qobject_cast<QComboBox*>(place); combo && combo->lineEdit()) {
    return InsertInto(combo->lineEdit(), text);
  }
  if (auto* edit = qobject_cast<QTextEdit*>(place); edit && !edit->isReadOnly()) {
    edit->insertPlainText(text);
    return true;
  }
  if (auto* edit = qobject_cast<QPlainTextEdit*>(place); edit && !edit->isReadOnly()) {
    edit->insertPlainText(text);
    return true;
  }
  if (auto* sheet = qobject_cast<TypingView*>(place)) {
    sheet->TypeText(text);
    return true;
  }
  return false;
}

}  // namespace

bool TransferText(QWidget* window, const QString& text) {
  QWidget* place = window->focusWidget();
  if (!place || !place->isVisible() || !place->isEnabled()) return false;
  window->activateWindow();
  return InsertInto(place, text);
}

}  // namespace tessara
