#include "shell/handbook_operations.h"

#include <utility>

namespace tessara {

WidgetAction ShowChosenTopic(Session& session) {
  std::string page = PageOfTopic(session.handbook, session.handbook.chosen_row);
  if (page.empty()) return WidgetAction::kNone;
  session.handbook.wanted_page = std::move(page);
  return WidgetAction::kShowTopic;
}

WidgetAction ShowTopicOfRow(Session& session, int row) {
  session.handbook.chosen_row = row;
  session.wanted_view = View::ViewHandbook;
  return ShowChosenTopic(session);
}

WidgetAction ShowHelpPage(Session& session, std::string_view page) {
  session.handbook.wanted_page = page;
  session.help_pane_visible = true;
  return WidgetAction::kShowHelpPage;
}

bool NoteShownPage(Session& session, std::string_view page) {
  const int row = RowOfPage(session.handbook, page);
  return std::exchange(session.handbook.chosen_row, row) != row;
}

const std::vector<HandbookTopic>& HelpTitles(Session& session) {
  Handbook& handbook = session.handbook;
  if (!handbook.pages_are_read) handbook.pages = ReadHelpTitles(session.platform.ProgramFolder() / "Help");
  handbook.pages_are_read = true;
  return handbook.pages;
}

}  // namespace tessara
