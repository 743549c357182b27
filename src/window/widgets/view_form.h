#pragma once

#include <QWidget>

#include "shell/command_table.h"
#include "shell/session.h"
#include "window/widgets/zoom.h"

// A view of the tabbed workspace. It only copies widgets into the session and shows the session again; what a user does
// with it are operations of the core.

namespace tessara {

// Gives a widget, and all in it that have no type of their own, the type of the program at that size.
void ZoomType(QWidget* widget, int percent);

class ViewForm : public QWidget {
  Q_OBJECT

 public:
  ViewForm(Session& session, View view, QWidget* parent = nullptr) : QWidget(parent), session_(session), view_(view) {}

  View view() const { return view_; }

  // Shows the session's state again; cheap when nothing has changed.
  virtual void ShowSession() {}
  // Copies what the user has entered into the session, ahead of every command.
  virtual void StoreWidgets() {}
  // Takes the keyboard focus to where the user goes on.
  virtual void FocusFirst() { setFocus(); }
  // The same behind a run: the focus stays where the user was at work.
  virtual void FocusInput() {}
  // What the command rules need to know of this view's widgets.
  virtual WidgetState State() const { return {}; }
  // The part of a command that only a widget can do: select all, copy, paste, cut.
  virtual void Perform(WidgetAction action) { Q_UNUSED(action); }
  // The size of the view's type, in percent of the usual one.
  virtual void SetZoom(int percent);

 signals:
  // The user has asked for a command of the command table, by its id.
  void CommandRequested(int id);
  // The session has changed: the frame refreshes command state, panes and titles.
  void SessionChanged();
  // The help on what the view is about just now is wanted.
  void HelpAsked();
  // A page of the help, or a section of one, is wanted: "UserManual1.html#format".
  void HelpPageAsked(const QString& page);
  // Larger or smaller type in all views, by steps; none for the usual size.
  void ZoomAsked(int steps);

 protected:
  Session& session() const { return session_; }

 private:
  Session& session_;
  View view_;
};

}  // namespace tessara
