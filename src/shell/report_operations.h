#pragma once

#include <optional>
#include <string_view>

#include "platform/printing.h"
#include "shell/session.h"

// The summary table on paper.

namespace tessara {

void PrintTable(Session& session);
// The pages that PrintTable would print; nothing, and a box that says why, when there are none.
std::optional<PrintJob> TableJob(Session& session);
// The form that makes all data columns equally wide. False when what was typed is no number.
bool SetTableColumnWidth(Session& session, std::string_view typed);

}  // namespace tessara
