#include "window/frame/palette.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "window/frame/palette_list.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kColumns = 76;  // characters
constexpr int kMostLines = 12;
constexpr int kMostTyped = 200;  // characters

}  // namespace

Palette::Palette(Frame frame) : QFrame(frame.window), frame_(std::move(frame)) {
  setObjectName("PalettePanel");
  setAccessibleName(tr("Find a command or topic"));
  setFrameShape(QFrame::StyledPanel);
  setFrameShadow(QFrame::Raised);
  setAutoFillBackground(true);
  Build();
  hide();
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (isVisible() && now && now != this && !isAncestorOf(now)) Leave();
  });
}

void Palette::Build() {
  text_ = new QLineEdit(this);
  text_->setObjectName("PaletteText");
  text_->setMaxLength(kMostTyped);
  text_->setPlaceholderText(tr("Find a command, procedure, variable or topic"));
  text_->setAccessibleName(tr("Find a command, procedure, variable or topic"));
  text_->addAction(ThemeIcon("search"), QLineEdit::LeadingPosition);
  text_->installEventFilter(this);
  model_ = new PaletteModel(this);
  list_ = new PaletteList(model_, this);
  hint_ = new QLabel(this);
  hint_->setObjectName("PaletteHint");
  hint_->setTextFormat(Qt::PlainText);
  hint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  auto* layout = new QVBoxLayout(this);
  const int gap = fontMetrics().height() / 3;
  layout->setContentsMargins(gap, gap, gap, gap);
  layout->setSpacing(gap);
  layout->addWidget(text_);
  layout->addWidget(list_, 1);
  layout->addWidget(hint_);
  connect(text_, &QLineEdit::textChanged, this, &Palette::Find);
  connect(list_, &QListView::clicked, this, &Palette::Choose);
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, &Palette::ShowHint);
  frame_.window->installEventFilter(this);
}

void Palette::Open() {
  if (!isVisible()) focus_before_ = frame_.window->focusWidget();
  model_->SetEntries(frame_.build());
  text_->clear();
  Find({});
  Place();
  show();
  raise();
  text_->setFocus(Qt::ShortcutFocusReason);
}

void Palette::Place() {
  const QRect window = frame_.window->rect();
  const int gap = fontMetrics().height();
  const QMargins around = layout()->contentsMargins();
  const int beside = around.top() + around.bottom() + 2 * layout()->spacing() + text_->sizeHint().height() +
                     hint_->sizeHint().height() + 2 * frameWidth();
  const int room = (window.height() - 4 * gap - beside) / list_->LineHeight();
  const int lines = std::clamp(room, 1, kMostLines);  // whole ones
  list_->setFixedHeight(lines * list_->LineHeight());
  const int width = std::min(fontMetrics().averageCharWidth() * kColumns, window.width() - 2 * gap);
  setGeometry(window.center().x() - width / 2, 2 * gap, width, beside + list_->height());
}

void Palette::Find(const QString& text) {
  const auto& entries = model_->entries();
  model_->Show(text.trimmed().isEmpty() ? FirstInPalette(entries, history_, frame_.view_in_front())
                                        : FindInPalette(entries, FromQt(text)));
  list_->setCurrentIndex(model_->index(0, 0));
  list_->scrollToTop();
  ShowHint();
}

void Palette::ShowHint() {
  const PaletteEntry* entry = model_->EntryAt(list_->currentIndex());
  QString hint = tr("Enter chooses, Esc closes");
  if (!entry) {
    hint = text_->text().trimmed().isEmpty() ? tr("Type a piece of a name")
                                             : tr("Nothing is called that: try fewer letters");
  } else if (!entry->enabled) {
    hint = entry->reason.empty() ? tr("This command cannot be chosen now") : ToQt(entry->reason);
  }
  hint_->setText(hint);
  // The list never has the keyboard: what is current in it is told by the line that has.
  const QString spoken = entry ? list_->currentIndex().data(Qt::AccessibleTextRole).toString() + ". " + hint : hint;
  text_->setAccessibleDescription(spoken);
}

bool Palette::TakeKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Down:
    case Qt::Key_Tab:
      list_->Move(1);
      return true;
    case Qt::Key_Up:
    case Qt::Key_Backtab:
      list_->Move(-1);
      return true;
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
      list_->MovePage(event.key() == Qt::Key_PageDown ? 1 : -1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Choose(list_->currentIndex());
      return true;
    case Qt::Key_Escape:
      Dismiss();
      return true;
    case Qt::Key_K:
      if (!(event.modifiers() & Qt::ControlModifier)) return false;
      Dismiss();
      return true;
    default:
      return false;
  }
}

// While it is open all keys belong to it: none of the frame's commands runs behind it.
bool Palette::eventFilter(QObject* watched, QEvent* event) {
  if (watched == text_) {
    if (event->type() == QEvent::ShortcutOverride) {
      event->accept();
      return true;
    }
    return event->type() == QEvent::KeyPress && TakeKey(*static_cast<QKeyEvent*>(event));
  }
  const auto type = event->type();
  if (watched == frame_.window && isVisible()) {
    if (type == QEvent::Resize || type == QEvent::FontChange) Place();
    if (type == QEvent::WindowDeactivate) Dismiss();
  }
  return QFrame::eventFilter(watched, event);
}

void Palette::Choose(const QModelIndex& index) {
  const PaletteEntry* entry = model_->EntryAt(index);
  if (!entry || !entry->enabled) return ShowHint();
  const PaletteEntry chosen = *entry;
  NoteChoice(history_, chosen);
  Dismiss();
  frame_.choose(chosen);
}

void Palette::Dismiss() {
  if (!isVisible()) return;
  const QPointer<QWidget> before = focus_before_;
  Leave();
  if (before && before->isVisible()) before->setFocus(Qt::OtherFocusReason);
}

void Palette::Leave() {
  hide();
  model_->SetEntries({});  // names of variables may be many
  focus_before_ = nullptr;
}

}  // namespace tessara
