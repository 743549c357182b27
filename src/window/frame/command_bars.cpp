#include "window/frame/command_bars.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

// The word that a toolbar button shows beside its icon; empty for a button with an icon alone.
QString ButtonWord(const CommandControl& control) {
  switch (control.id) {
    case 102:
      return QObject::tr("Open");
    case 103:
      return QObject::tr("Save");
    case 106:
      return QObject::tr("Print");
    case 308:
      return QObject::tr("Run");
    default:
      break;
  }
  return control.style == CommandStyle::kIconAndCaption ? ToQt(control.caption).remove('&') : QString();
}

// A caption of the rules has no access letter: it takes that of the table.
QString WithAccessLetter(const QString& caption, const QString& table_caption) {
  const qsizetype mark = table_caption.indexOf('&');
  if (mark < 0 || caption.contains('&')) return caption;
  const qsizetype place = caption.indexOf(table_caption.at(mark + 1), 0, Qt::CaseInsensitive);
  return place < 0 ? caption : QString(caption).insert(place, '&');
}

bool AnyVisible(const QMenu& menu) {
  for (const QAction* action : menu.actions()) {
    if (!action->isSeparator() && action->isVisible()) return true;
  }
  return false;
}

}  // namespace

CommandBars::CommandBars(QMainWindow& frame, Execute execute) : frame_(frame), execute_(std::move(execute)) {
  BuildMenus(frame);
  BuildToolbar(frame);
}

QAction* CommandBars::action(int id) const {
  const auto found = actions_.find(id);
  return found == actions_.end() ? nullptr : found->second;
}

QAction* CommandBars::ActionOf(const CommandControl& control) {
  if (QAction* known = action(control.id)) return known;
  const QString caption = ToQt(control.caption);
  auto* made = new QAction(caption, &frame_);
  made->setObjectName(QString::number(control.id));
  if (!control.icon.empty()) made->setIcon(ThemeIcon(std::string(control.icon).c_str()));
  if (!control.shortcut.empty()) made->setShortcut(QKeySequence(ToQt(control.shortcut), QKeySequence::PortableText));
  if (control.id == kToggleHelpCommand) made->setCheckable(true);
  if (control.id == 107) made->setMenuRole(QAction::QuitRole);
  if (control.id == 608) made->setMenuRole(QAction::AboutRole);
  QObject::connect(made, &QAction::triggered, &frame_, [this, id = control.id] { execute_(id); });
  actions_[control.id] = made;
  captions_[control.id] = caption;
  return made;
}

void CommandBars::BuildMenus(QMainWindow& frame) {
  for (const CommandMenu& table : MenuBar()) {
    QMenu* menu = frame.menuBar()->addMenu(ToQt(table.title));
    for (const CommandControl& control : table.commands) {
      if (control.begin_group) menu->addSeparator();
      menu->addAction(ActionOf(control));
    }
    menus_.push_back(menu);
  }
}

void CommandBars::BuildToolbar(QMainWindow& frame) {
  toolbar_ = frame.addToolBar(QObject::tr("Standard"));
  toolbar_->setObjectName("Standard");
  toolbar_->setMovable(false);
  toolbar_->setContextMenuPolicy(Qt::PreventContextMenu);
  for (const CommandControl& control : Toolbar()) {
    if (control.begin_group) toolbar_entries_.push_back({toolbar_->addSeparator(), true});
    QAction* made = ActionOf(control);
    made->setToolTip(ToQt(control.tooltip));
    toolbar_->addAction(made);
    toolbar_entries_.push_back({made, false});
    const QString word = ButtonWord(control);
    made->setIconText(word.isEmpty() ? made->text().remove('&') : word);
    if (auto* button = qobject_cast<QToolButton*>(toolbar_->widgetForAction(made))) {
      button->setToolButtonStyle(word.isEmpty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
      button->setAccessibleName(made->iconText());
      button->setFocusPolicy(Qt::TabFocus);
    }
  }
}

void CommandBars::InsertBehind(int id, const QList<QAction*>& entries) {
  const QAction* reference = action(id);
  for (QMenu* menu : menus_) {
    const QList<QAction*> all = menu->actions();
    const qsizetype place = all.indexOf(reference);
    if (place >= 0) menu->insertActions(place + 1 < all.size() ? all[place + 1] : nullptr, entries);
  }
}

void CommandBars::Refresh(const Session& session, const WidgetState& widgets) {
  for (const auto& [id, made] : actions_) {
    const CommandState state = UpdateCommand(session, id, widgets);
    const QString& table_caption = captions_.at(id);
    const QString word = made->iconText();
    if (!state.caption.empty()) made->setText(WithAccessLetter(ToQt(state.caption), table_caption));
    if (id == 350) {
      made->setIconText(made->text().remove('&'));  // names the text that it shows next
    } else {
      made->setIconText(word);
    }
    made->setVisible(state.visible);
    made->setEnabled(state.enabled);
  }
  if (QAction* help = action(kToggleHelpCommand)) help->setChecked(session.help_pane_visible);
  for (QMenu* menu : menus_) menu->menuAction()->setVisible(AnyVisible(*menu));
  ShowSeparators(toolbar_entries_);
}

void CommandBars::ShowSeparators(const std::vector<Entry>& entries) {
  QAction* pending = nullptr;
  bool anything = false;
  for (const Entry& entry : entries) {
    if (entry.separator) {
      entry.action->setVisible(false);
      pending = entry.action;
    } else if (entry.action->isVisible()) {
      if (pending && anything) pending->setVisible(true);
      pending = nullptr;
      anything = true;
    }
  }
}

void CommandBars::UseIconSize(int pixels) { toolbar_->setIconSize(QSize(pixels, pixels)); }

}  // namespace tessara
