#include "window/system/plain_text_rule.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QTextDocument>
#include <QToolTip>

namespace tessara {
namespace {

QString TipOfView(const QAbstractItemView& view, const QPoint& place) {
  if (const auto* header = qobject_cast<const QHeaderView*>(&view)) {
    const int section = header->logicalIndexAt(place);
    return header->model() ? header->model()->headerData(section, header->orientation(), Qt::ToolTipRole).toString()
                           : QString();
  }
  return view.indexAt(place).data(Qt::ToolTipRole).toString();
}

// What a widget would show as its tip at a place.
QString TipAt(const QWidget& widget, const QPoint& place) {
  const auto* view = qobject_cast<const QAbstractItemView*>(widget.parentWidget());
  if (view && view->viewport() == &widget) {
    const QString tip = TipOfView(*view, place);
    return tip.isEmpty() ? view->toolTip() : tip;
  }
  if (const auto* menu = qobject_cast<const QMenu*>(&widget)) {
    const QAction* action = menu->toolTipsVisible() ? menu->actionAt(place) : nullptr;
    return action ? action->toolTip() : QString();
  }
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    const QString tip = tabs->tabToolTip(tabs->tabAt(place));
    return tip.isEmpty() ? widget.toolTip() : tip;
  }
  return widget.toolTip();
}

}  // namespace

PlainTextRule::PlainTextRule(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

bool PlainTextRule::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Polish) {  // ahead of the first look at the text
    auto* label = qobject_cast<QLabel*>(watched);
    if (label && label->textFormat() == Qt::AutoText) label->setTextFormat(Qt::PlainText);
  }
  auto* widget = event->type() == QEvent::ToolTip ? qobject_cast<QWidget*>(watched) : nullptr;
  if (!widget) return false;
  const auto* help = static_cast<QHelpEvent*>(event);
  const QString tip = TipAt(*widget, help->pos());
  if (!Qt::mightBeRichText(tip)) return false;
  QToolTip::showText(help->globalPos(), PlainTip(tip), widget);
  return true;
}

QString PlainTip(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

}  // namespace tessara
