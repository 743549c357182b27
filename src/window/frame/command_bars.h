#pragma once

#include <QAction>
#include <functional>
#include <map>
#include <vector>

#include "shell/command_table.h"

class QMainWindow;
class QMenu;
class QToolBar;

// Menus and toolbar, built from the rows of the commands. An action's object name is its id.

namespace tessara {

class CommandBars {
 public:
  using Execute = std::function<void(int id)>;

  // The topic box is a command whose widget somebody else has made.
  CommandBars(QMainWindow& frame, Execute execute, QAction* topic_box);

  QAction* action(int id) const;

  // Entries that are no commands of the table, behind one of its menu entries.
  void InsertBehind(int id, const QList<QAction*>& entries);

  // Asks the rules for each command's state. A menu without a visible entry disappears.
  void Refresh(const Session& session, const WidgetState& widgets);

  void UseIconSize(int pixels);

 private:
  // Entries of a bar in order; a separator shows between visible entries alone, and in its views.
  struct Entry {
    QAction* action = nullptr;
    bool separator = false;
    ViewSet views = {};
  };

  void BuildMenus(QMainWindow& frame);
  void BuildToolbar(QMainWindow& frame);
  QAction* ActionOf(const BarEntry& entry);
  QAction* MakeAction(const CommandRow& row);
  void AddButton(const BarEntry& entry);
  void ShowState(QAction* action, int id, const CommandState& state);
  static void ShowSeparators(const std::vector<Entry>& entries, View view);

  QMainWindow& frame_;
  Execute execute_;
  QAction* topic_box_;
  std::map<int, QAction*> actions_;
  std::map<int, QString> captions_;     // of the rows
  std::map<int, bool> caption_beside_;  // the buttons whose word is the caption, as it changes
  std::vector<QMenu*> menus_;
  QToolBar* toolbar_ = nullptr;
  std::vector<Entry> toolbar_entries_;
};

}  // namespace tessara
