#include "window/reference/find_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolButton>

#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kMostWords = 500;  // characters

}  // namespace

FindBar::FindBar(QTextEdit* page, QWidget* holder) : QWidget(holder), page_(page) {
  setObjectName("FindBar");
  words_ = new QLineEdit(this);
  words_->setObjectName("FindWords");
  words_->setPlaceholderText(tr("Find on this page"));
  words_->setAccessibleName(tr("Find on this page"));
  words_->setClearButtonEnabled(true);
  words_->setMaxLength(kMostWords);
  result_ = new QLabel(this);
  result_->setObjectName("FindResult");
  result_->setTextFormat(Qt::PlainText);

  auto* layout = new QHBoxLayout(this);
  const int gap = fontMetrics().height() / 3;
  layout->setContentsMargins(gap, gap, gap, gap);
  layout->addWidget(words_, 1);
  connect(AddTool("FindPrevious", "go-up", tr("Previous (Shift+F3)")), &QToolButton::clicked, this,
          [this] { Find(true); });
  connect(AddTool("FindNext", "go-down", tr("Next (F3)")), &QToolButton::clicked, this, [this] { Find(false); });
  layout->addWidget(result_);
  connect(AddTool("FindClose", "dialog-close", tr("Close (Esc)")), &QToolButton::clicked, this, &FindBar::Close);
  connect(words_, &QLineEdit::textEdited, this, &FindBar::FindTyped);
  connect(words_, &QLineEdit::returnPressed, this, [this] { Find(false); });
  AddKeys(holder);
  hide();
}

QToolButton* FindBar::AddTool(const char* name, const char* icon, const QString& words) {
  auto* tool = new QToolButton(this);
  tool->setObjectName(name);
  tool->setIcon(ThemeIcon(icon));
  tool->setAutoRaise(true);
  tool->setFocusPolicy(Qt::TabFocus);
  tool->setToolTip(words);
  tool->setAccessibleName(words);
  layout()->addWidget(tool);
  return tool;
}

void FindBar::AddKeys(QWidget* holder) {
  const auto add = [&](const QKeySequence& keys, Qt::ShortcutContext context, auto act) {
    auto* key = new QShortcut(keys, holder);
    key->setContext(context);
    connect(key, &QShortcut::activated, this, act);
    return key;
  };
  // While its view is in front the key leads here from the toolbar too.
  add(QKeySequence::Find, Qt::WindowShortcut, [this] { Open(); });
  add(Qt::Key_F3, Qt::WidgetWithChildrenShortcut, [this] { Find(false); });
  add(Qt::SHIFT | Qt::Key_F3, Qt::WidgetWithChildrenShortcut, [this] { Find(true); });
  escape_ = add(Qt::Key_Escape, Qt::WidgetWithChildrenShortcut, [this] { Close(); });
  escape_->setEnabled(false);
}

void FindBar::Open() {
  show();
  escape_->setEnabled(true);
  const QString selected = page_->textCursor().selectedText();
  if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) words_->setText(selected);
  words_->selectAll();
  words_->setFocus(Qt::ShortcutFocusReason);
}

void FindBar::Close() {
  if (isHidden()) return;
  hide();
  escape_->setEnabled(false);
  page_->setFocus(Qt::OtherFocusReason);
}

bool FindBar::FindFrom(int position, bool backward) {
  const auto flags = backward ? QTextDocument::FindFlags(QTextDocument::FindBackward) : QTextDocument::FindFlags();
  const QTextCursor found = page_->document()->find(words_->text(), position, flags);
  if (found.isNull()) return false;
  page_->setTextCursor(found);
  page_->ensureCursorVisible();
  return true;
}

void FindBar::Find(bool backward) {
  if (words_->text().isEmpty()) return Open();
  const QTextCursor at = page_->textCursor();
  const int last = std::max(0, page_->document()->characterCount() - 1);
  const bool found =
      FindFrom(backward ? at.selectionStart() : at.selectionEnd(), backward) || FindFrom(backward ? last : 0, backward);
  result_->setText(found ? QString() : tr("Not found"));
}

void FindBar::FindTyped() {
  result_->clear();
  QTextCursor at = page_->textCursor();
  const int from = at.selectionStart();
  if (words_->text().isEmpty() || !(FindFrom(from, false) || FindFrom(0, false))) {
    at.setPosition(from);  // no match is shown that is none
    page_->setTextCursor(at);
    if (!words_->text().isEmpty()) result_->setText(tr("Not found"));
  }
}

}  // namespace tessara
