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

  CommandBars(QMainWindow& frame, Execute execute);

  QAction* action(int id) const;

  // Entries that are no commands of the table, behind one of its menu entries.
  void InsertBehind(int id, const QList<QAction*>& entries);

  // Asks the rules for each command's state. A menu without a visible entry disappears.
  void Refresh(const Session& session, const WidgetState& widgets);

  void UseIconSize(int pixels);

 private:
  // Entries of a bar in order; a separator shows between visible entries alone.
  struct Entry {
    QAction* action = nullptr;
    bool separator = false;
  };

  void BuildMenus(QMainWindow& frame);
  void BuildToolbar(QMainWindow& frame);
  QAction* ActionOf(const BarEntry& entry);
  void AddButton(const BarEntry& entry);
  void ShowState(QAction* action, int id, const CommandState& state);
  static void ShowSeparators(const std::vector<Entry>& entries);

  QMainWindow& frame_;
  Execute execute_;
  std::map<int, QAction*> actions_;
  std::map<int, QString> captions_;     // of the rows
  std::map<int, bool> caption_beside_;  // the buttons whose word is the caption, as it changes
  std::vector<QMenu*> menus_;
  QToolBar* toolbar_ = nullptr;
  std::vector<Entry> toolbar_entries_;
};

}  // namespace tessara
