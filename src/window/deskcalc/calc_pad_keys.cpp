#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QToolButton>

#include "shell/calculator_operations.h"
#include "window/deskcalc/calc_key_button.h"
#include "window/deskcalc/calc_pad.h"
#include "window/system/qt_platform.h"
#include "window/widgets/theme.h"

// The calculator's keyboard and its menus.

namespace tessara {
namespace {

// The key of the pad that a key of the keyboard stands for.
std::optional<CalcKey> KeyOf(const QKeyEvent& event) {
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Equal:
      return CalcKey::kEqual;
    case Qt::Key_Backspace:
      return CalcKey::kBackspace;
    case Qt::Key_Escape:
      return CalcKey::kClear;
    case Qt::Key_Exclam:
      return CalcKey::kFactorial;
    case Qt::Key_Comma:  // as the decimal key of many keyboards writes it
      return CalcKey::kPoint;
    default:
      break;
  }
  const QString text = event.text();
  if (text.size() != 1 || text[0].unicode() > 127) return std::nullopt;
  const char character = text[0].toLatin1();
  return KeyOfWord({&character, 1});
}

bool IsControl(const QKeyEvent& event, int key) {
  return event.key() == key && (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
}

}  // namespace

// The keys of the calculator come first, whatever part of the pad has the keyboard: ahead of the frame's shortcuts too.
bool CalcPad::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool own = KeyOf(key) || IsControl(key, Qt::Key_C) || IsControl(key, Qt::Key_V) ||
                     IsControl(key, Qt::Key_A) || IsControl(key, Qt::Key_W) || key.key() == Qt::Key_F1;
    if (own) event->accept();
    return own;
  }
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  return PressKeyboard(key) || PressControl(key) || QWidget::eventFilter(watched, event);
}

bool CalcPad::PressKeyboard(const QKeyEvent& event) {
  const auto key = KeyOf(event);
  if (!key) return false;
  Press(*key);
  keys_[*key]->Flash();
  return true;
}

bool CalcPad::PressControl(const QKeyEvent& event) {
  if (event.key() == Qt::Key_F1) {
    emit HelpAsked("calculator.html");
  } else if (IsControl(event, Qt::Key_C)) {
    Copy();
  } else if (IsControl(event, Qt::Key_V)) {
    Paste();
  } else if (IsControl(event, Qt::Key_W)) {
    close();
  } else {
    return false;
  }
  return true;
}

QMenu* CalcPad::NewMenu(const char* name) {
  auto* menu = new QMenu(this);
  menu->setObjectName(name);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  return menu;
}

void CalcPad::ShowTapeMenu(const QPoint& place) {
  QMenu* menu = NewMenu("TapeMenu");
  const bool chosen = calculator_.selected >= 0;
  menu->addAction(ThemeIcon("edit-select-all"), "All", this, [this] { Do([this] { CopyWholeTape(session_); }); })
      ->setToolTip(tr("Copy the whole tape"));
  menu->addAction(ThemeIcon("edit-copy"), "Copy", this, [this, chosen] {
    Do([this, chosen] { chosen ? CopyChosenTapeLine(session_) : CopyDisplay(session_); });
  });
  menu->addAction(ThemeIcon("document-print"), "Print", this, [this] { Do([this] { PrintTape(session_); }); });
  menu->addAction(ThemeIcon("edit-clear-all"), "Reset", this, [this] { Do([this] { ResetTape(calculator_); }); });
  menu->addAction(ThemeIcon("go-next"), "Transfer", this, [this] { Transfer(NumberToTransfer(calculator_)); });
  menu->popup(place);
}

void CalcPad::ShowDisplayMenu(const QPoint& place) {
  QMenu* menu = NewMenu("DisplayMenu");
  menu->addAction(ThemeIcon("edit-copy"), "Copy", this, [this] { Do([this] { CopyDisplay(session_); }); });
  menu->addAction(ThemeIcon("edit-paste"), "Paste", this, &CalcPad::Paste);
  menu->addAction(ThemeIcon("go-next"), "Transfer", this,
                  [this] { Transfer(NumberOfDisplay(calculator_).value_or("")); });
  menu->popup(place);
}

}  // namespace tessara
