#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>
#include <set>

#include "shell/command_table.h"
#include "window_fixture.h"

// Walks of tests: all views, and every form that a command of any view brings up.

namespace tessara {

inline const std::vector<View>& EveryView() {
  static const std::vector<View> kViews = {View::ViewDataGrid, View::ViewStatProcs, View::ViewBrevarum,
                                           View::ViewOutput,   View::ViewCharts,    View::ViewGlossary,
                                           View::ViewHandbook, View::ViewTips};
  return kViews;
}

inline void SettleEvents() {
  for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
}

// The windows over the frame that can be seen.
inline QList<QWidget*> FormsInSight(const QWidget* frame) {
  QList<QWidget*> forms;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    const bool is_form = top->windowType() == Qt::Dialog || top->windowType() == Qt::Tool ||
                         (top->windowType() == Qt::Window && top != frame);
    if (is_form && top->isVisible()) forms += top;
  }
  return forms;
}

// Gives each form that a command brings up to a look at it, once, and puts the form away again. The name is that of
// the form.
inline void ForEachForm(WindowFixture& window, const std::function<void(QWidget* form, const QString& name)>& look) {
  std::set<int> ids;
  for (const CommandMenu& menu : MenuBar()) {
    for (const BarEntry& entry : menu.entries) ids.insert(entry.id);
  }
  for (const BarEntry& entry : Toolbar()) ids.insert(entry.id);
  ids.erase(kExitCommand);
  QSet<QString> seen;
  for (const View view : EveryView()) {
    if (!window.frame().view(view)) continue;
    for (const int id : ids) {
      window.ShowView(view);
      window.Trigger(id);
      SettleEvents();
      for (QWidget* form : FormsInSight(&window.frame())) {
        const QString name = form->objectName().isEmpty() ? form->metaObject()->className() : form->objectName();
        const QPointer<QWidget> alive(form);  // the look may end it
        if (!seen.contains(name)) look(form, name);
        seen.insert(name);
        if (alive) alive->close();
      }
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      SettleEvents();
    }
  }
}

}  // namespace tessara
