#include "window/grid/grid_text1.h"

#include <QKeyEvent>

namespace tessara {
namespace {

constexpr QChar kComma = u',';

}  // namespace

void GridText1::keyPressEvent(QKeyEvent* event) {
  if (event->text() != kComma) return CellBox::keyPressEvent(event);
  emit CommaTyped();
  event->accept();
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

}  // namespace tessara
