#include "window/reference/glossary1.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QVBoxLayout>

#include "window/reference/note_box.h"
#include "window/reference/note_list.h"
#include "window/system/page_painter.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/hint_label.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kListShare = 1;  // of the width, against that of the note
constexpr int kNoteShare = 2;
constexpr int kListColumns = 26;

QString CounterText(qsizetype used, std::size_t limit) {
  return QString("%1 characters used (%2 remaining)").arg(used).arg(static_cast<qsizetype>(limit) - used);
}

}  // namespace

Glossary1::Glossary1(Session& the_session, QWidget* parent) : ViewForm(the_session, View::ViewGlossary, parent) {
  setObjectName("Glossary1");
  auto* layout = new QVBoxLayout(this);
  const int gap = fontMetrics().height() / 2;
  layout->setContentsMargins(gap, gap, gap, gap);
  layout->setSpacing(gap);
  layout->addWidget(MakeHead());
  auto* halves = new QSplitter(Qt::Horizontal, this);
  halves->setObjectName("GlossaryHalves");
  halves->setChildrenCollapsible(false);
  halves->setHandleWidth(gap);
  halves->addWidget(MakeList());
  halves->addWidget(MakeNote());
  halves->setStretchFactor(0, kListShare);
  halves->setStretchFactor(1, kNoteShare);
  layout->addWidget(halves, 1);
  FollowFont(this, [this] { ApplyType(); });

  connect(Text1, &QLineEdit::textEdited, this, &Glossary1::UserEdited);
  connect(Text2, &QPlainTextEdit::textChanged, this, &Glossary1::UserEdited);
  const auto selection = [this] {
    if (State().note_has_selection != has_selection_) {
      has_selection_ = !has_selection_;
      if (!showing_) emit SessionChanged();
    }
  };
  connect(Text1, &QLineEdit::selectionChanged, this, selection);
  connect(Text2, &QPlainTextEdit::selectionChanged, this, selection);
  connect(List1->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& now) {
    ChooseLine(now.row());
    // A click marks its line when this is over, also where another one is on show.
    QMetaObject::invokeMethod(this, &Glossary1::ShowCurrentLine, Qt::QueuedConnection);
  });
  ShowNote();
  ShowCaption();
}

QWidget* Glossary1::MakeHead() {
  auto* head = new QWidget(this);
  auto* layout = new QHBoxLayout(head);
  layout->setContentsMargins(0, 0, 0, 0);
  caption_ = new ElidedLabel(head);
  caption_->setObjectName("GlossaryCaption");
  state_ = new HintLabel(QPalette::WindowText, head);
  state_->setObjectName("NoteState");
  layout->addWidget(caption_, 1);
  layout->addWidget(state_);
  FollowFont(head, [this] {
    QFont strong = font();
    strong.setBold(true);
    caption_->setFont(strong);
  });
  return head;
}

QWidget* Glossary1::MakeList() {
  list_ = new NoteList(session().glossary, this);
  List1 = new QListView(this);
  List1->setObjectName("List1");
  List1->setAccessibleName(tr("Notes of the glossary"));
  List1->setModel(list_);
  List1->setUniformItemSizes(true);
  List1->setTextElideMode(Qt::ElideRight);
  List1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  List1->installEventFilter(this);
  empty_ = new HintLabel(QPalette::Text, List1->viewport());
  empty_->setObjectName("NoNotes");
  empty_->setWordWrap(true);
  empty_->setAlignment(Qt::AlignCenter);
  empty_->setAttribute(Qt::WA_TransparentForMouseEvents);
  empty_->setText(tr("No notes\n\nAdd Record begins one of your own."));
  auto* over = new QVBoxLayout(List1->viewport());
  over->addWidget(empty_);
  FollowFont(List1, [this] { List1->setMinimumWidth(List1->fontMetrics().averageCharWidth() * kListColumns / 2); });
  return List1;
}

QWidget* Glossary1::MakeNote() {
  auto* note = new QWidget(this);
  auto* layout = new QVBoxLayout(note);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(fontMetrics().height() / 4);
  Text1 = new QLineEdit(note);
  Text1->setObjectName("Text1");
  Text1->setMaxLength(kMostSubject);
  Text2 = new NoteBox(kMostNote, note);
  Text2->setObjectName("Text2");
  subject_counter_ = MakeCounter("SubjectCounter");
  text_counter_ = MakeCounter("TextCounter");
  AddField(note, tr("&Subject"), Text1, subject_counter_);
  layout->addSpacing(fontMetrics().height() / 2);
  AddField(note, tr("Te&xt"), Text2, text_counter_);
  layout->setStretchFactor(Text2, 1);
  return note;
}

QLabel* Glossary1::MakeCounter(const char* name) {
  auto* counter = new HintLabel(QPalette::WindowText, this);
  counter->setObjectName(name);
  counter->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return counter;
}

// A caption with its counter, and the box below them.
void Glossary1::AddField(QWidget* note, const QString& caption, QWidget* box, QLabel* counter) {
  auto* line = new QHBoxLayout;
  auto* label = new QLabel(caption, note);
  label->setBuddy(box);
  box->setAccessibleName(QString(caption).remove('&'));
  line->addWidget(label);
  line->addStretch();
  line->addWidget(counter);
  auto* layout = static_cast<QVBoxLayout*>(note->layout());
  layout->addLayout(line);
  layout->addWidget(box);
}

void Glossary1::SetZoom(int percent) {
  zoom_ = percent;
  ViewForm::SetZoom(percent);
  ApplyType();
}

// Both boxes in a fixed pitch, as large as the program's type.
void Glossary1::ApplyType() {
  QFont type = FixedPitchFont();
  type.setPointSizeF(QApplication::font().pointSizeF() * zoom_ / 100.0);
  for (QWidget* box : {static_cast<QWidget*>(Text1), static_cast<QWidget*>(Text2)}) {
    if (box->font() != type) box->setFont(type);
  }
}

void Glossary1::ShowSession() {
  const Glossary& glossary = session().glossary;
  if (shown_ != glossary.revision) {
    shown_ = glossary.revision;
    const QScopedValueRollback<bool> guard(showing_, true);
    list_->Refresh();
    ShowNote();
  }
  ShowCaption();
  ShowCurrentLine();
}

// What the text box says while nothing stands in it.
QString Glossary1::TextHint() const {
  const Glossary& glossary = session().glossary;
  if (glossary.CurrentRecord == 0) return tr("Choose a note from the list, or begin one of your own with Add Record.");
  if (!glossary.List.empty()) return {};
  return tr(
      "Type the first note here. Import Tab Delimited File brings a list of terms, Open Glossary File another "
      "glossary.");
}

void Glossary1::ShowNote() {
  const Glossary& glossary = session().glossary;
  const QScopedValueRollback<bool> guard(showing_, true);
  const bool has_note = glossary.CurrentRecord != 0;
  Text1->setEnabled(has_note);
  Text2->setEnabled(has_note);
  Text1->setPlaceholderText(has_note ? QString() : tr("No note is selected"));
  Text2->setPlaceholderText(TextHint());
  const QString subject = ToQt(glossary.Text1);
  const QString text = ToQtLines(glossary.Text2);
  const bool other = shown_note_ != glossary.CurrentRecord;
  if (other || Text1->text() != subject) Text1->setText(subject);
  if (other || Text2->Text() != text) Text2->ShowText(text);
  Text1->setModified(false);
  Text2->document()->setModified(false);
  shown_subject_ = glossary.Text1;
  shown_text_ = glossary.Text2;
  if (other) Text1->setCursorPosition(0);
  shown_note_ = glossary.CurrentRecord;
  empty_->setVisible(glossary.List.empty());
  ShowCounters();
  // A new note begins with its subject.
  if (other && has_note && isVisible() && subject.isEmpty() && text.isEmpty()) Text1->setFocus();
}

// The line of the note on show, also when the user has asked for another one and it could not be shown.
void Glossary1::ShowCurrentLine() {
  const int record = session().glossary.CurrentRecord;
  const QModelIndex current = List1->currentIndex();
  const bool is_marked = current.isValid() && List1->selectionModel()->isSelected(current);
  if (is_marked && record != 0 && list_->RecordOf(current.row()) == record) return;
  const QScopedValueRollback<bool> guard(showing_, true);
  const int row = record == 0 ? -1 : list_->RowOf(record);
  if (row < 0) {
    List1->setCurrentIndex({});
    List1->clearSelection();
  } else {
    List1->setCurrentIndex(list_->index(row, 0));
  }
}

void Glossary1::ShowCounters() {
  subject_counter_->setText(CounterText(static_cast<qsizetype>(FromQt(Text1->text()).size()), kMostSubject));
  text_counter_->setText(CounterText(Text2->Used(), kMostNote));
}

void Glossary1::ShowCaption() {
  const Glossary& glossary = session().glossary;
  const QString name = ToQt(glossary.GlossaryName);
  caption_->setText(name.isEmpty() ? tr("Glossary") : "Glossary - " + name);
  state_->setText(glossary.NoteDirty ? tr("Not saved yet") : QString());
}

void Glossary1::UserEdited() {
  if (showing_) return;
  ShowCounters();
  const bool was_dirty = session().glossary.NoteDirty;
  StoreWidgets();
  if (session().glossary.NoteDirty != was_dirty) emit SessionChanged();
}

void Glossary1::StoreWidgets() {
  Glossary& glossary = session().glossary;
  if (shown_ != glossary.revision || glossary.CurrentRecord == 0) return;
  // Only what the user has typed counts: the boxes do not show every byte as it stands. What has been typed and undone
  // is what was shown.
  EditNote(glossary, Text1->isModified() ? FromQt(Text1->text()) : shown_subject_,
           Text2->document()->isModified() ? FromQtLines(Text2->Text()) : shown_text_);
}

void Glossary1::ChooseLine(int row) {
  if (showing_ || row < 0) return;
  session().glossary.chosen_line = row;
  emit CommandRequested(kSelectNoteCommand);
  ShowCurrentLine();  // the frame may be busy
}

void Glossary1::FocusFirst() {
  if (Text1->hasFocus() || Text2->hasFocus()) return;
  List1->setFocus();
}

QWidget* Glossary1::BoxAtWork() const {
  const QWidget* focus = window()->focusWidget();
  if (focus == Text1) return Text1;
  if (focus == Text2) return Text2;
  if (Text1->hasSelectedText()) return Text1;
  return Text2->textCursor().hasSelection() ? Text2 : nullptr;
}

WidgetState Glossary1::State() const {
  return {.note_has_selection = Text1->hasSelectedText() || Text2->textCursor().hasSelection()};
}

void Glossary1::Perform(WidgetAction action) {
  QWidget* box = BoxAtWork();
  const auto act = [&](auto of_line, auto of_text) {
    if (box == Text1) (Text1->*of_line)();
    if (box == Text2) (Text2->*of_text)();
  };
  switch (action) {
    case WidgetAction::kCopy:
      return act(&QLineEdit::copy, &QPlainTextEdit::copy);
    case WidgetAction::kCut:
      return act(&QLineEdit::cut, &QPlainTextEdit::cut);
    case WidgetAction::kPaste:
      return act(&QLineEdit::paste, &QPlainTextEdit::paste);
    default:
      return;
  }
}

// Of the list: Enter goes to the text, Delete asks about the note, Escape ends a search.
bool Glossary1::TakesListKey(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Text2->setFocus();
      return true;
    case Qt::Key_Delete:
      emit CommandRequested(kDeleteNoteCommand);
      return true;
    case Qt::Key_Escape:
      if (session().glossary.search_is_on) emit CommandRequested(kResetSearchCommand);
      return true;
    default:
      return false;
  }
}

bool Glossary1::eventFilter(QObject* watched, QEvent* event) {
  if (watched == List1 && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (!key->modifiers().testFlag(Qt::ControlModifier) && TakesListKey(key->key())) return true;
  }
  return ViewForm::eventFilter(watched, event);
}

}  // namespace tessara
