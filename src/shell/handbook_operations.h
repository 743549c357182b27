#pragma once

#include <string_view>

#include "shell/command_row.h"

// What commands do with the pages of the handbook: the view that shows them is told by the session.

namespace tessara {

// The page of the topic that the topic box has chosen; a row that the list does not have asks for nothing.
WidgetAction ShowChosenTopic(Session& session);

// Brings the Handbook view to the front with the topic of that row, counted from 1.
WidgetAction ShowTopicOfRow(Session& session, int row);

// A page of the Help folder in the help pane, "calculator.html".
WidgetAction ShowHelpPage(Session& session, std::string_view page);

// The Handbook view shows this page: the topic box follows it. False when that changes nothing.
bool NoteShownPage(Session& session, std::string_view page);

// The titles of the pages, read when they are first asked for.
const std::vector<HandbookTopic>& HelpTitles(Session& session);

}  // namespace tessara
