#pragma once

#include <string_view>

#include "shell/session.h"

// Output and data on their way to a word processor and a spreadsheet program: each goes to a file in "Tessara Data"
// among the user's documents, under a name of the day, and is opened with the program that the system has for it.

namespace tessara {

// "Output 2026-11-05.docx", and " (2)" and so on behind the day where that name is taken. Makes the folder.
Path NameOfTheDay(Platform& platform, std::string_view what, std::string_view ending);

// What the Output view shows, text or table.
void SendToWord(Session& session);
void SendToExcel(Session& session);

// The data, behind the reminder of every export. False when nothing was written.
bool SendDataToExcel(Session& session);

}  // namespace tessara
