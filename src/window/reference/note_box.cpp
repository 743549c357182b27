#include "window/reference/note_box.h"

#include <QScopedValueRollback>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

#include "window/widgets/text.h"

namespace tessara {

NoteBox::NoteBox(int limit, QWidget* parent) : QPlainTextEdit(parent), limit_(limit) {
  setTabChangesFocus(true);
  connect(document(), &QTextDocument::contentsChange, this, [this](int position, int, int added) {
    if (cutting_) return;
    last_at_ = position;
    last_added_ = added;
  });
  connect(this, &QPlainTextEdit::textChanged, this, &NoteBox::KeepLimit);
}

void NoteBox::ShowText(const QString& text) {
  const QScopedValueRollback<bool> guard(cutting_, true);
  setPlainText(text);
}

QString NoteBox::Text() const {
  QString text = document()->toRawText();
  text.replace(QChar::ParagraphSeparator, '\n');
  text.replace(QChar::LineSeparator, '\n');
  return text;
}

int NoteBox::Used() const { return static_cast<int>(FromQtLines(Text()).size()); }

// Takes back the end of what came in last, in the same step of undo.
void NoteBox::KeepLimit() {
  if (cutting_ || Used() <= limit_) return;
  const QScopedValueRollback<bool> guard(cutting_, true);
  const QString text = Text();
  qsizetype end = std::min<qsizetype>(last_at_ + last_added_, text.size());
  qsizetype from = end;
  for (int surplus = Used() - limit_; surplus > 0 && from > last_at_; --from) surplus -= text[from - 1] == '\n' ? 2 : 1;
  QTextCursor cursor(document());
  cursor.joinPreviousEditBlock();
  cursor.setPosition(static_cast<int>(from));
  cursor.setPosition(static_cast<int>(end), QTextCursor::KeepAnchor);
  cursor.removeSelectedText();
  cursor.endEditBlock();
}

}  // namespace tessara
