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

CommandBars::CommandBars(QMainWindow& frame, Execute execute, QAction* topic_box)
    : frame_(frame), execute_(std::move(execute)), topic_box_(topic_box) {
  BuildMenus(frame);
  BuildToolbar(frame);
}

QAction* CommandBars::action(int id) const {
  const auto found = actions_.find(id);
  return found == actions_.end() ? nullptr : found->second;
}

QAction* CommandBars::ActionOf(const BarEntry& entry) {
  if (QAction* known = action(entry.id)) return known;
  const CommandRow& row = *FindCommand(entry.id);
  QAction* made = row.id == kTopicBoxCommand ? topic_box_ : MakeAction(row);
  made->setObjectName(QString::number(row.id));
  QObject::connect(made, &QAction::triggered, &frame_, [this, id = row.id] { execute_(id); });
  actions_[row.id] = made;
  captions_[row.id] = ToQt(row.caption);
  return made;
}

QAction* CommandBars::MakeAction(const CommandRow& row) {
  auto* made = new QAction(ToQt(row.caption), &frame_);
  if (!row.icon.empty()) made->setIcon(ThemeIcon(std::string(row.icon).c_str()));
  QList<QKeySequence> keys;
  for (const std::string_view key : {row.shortcut, row.second_shortcut}) {
    if (!key.empty()) keys += QKeySequence(ToQt(key), QKeySequence::PortableText);
  }
  made->setShortcuts(keys);
  made->setCheckable(row.checked != nullptr);
  if (row.id == kExitCommand) made->setMenuRole(QAction::QuitRole);
  if (row.id == kAboutCommand) made->setMenuRole(QAction::AboutRole);
  return made;
}

void CommandBars::BuildMenus(QMainWindow& frame) {
  for (const CommandMenu& table : MenuBar()) {
    QMenu* menu = frame.menuBar()->addMenu(ToQt(table.title));
    for (const BarEntry& entry : table.entries) {
      if (entry.begin_group) menu->addSeparator();
      menu->addAction(ActionOf(entry));
    }
    menus_.push_back(menu);
  }
}

void CommandBars::BuildToolbar(QMainWindow& frame) {
  toolbar_ = frame.addToolBar(QObject::tr("Standard"));
  toolbar_->setObjectName("Standard");
  toolbar_->setMovable(false);
  toolbar_->setContextMenuPolicy(Qt::PreventContextMenu);
  for (const BarEntry& entry : Toolbar()) {
    const ViewSet views = entry.begin_group ? kEveryView : entry.begin_group_in;
    if (views != ViewSet()) toolbar_entries_.push_back({toolbar_->addSeparator(), true, views});
    AddButton(entry);
  }
}

// A button with a word beside its icon, or with the icon alone.
void CommandBars::AddButton(const BarEntry& entry) {
  QAction* made = ActionOf(entry);
  made->setToolTip(ToQt(FindCommand(entry.id)->tooltip));
  toolbar_->addAction(made);
  toolbar_entries_.push_back({made, false});
  const bool with_caption = entry.style == CommandStyle::kIconAndCaption && entry.word.empty();
  caption_beside_[entry.id] = with_caption;
  made->setIconText(ToQt(entry.word.empty() ? CaptionOf(entry) : entry.word).remove('&'));
  if (auto* button = qobject_cast<QToolButton*>(toolbar_->widgetForAction(made))) {
    const bool with_word = with_caption || !entry.word.empty();
    button->setToolButtonStyle(with_word ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    button->setAccessibleName(made->iconText());
    button->setFocusPolicy(Qt::TabFocus);
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
  for (const auto& [id, made] : actions_) ShowState(made, id, UpdateCommand(session, id, widgets));
  for (QMenu* menu : menus_) menu->menuAction()->setVisible(AnyVisible(*menu));
  ShowSeparators(toolbar_entries_, session.ActiveView);
  toolbar_->setVisible(ToolbarIsVisible(session.ActiveView));
}

void CommandBars::ShowState(QAction* action, int id, const CommandState& state) {
  if (!state.caption.empty()) {
    const QString word = action->iconText();
    action->setText(WithAccessLetter(ToQt(state.caption), captions_.at(id)));
    action->setIconText(caption_beside_[id] ? ToQt(state.caption) : word);
  }
  action->setVisible(state.visible);
  action->setEnabled(state.enabled);
  action->setStatusTip(ToQt(state.reason));
  if (action->isCheckable()) action->setChecked(state.checked);
}

void CommandBars::ShowSeparators(const std::vector<Entry>& entries, View view) {
  QAction* pending = nullptr;
  bool anything = false;
  for (const Entry& entry : entries) {
    if (entry.separator) {
      entry.action->setVisible(false);
      if (entry.views.contains(view)) pending = entry.action;
    } else if (entry.action->isVisible()) {
      if (pending && anything) pending->setVisible(true);
      pending = nullptr;
      anything = true;
    }
  }
}

void CommandBars::UseIconSize(int pixels) { toolbar_->setIconSize(QSize(pixels, pixels)); }

}  // namespace tessara
