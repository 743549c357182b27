#include "window/grid/name_box.h"

#include <QKeyEvent>

namespace tessara {
namespace {

constexpr int kMostShown = 200;
constexpr int kWidth = 18;  // characters

}  // namespace

NameBox::NameBox(QWidget* parent) : QLineEdit(parent) {
  setObjectName("NameBox");
  setAccessibleName(tr("Record and variable"));
  setToolTip(tr("Record and variable of the cursor: type others to go there (Ctrl+G)"));
  setPlaceholderText(tr("Record Variable"));
  setFixedWidth(fontMetrics().averageCharWidth() * kWidth);
}

void NameBox::ShowName(const QString& name) {
  if (name == name_) return;
  name_ = name;
  if (hasFocus()) return;
  setText(name.left(kMostShown));
  setCursorPosition(0);
}

void NameBox::Ask() {
  setFocus(Qt::ShortcutFocusReason);
  selectAll();
}

void NameBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    emit Named(text());
  } else if (event->key() == Qt::Key_Escape) {
    emit GivenUp();
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

void NameBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) return;
  setText(name_.left(kMostShown));
  setCursorPosition(0);
}

}  // namespace tessara
